// What tests know and decide of the program's calls of operator new, and of realloc.
#pragma once

#include <cstddef>

// Counts the allocations from its construction on.
class AllocationWatch {
public:
    AllocationWatch();
    std::size_t count() const;

private:
    std::size_t start;
};

// While it lives, every operator new that may give null gives null.
class RefusedAllocations {
public:
    RefusedAllocations();
    ~RefusedAllocations();
    RefusedAllocations(const RefusedAllocations &) = delete;
    RefusedAllocations &operator=(const RefusedAllocations &) = delete;
};

// The one allocation that comes at this place among those that follow, from 1, fails.
class FailingAllocation {
public:
    explicit FailingAllocation(std::size_t place);
    ~FailingAllocation();
    FailingAllocation(const FailingAllocation &) = delete;
    FailingAllocation &operator=(const FailingAllocation &) = delete;

    static bool happened(); // whether there were so many
};
