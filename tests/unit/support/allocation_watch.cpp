#include "tests/unit/support/allocation_watch.h"

#include "tests/unit/support/real_realloc.h"

#include <cstdlib>
#include <new>

namespace {

std::size_t allocations = 0;
bool refused = false;
std::size_t leftUntilFailure = 0; // 0 for none

bool failsNow() { return leftUntilFailure > 0 && --leftUntilFailure == 0; }

void *allocate(std::size_t size)
{
    ++allocations;
    return failsNow() ? nullptr : std::malloc(size == 0 ? 1 : size);
}

void *allocateOrThrow(std::size_t size)
{
    void *const block = allocate(size);
    if (!block)
        throw std::bad_alloc();
    return block;
}

} // namespace

AllocationWatch::AllocationWatch() : start(allocations) {}

std::size_t AllocationWatch::count() const { return allocations - start; }

RefusedAllocations::RefusedAllocations() { refused = true; }

RefusedAllocations::~RefusedAllocations() { refused = false; }

FailingAllocation::FailingAllocation(std::size_t place) { leftUntilFailure = place; }

FailingAllocation::~FailingAllocation() { leftUntilFailure = 0; }

bool FailingAllocation::happened() { return leftUntilFailure == 0; }

// The linker puts it in the place of realloc (--wrap).
extern "C" void *__wrap_realloc(void *block, std::size_t size) // NOLINT(bugprone-reserved-identifier)
{
    return failsNow() ? nullptr : realRealloc(block, size);
}

void *operator new(std::size_t size) { return allocateOrThrow(size); }
void *operator new[](std::size_t size) { return allocateOrThrow(size); }
void *operator new(std::size_t size, const std::nothrow_t &) noexcept { return refused ? nullptr : allocate(size); }
void *operator new[](std::size_t size, const std::nothrow_t &) noexcept { return refused ? nullptr : allocate(size); }
void operator delete(void *block) noexcept { std::free(block); }
void operator delete[](void *block) noexcept { std::free(block); }
void operator delete(void *block, std::size_t) noexcept { std::free(block); }
void operator delete[](void *block, std::size_t) noexcept { std::free(block); }
void operator delete(void *block, const std::nothrow_t &) noexcept { std::free(block); }
void operator delete[](void *block, const std::nothrow_t &) noexcept { std::free(block); }
