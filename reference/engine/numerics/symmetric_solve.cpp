#include "reference/engine/numerics/symmetric_solve.h"

#include <cmath>

namespace reference {

void factorDescent(int n, PairArray &matrix)
{
    constexpr double smallestPivot = 1e-10; // the matrices are scaled: their diagonals are near one

    // matrix = L D L^T, with D on the diagonal and L below it.
    for (int j = 0; j < n; ++j) {
        double *column = columnOf(matrix, n, j);
        double pivot = column[j];
        if (!(pivot > smallestPivot))
            pivot = column[j] = std::fmax(std::fabs(pivot), 1e-3);
        for (int k = j + 1; k < n; ++k) {
            const double factor = column[k] / pivot;
            double *later = columnOf(matrix, n, k);
            for (int i = k; i < n; ++i)
                later[i] -= factor * column[i];
        }
        for (int i = j + 1; i < n; ++i)
            column[i] /= pivot;
    }
}

void solveFactored(int n, const PairArray &factors, CompoundArray &rightSide)
{
    for (int j = 0; j < n; ++j)
        for (int i = j + 1; i < n; ++i)
            rightSide[i] -= factors[i + n * j] * rightSide[j];
    for (int j = 0; j < n; ++j)
        rightSide[j] /= factors[j + n * j];
    for (int j = n - 1; j >= 0; --j)
        for (int i = j + 1; i < n; ++i)
            rightSide[j] -= factors[i + n * j] * rightSide[i];
}

void solveDescent(int n, PairArray &matrix, CompoundArray &rightSide)
{
    factorDescent(n, matrix);
    solveFactored(n, matrix, rightSide);
}

} // namespace reference
