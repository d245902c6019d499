// The doubles that stand for "no value".
#pragma once

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

// What the system itself writes where a value is not available.
inline constexpr double QuietNaN = std::bit_cast<double>(std::uint64_t{0x7FF8000000000000});

// True for a NaN and for exactly minus the largest double, which CAPE-OPEN callers may hand in as
// an undefined value.
inline bool IsMissing(double value) { return std::isnan(value) || value == -std::numeric_limits<double>::max(); }
