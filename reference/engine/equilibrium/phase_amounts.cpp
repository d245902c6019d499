#include "reference/engine/equilibrium/phase_amounts.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace reference {

namespace {

constexpr double balanced = 1e-13; // what sums of mole fractions may miss one by

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
        int size = 0;
        for (int k = 0; k < count; ++k)
            if (there[k])
                index[size++] = k;
        PhaseArray right{};
        PhaseArray scale{};
        std::array<PhaseArray, maximumPhases> matrix{};
        for (int a = 0; a < size; ++a) {
            scale[a] = 1.0 / std::sqrt(second[index[a]][index[a]]);
            right[a] = -scale[a] * gradient[index[a]];
            for (int b = 0; b <= a; ++b)
                matrix[a][b] = scale[a] * scale[b] * second[index[a]][index[b]];
        }
        // With as many phases as compounds, or more, the function can be flat: then a long step goes to where a phase
        // ends.
        constexpr double smallestPivot = 1e-14;
        for (int j = 0; j < size; ++j) {
            matrix[j][j] = std::max(matrix[j][j], smallestPivot);
            for (int a = j + 1; a < size; ++a) {
                const double factor = matrix[a][j] / matrix[j][j];
                for (int b = j + 1; b <= a; ++b)
                    matrix[a][b] -= factor * matrix[b][j];
                right[a] -= factor * right[j];
            }
        }
        for (int j = size - 1; j >= 0; --j) {
            for (int a = j + 1; a < size; ++a)
                right[j] -= matrix[a][j] * right[a];
            right[j] /= matrix[j][j];
        }
        PhaseArray result{};
        for (int a = 0; a < size; ++a)
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
            break;
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
    // Amounts of phases that are nearly one have few digits; it will do that their fractions sum to one.
    for (int k = 0; k < count && !settled; ++k)
        if (there[k] && !(std::fabs(now.gradient[k]) < balanced))
            return false;
    const auto end = now.amounts.begin() + count;
    double &largest = *std::max_element(now.amounts.begin(), end);
    const double others = std::accumulate(now.amounts.begin(), end, -largest);
    largest = 1.0 - others;
    amounts = now.amounts;
    return true;
}

} // namespace reference
