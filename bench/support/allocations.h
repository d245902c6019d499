// The allocations of this program by operator new, which is how the system allocates; the arrays
// and strings of the COM contract come from elsewhere.
#pragma once

#include <cstddef>

std::size_t AllocationCount();
