// Arrays of one value for each compound of a mixture, or for each pair of its compounds.
#pragma once

#include <array>
#include <cmath>
#include <cstddef>

namespace reference {

// The most compounds that a mixture may have: everything the engine works in stands in arrays of
// this size on the stack.
inline constexpr int maximumCompounds = 64;

using CompoundArray = std::array<double, maximumCompounds>; // one value for each compound

// One value for each pair of compounds of a mixture, element i, j at i + size * j, with the mixture's
// own size as stride.
using PairArray = std::array<double, std::size_t{maximumCompounds} * maximumCompounds>;

inline double *columnOf(PairArray &matrix, int size, int j) { return matrix.data() + std::ptrdiff_t{size} * j; }
inline const double *columnOf(const PairArray &matrix, int size, int j)
{
    return matrix.data() + std::ptrdiff_t{size} * j;
}

// How far two compositions are from each other: the sum over |x_i - y_i|.
inline double sumOfDifferences(int size, const CompoundArray &x, const CompoundArray &y)
{
    double sum = 0.0;
    for (int i = 0; i < size; ++i)
        sum += std::fabs(x[i] - y[i]);
    return sum;
}

} // namespace reference
