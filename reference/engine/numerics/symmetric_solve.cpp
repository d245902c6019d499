#include "reference/engine/numerics/symmetric_solve.h"

#include <cmath>

namespace reference {

void factorDescent(int n, double *lowerTriangle)
{
    constexpr double smallestPivot = 1e-10; // the matrices are scaled: their diagonals are near one

    // matrix = L D L^T, with D on the diagonal and L below it. `column` is such that element i is at i.
    double *column = lowerTriangle;
    for (int j = 0; j < n; ++j) {
        double pivot = column[j];
        if (!(pivot > smallestPivot))
            pivot = column[j] = std::fmax(std::fabs(pivot), 1e-3);
        double *later = column;
        for (int k = j + 1; k < n; ++k) {
            later += n - k;
            const double factor = column[k] / pivot;
            for (int i = k; i < n; ++i)
                later[i] -= factor * column[i];
        }
        for (int i = j + 1; i < n; ++i)
            column[i] /= pivot;
        column += n - j - 1;
    }
}

void solveFactored(int n, const double *factors, double *rightSide)
{
    const double *column = factors;
    for (int j = 0; j < n; ++j) {
        for (int i = j + 1; i < n; ++i)
            rightSide[i] -= column[i] * rightSide[j];
        column += n - j - 1;
    }
    for (int j = n - 1; j >= 0; --j) {
        column -= n - j - 1;
        double value = rightSide[j] / column[j];
        for (int i = j + 1; i < n; ++i)
            value -= column[i] * rightSide[i];
        rightSide[j] = value;
    }
}

} // namespace reference
