#include "reference/engine/equilibrium/phase_split.h"

#include "reference/engine/equilibrium/rachford_rice.h"
#include "reference/engine/phase/phase_evaluation.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace reference {

namespace {

// The amounts and compositions of two phases.
bool divideInTwo(const FlashProblem &problem, std::array<SplitPhase, maximumPhases> &phases)
{
    const int n = problem.size();
    CompoundArray K{};
    for (int i = 0; i < n; ++i) {
        const double limit = problem.largestLnK[i];
        const double lnK = std::clamp(phases[1].lnE[i] - phases[0].lnE[i], -limit, limit);
        phases[0].lnE[i] = 0.0;
        phases[1].lnE[i] = lnK;
        K[i] = std::exp(lnK);
    }
    PhaseAmounts amounts;
    if (!solveRachfordRice(n, problem.z, K.data(), amounts))
        return false;
    phases[0].amount = amounts.liquid;
    phases[1].amount = amounts.vapor;
    for (int i = 0; i < n; ++i) {
        phases[0].x[i] = problem.z[i] / (amounts.liquid + amounts.vapor * K[i]);
        phases[1].x[i] = K[i] * phases[0].x[i];
    }
    return true;
}

} // namespace

void PhaseSplit::setOnePhase(const FlashProblem &problem)
{
    count = 1;
    SplitPhase &only = phases[0];
    only.state = problem.feed;
    only.root = problem.vaporAllowed && only.state.vaporRoot ? Root::vapor : Root::liquid;
    followDensity(problem);
    only.amount = 1.0;
    for (int i = 0; i < problem.size(); ++i) {
        only.x[i] = problem.z[i];
        only.lnE[i] = 0.0;
    }
    largestLnRatio = 0.0;
    gibbs = problem.gibbs;
}

void PhaseSplit::followDensity(const FlashProblem &problem)
{
    for (int k = 0; k < count; ++k)
        if (!phases[k].state.severalRoots && problem.vaporAllowed)
            phases[k].root = problem.looksLiquid(phases[k].state) ? Root::liquid : Root::vapor;
}

void PhaseSplit::remove(int phase)
{
    for (int k = phase + 1; k < count; ++k)
        phases[k - 1] = phases[k];
    --count;
}

bool PhaseSplit::update(const FlashProblem &problem)
{
    if (!(count == 2 ? divideInTwo(problem, phases) : divide(problem)))
        return false;
    for (int k = 0; k < count; ++k)
        evaluatePhase(problem.model, problem.isotherm, problem.pressure, phases[k].x.data(), phases[k].root,
                      phases[k].state);
    largestLnRatio = 0.0;
    for (int k = 1; k < count; ++k)
        for (int i = 0; i < problem.size(); ++i)
            largestLnRatio = std::max(largestLnRatio, std::fabs(lnFugacityRatio(k, i)));
    return true;
}

bool PhaseSplit::divide(const FlashProblem &problem)
{
    const int n = problem.size();
    CompoundArray E[maximumPhases];
    for (int i = 0; i < n; ++i) {
        double highest = phases[0].lnE[i];
        for (int k = 1; k < count; ++k)
            highest = std::max(highest, phases[k].lnE[i]);
        for (int k = 0; k < count; ++k) {
            phases[k].lnE[i] = std::max(phases[k].lnE[i] - highest, -problem.largestLnK[i]);
            E[k][i] = std::exp(phases[k].lnE[i]);
        }
    }
    PhaseArray amounts{};
    for (int k = 0; k < count; ++k)
        amounts[k] = phases[k].amount;
    if (!solvePhaseAmounts(n, count, problem.z, E, amounts))
        return false;
    for (int i = 0; i < n; ++i) {
        double sum = 0.0;
        for (int k = 0; k < count; ++k)
            sum += amounts[k] * E[k][i];
        for (int k = 0; k < count; ++k)
            phases[k].x[i] = problem.z[i] * E[k][i] / sum;
    }
    for (int k = count - 1; k >= 0; --k) {
        // Where an amount has few digits the fractions of what there is so little of would miss one.
        CompoundArray &x = phases[k].x;
        const double inverse = 1.0 / std::accumulate(x.begin(), x.begin() + n, 0.0);
        for (int i = 0; i < n; ++i)
            x[i] *= inverse;
        phases[k].amount = amounts[k];
        if (!(amounts[k] > 0.0))
            remove(k);
    }
    return count > 1;
}

void PhaseSplit::findGibbs(const FlashProblem &problem)
{
    gibbs = 0.0;
    for (int i = 0; i < problem.size(); ++i) {
        gibbs += problem.z[i] * (std::log(phases[0].x[i]) + phases[0].state.lnPhi[i]);
        for (int k = 1; k < count; ++k)
            gibbs += phases[k].amount * phases[k].x[i] * lnFugacityRatio(k, i);
    }
}

} // namespace reference
