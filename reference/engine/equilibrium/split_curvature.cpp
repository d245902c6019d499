#include "reference/engine/equilibrium/split_curvature.h"

#include "reference/engine/phase/phase_evaluation.h"

#include <algorithm>
#include <cmath>

namespace reference {

SplitCurvature::SplitCurvature(const MixtureModel &model, const Isotherm &isotherm, int count, const PhaseView *phases)
{
    const int n = model.size;
    for (int i = 0; i < n; ++i) {
        int home = 0;
        const auto moles = [&](int k) { return phases[k].amount * (*phases[k].x)[i]; };
        for (int k = 1; count > 2 && k < count; ++k)
            if (moles(k) > moles(home))
                home = k;
        for (int k = 0; k < count; ++k)
            if (k != home)
                moves[static_cast<std::size_t>(matrix.size++)] = {
                    i, k, home, std::sqrt(moles(k)) * std::sqrt(moles(home) / (moles(k) + moles(home)))};
    }

    std::fill_n(matrix.elements.begin(), matrix.size * (matrix.size + 1) / 2, 0.0);
    PairArray byMoles;
    for (int p = 0; p < count; ++p) {
        lnPhiByMoles(model, isotherm, *phases[p].state, byMoles);
        const double inverse = 1.0 / phases[p].amount;
        // What one mole of the move brings into this phase.
        const auto share = [p](const Move &move) { return move.to == p ? 1.0 : move.from == p ? -1.0 : 0.0; };
        for (int b = 0; b < matrix.size; ++b) {
            const double moved = share(move(b)) * move(b).scale;
            if (moved == 0.0)
                continue;
            double *column = matrix.column(b);
            const double *derivatives = columnOf(byMoles, n, move(b).compound);
            for (int a = b; a < matrix.size; ++a) {
                const Move &other = move(a);
                const double factor = share(other) * other.scale * moved * inverse;
                column[a] += factor * (derivatives[other.compound] - 1.0);
                if (other.compound == move(b).compound)
                    column[a] += factor / (*phases[p].x)[other.compound];
            }
        }
    }
}

void SplitCurvature::solve(MoveArray &rightSide)
{
    if (!factored)
        factorDescent(matrix);
    factored = true;
    solveFactored(matrix, rightSide.data());
}

} // namespace reference
