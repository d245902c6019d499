#include "tests/unit/support/allocation_watch.h"

#include <cstdlib>
#include <new>

namespace {

std::size_t allocations = 0;
bool refused = false;

void *allocate(std::size_t size)
{
    ++allocations;
    return std::malloc(size == 0 ? 1 : size);
}

void *allocateOrDie(std::size_t size)
{
    void *const block = allocate(size);
    if (!block)
        std::abort();
    return block;
}

} // namespace

AllocationWatch::AllocationWatch() : start(allocations) {}

std::size_t AllocationWatch::count() const { return allocations - start; }

RefusedAllocations::RefusedAllocations() { refused = true; }

RefusedAllocations::~RefusedAllocations() { refused = false; }

void *operator new(std::size_t size) { return allocateOrDie(size); }
void *operator new[](std::size_t size) { return allocateOrDie(size); }
void *operator new(std::size_t size, const std::nothrow_t &) noexcept { return refused ? nullptr : allocate(size); }
void *operator new[](std::size_t size, const std::nothrow_t &) noexcept { return refused ? nullptr : allocate(size); }
void operator delete(void *block) noexcept { std::free(block); }
void operator delete[](void *block) noexcept { std::free(block); }
void operator delete(void *block, std::size_t) noexcept { std::free(block); }
void operator delete[](void *block, std::size_t) noexcept { std::free(block); }
void operator delete(void *block, const std::nothrow_t &) noexcept { std::free(block); }
void operator delete[](void *block, const std::nothrow_t &) noexcept { std::free(block); }
