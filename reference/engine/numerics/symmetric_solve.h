// Linear equations of a minimization.
#pragma once

#include "reference/engine/numerics/compound_arrays.h"

namespace reference {

// The lower triangle of a symmetric matrix with room for `most` rows, column by column without a gap.
template <int most> struct LowerTriangle {
    int size = 0;
    std::array<double, std::size_t{most} * (most + 1) / 2> elements;

    // Element i of column j, for i >= j, is at column(j)[i].
    double *column(int j) { return elements.data() + std::ptrdiff_t{j} * (2 * size - j - 1) / 2; }
    const double *column(int j) const { return elements.data() + std::ptrdiff_t{j} * (2 * size - j - 1) / 2; }
};

using PairTriangle = LowerTriangle<maximumCompounds>;

// Takes a matrix apart, in place, for solveFactored. A pivot that shows the matrix not to be positive definite is
// raised, so that the solution is always a direction in which a function with this second derivative and minus the
// right side as gradient falls.
void factorDescent(int size, double *lowerTriangle);

// Solves matrix * solution = right side in place.
void solveFactored(int size, const double *factors, double *rightSide);

template <int most> void factorDescent(LowerTriangle<most> &matrix)
{
    factorDescent(matrix.size, matrix.elements.data());
}

template <int most> void solveFactored(const LowerTriangle<most> &factors, double *rightSide)
{
    solveFactored(factors.size, factors.elements.data(), rightSide);
}

// Both at once.
template <int most> void solveDescent(LowerTriangle<most> &matrix, double *rightSide)
{
    factorDescent(matrix);
    solveFactored(matrix, rightSide);
}

} // namespace reference
