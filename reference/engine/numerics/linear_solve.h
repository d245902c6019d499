// Linear equations in general.
#pragma once

#include "reference/engine/numerics/compound_arrays.h"

namespace reference {

// The equations of two phases: one unknown for each compound, and three more.
inline constexpr int maximumUnknowns = maximumCompounds + 3;
using UnknownArray = std::array<double, maximumUnknowns>;

// A square matrix, element i, j at i + size * j.
struct SquareMatrix {
    int size = 0;
    std::array<double, std::size_t{maximumUnknowns} * maximumUnknowns> elements;

    double &at(int i, int j) { return elements[i + std::size_t{1} * size * j]; }
    double at(int i, int j) const { return elements[i + std::size_t{1} * size * j]; }
};

// Gaussian elimination with the largest element of each column as pivot. The matrix is overwritten; its
// rows should be of like size. False when it is singular.
class Elimination {
public:
    bool factor(SquareMatrix &matrix);
    void solve(UnknownArray &rightSide) const; // in place

private:
    const SquareMatrix *factors = nullptr;
    std::array<int, maximumUnknowns> rowAt;
};

} // namespace reference
