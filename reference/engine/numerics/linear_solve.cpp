#include "reference/engine/numerics/linear_solve.h"

#include <cmath>
#include <utility>

namespace reference {

bool Elimination::factor(SquareMatrix &matrix)
{
    const int n = matrix.size;
    factors = &matrix;
    for (int j = 0; j < n; ++j) {
        int pivot = j;
        for (int i = j + 1; i < n; ++i)
            if (std::fabs(matrix.at(i, j)) > std::fabs(matrix.at(pivot, j)))
                pivot = i;
        rowAt[j] = pivot;
        if (!(std::fabs(matrix.at(pivot, j)) > 1e-300))
            return false;
        if (pivot != j)
            for (int k = 0; k < n; ++k)
                std::swap(matrix.at(j, k), matrix.at(pivot, k));
        const double inverse = 1.0 / matrix.at(j, j);
        for (int i = j + 1; i < n; ++i)
            matrix.at(i, j) *= inverse;
        for (int k = j + 1; k < n; ++k) {
            const double factor = matrix.at(j, k);
            if (factor == 0.0)
                continue;
            for (int i = j + 1; i < n; ++i)
                matrix.at(i, k) -= factor * matrix.at(i, j);
        }
    }
    return true;
}

void Elimination::solve(UnknownArray &rightSide) const
{
    const int n = factors->size;
    for (int j = 0; j < n; ++j)
        std::swap(rightSide[j], rightSide[rowAt[j]]);
    for (int j = 0; j < n; ++j)
        for (int i = j + 1; i < n; ++i)
            rightSide[i] -= factors->at(i, j) * rightSide[j];
    for (int j = n - 1; j >= 0; --j) {
        rightSide[j] /= factors->at(j, j);
        for (int i = 0; i < j; ++i)
            rightSide[i] -= factors->at(i, j) * rightSide[j];
    }
}

} // namespace reference
