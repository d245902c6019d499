// What a process that goes on for long must not gather.
#pragma once

#include <cstddef>

struct ProcessSize {
    std::size_t memory = 0;  // bytes of its own, as the system counts them
    std::size_t handles = 0; // to files, keys, ...: how many, or how far their numbers go
};

ProcessSize CurrentProcessSize();
