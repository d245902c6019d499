// The one place where the native automation and COM runtimes get memory.
#pragma once

#include "platform/native/seam.h"

#include <cstdlib>

namespace native {

inline void *allocate(std::size_t size) { return seam::allocations.strikes() ? nullptr : std::malloc(size); }

} // namespace native
