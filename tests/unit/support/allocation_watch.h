// What tests know and decide of the program's calls of operator new.
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
