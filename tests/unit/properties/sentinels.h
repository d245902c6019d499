// Numbers that the tests of conversions look for.
#pragma once

#include <limits>

// The number by which a package may say that it has none.
inline constexpr double minusLargest = -std::numeric_limits<double>::max();

// What stands where a conversion must not write.
inline constexpr double untouched = -77;
