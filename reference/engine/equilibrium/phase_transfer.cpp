#include "reference/engine/equilibrium/phase_transfer.h"

#include "reference/engine/phase/phase_evaluation.h"

#include <cmath>

namespace reference {

PhaseTransfer::PhaseTransfer(const MixtureModel &model, const Isotherm &isotherm, const PhaseAmounts &amounts,
                             const double *z, const PhaseState &vapor, const CompoundArray &y, const PhaseState &liquid,
                             const CompoundArray &x)
{
    const int n = model.size;
    PairArray liquidMatrix;
    lnPhiByMoles(model, isotherm, vapor, matrix);
    lnPhiByMoles(model, isotherm, liquid, liquidMatrix);
    for (int i = 0; i < n; ++i)
        scale[i] = std::sqrt(x[i]) * std::sqrt(y[i] / z[i]);
    for (int j = 0; j < n; ++j) {
        double *column = columnOf(matrix, n, j);
        const double *liquidColumn = columnOf(liquidMatrix, n, j);
        for (int i = j; i < n; ++i)
            column[i] = scale[i] * scale[j] * (amounts.liquid * column[i] + amounts.vapor * liquidColumn[i] - 1.0);
        column[j] += 1.0;
    }
}

} // namespace reference
