#include "bench/support/allocations.h"

#include <cstdlib>
#include <new>

namespace {
std::size_t count = 0;
}

std::size_t AllocationCount() { return count; }

void *operator new(std::size_t size)
{
    ++count;
    if (void *block = std::malloc(size ? size : 1))
        return block;
    std::abort();
}
void operator delete(void *block) noexcept { std::free(block); }
void operator delete(void *block, std::size_t) noexcept { std::free(block); }
