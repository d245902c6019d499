#include "reference/engine/equilibrium/phase_amounts.h"

#include "reference/engine/numerics/symmetric_solve.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace reference {

namespace {

struct AmountSearch {
    int n;
    int count;
    const double *z;
    const CompoundArray *E;
    PhaseArray amounts;
    double value;
    PhaseArray gradient;
    std::array<PhaseArray, maximumPhases> second; // its lower triangle

    void evaluate()
    {
        value = 0.0;
        for (int k = 0; k < count; ++k) {
            value += amounts[k];
            gradient[k] = 1.0;
            second[k].fill(0.0);
        }
        for (int i = 0; i < n; ++i) {
            double sum = 0.0;
            for (int k = 0; k < count; ++k)
                sum += amounts[k] * E[k][i];
            value -= z[i] * std::log(sum);
            const double inverse = 1.0 / sum;
            for (int k = 0; k < count; ++k) {
                const double x = z[i] * E[k][i] * inverse;
                gradient[k] -= x;
                for (int m = 0; m <= k; ++m)
                    second[k][m] += x * E[m][i] * inverse;
            }
        }
    }

    // The step to the least value of the quadratic that has the same derivatives, for the phases that are there.
    PhaseArray step(const std::array<bool, maximumPhases> &there) const
    {
        std::array<int, maximumPhases> index{};
        LowerTriangle<maximumPhases> matrix;
        for (int k = 0; k < count; ++k)
            if (there[k])
                index[matrix.size++] = k;
        PhaseArray right{};
        PhaseArray scale{};
        for (int a = 0; a < matrix.size; ++a)
            scale[a] = 1.0 / std::sqrt(second[index[a]][index[a]]);
        for (int b = 0; b < matrix.size; ++b) {
            for (int a = b; a < matrix.size; ++a)
                matrix.column(b)[a] = scale[a] * scale[b] * second[index[a]][index[b]];
            matrix.column(b)[b] *= 1.0 + 1e-15;
            right[b] = -scale[b] * gradient[index[b]];
        }
        solveDescent(matrix, right.data());
        PhaseArray result{};
        for (int a = 0; a < matrix.size; ++a)
            result[index[a]] = scale[a] * right[a];
        return result;
    }
};

} // namespace

bool solvePhaseAmounts(int n, int count, const double *z, const CompoundArray *E, PhaseArray &amounts)
{
    AmountSearch now{n, count, z, E, amounts, 0.0, {}, {}};
    std::array<bool, maximumPhases> there{};
    for (int k = 0; k < count; ++k)
        there[k] = amounts[k] > 0.0;
    now.evaluate();
    bool settled = false;
    for (int round = 0; round < 60 && !settled; ++round) {
        const PhaseArray change = now.step(there);
        double length = 1.0;
        int leaving = -1;
        for (int k = 0; k < count; ++k)
            if (there[k] && now.amounts[k] + length * change[k] < 0.0) {
                length = -now.amounts[k] / change[k];
                leaving = k;
            }
        AmountSearch next = now;
        bool fell = false;
        for (int halving = 0; halving < 20 && !fell; ++halving) {
            for (int k = 0; k < count; ++k)
                next.amounts[k] = k == leaving ? 0.0 : now.amounts[k] + length * change[k];
            next.evaluate();
            fell = next.value <= now.value + 1e-15 * (1.0 + std::fabs(now.value));
            if (!fell) {
                length *= 0.5;
                leaving = -1;
            }
        }
        if (!fell)
            return false;
        settled = leaving < 0;
        for (int k = 0; k < count; ++k)
            settled = settled && std::fabs(change[k]) <= std::max(1e-15, 1e-14 * now.amounts[k]);
        now = next;
        if (leaving >= 0)
            there[leaving] = false;
        for (int k = 0; settled && k < count; ++k)
            if (!there[k] && now.gradient[k] < -1e-13) {
                there[k] = true; // it comes back
                settled = false;
            }
    }
    if (!settled)
        return false;
    const auto end = now.amounts.begin() + count;
    double &largest = *std::max_element(now.amounts.begin(), end);
    const double others = std::accumulate(now.amounts.begin(), end, -largest);
    largest = 1.0 - others;
    amounts = now.amounts;
    return true;
}

} // namespace reference
