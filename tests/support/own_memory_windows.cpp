// Memory of a test program from outside of the heaps of Windows, in which it has more blocks than all that it tests:
// with them in there, validating the process heap at each call would take half a second for a test
// (scripts/heap_check.sh).
#include <windows.h>

#include <bit>
#include <cstddef>
#include <mutex>
#include <new>

namespace {

constexpr std::size_t alignment = alignof(std::max_align_t);
constexpr std::size_t chunkSize = std::size_t{1} << 22;

// What stands before each block.
struct alignas(alignment) Header {
    std::size_t bits; // the block has 2^bits bytes, with this
    Header *next;     // while it is free
};

std::mutex mutex;
Header *freeBlocks[64];
char *chunk;
std::size_t left;

// Zero when the system has no more.
char *fromSystem(std::size_t bytes)
{
    return static_cast<char *>(VirtualAlloc(nullptr, bytes, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE));
}

Header *newBlock(std::size_t bits)
{
    const std::size_t bytes = std::size_t{1} << bits;
    if (bytes > chunkSize)
        return reinterpret_cast<Header *>(fromSystem(bytes));
    if (bytes > left) {
        chunk = fromSystem(chunkSize);
        left = chunk ? chunkSize : 0;
    }
    if (!chunk)
        return nullptr;
    left -= bytes;
    return reinterpret_cast<Header *>(chunk + left);
}

} // namespace

void *operator new(std::size_t size)
{
    const std::size_t bits = std::bit_width(size + sizeof(Header) - 1);
    const std::lock_guard lock(mutex);
    Header *block = bits < 48 ? freeBlocks[bits] : nullptr;
    if (block)
        freeBlocks[bits] = block->next;
    else if (bits >= 48 || !(block = newBlock(bits)))
        throw std::bad_alloc();
    block->bits = bits;
    return block + 1;
}

void operator delete(void *memory) noexcept
{
    if (!memory)
        return;
    Header *block = static_cast<Header *>(memory) - 1;
    const std::lock_guard lock(mutex);
    block->next = freeBlocks[block->bits];
    freeBlocks[block->bits] = block;
}

void operator delete(void *memory, std::size_t) noexcept { operator delete(memory); }
