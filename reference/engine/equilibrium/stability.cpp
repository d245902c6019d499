#include "reference/engine/equilibrium/stability.h"

#include "reference/engine/numerics/symmetric_solve.h"
#include "reference/engine/phase/phase_evaluation.h"

#include <algorithm>
#include <cmath>

namespace reference {

namespace {

constexpr double unstable = -1e-11; // a distance below this is no round-off
constexpr double converged = 1e-9;  // largest scaled gradient
constexpr double samePhase = 3e-5;  // sum of the differences between mole numbers of a trial and a phase that is known
constexpr double nearPhase = 3e-3;  // the same, where a step has brought the trial nearer by a good part
constexpr double contraction = 0.3; // of that difference in such a step
constexpr double nearlyOne = 0.03;  // sum of the differences between two phases that are tested as one
constexpr int substitutions = 8;
constexpr int newtonSteps = 40;

} // namespace

// A trial composition with the modified tangent plane distance of Michelsen's eq. 17,
// 1 + sum W_i (ln W_i + ln phi_i(W) - d_i - 1), and its gradient.
struct StabilityTest::Trial {
    CompoundArray lnW;
    CompoundArray W;
    CompoundArray w;        // normalized
    CompoundArray gradient; // ln W_i + ln phi_i - d_i
    PhaseState state;
    double total;
    double distance;
    Root root;

    void findMoles(int n)
    {
        double sum = 0.0; // the compiler keeps no member in a register
        for (int i = 0; i < n; ++i)
            sum += W[i] = std::exp(lnW[i]);
        total = sum;
    }
    // The same where only the composition matters.
    void normalize(int n)
    {
        const double largest = *std::max_element(lnW.begin(), lnW.begin() + n);
        double sum = 0.0;
        for (int i = 0; i < n; ++i)
            sum += W[i] = std::exp(lnW[i] - largest);
        const double shift = largest + std::log(sum);
        const double inverse = 1.0 / sum;
        for (int i = 0; i < n; ++i) {
            lnW[i] -= shift;
            W[i] *= inverse;
        }
        total = 1.0;
    }
    // After either.
    void evaluate(const FlashProblem &problem, const CompoundArray &potential)
    {
        const int n = problem.size();
        const double inverse = 1.0 / total;
        for (int i = 0; i < n; ++i)
            w[i] = W[i] * inverse;
        evaluatePhase(problem.model, problem.isotherm, problem.pressure, w.data(), root, state);
        double sum = 1.0 - total;
        for (int i = 0; i < n; ++i) {
            gradient[i] = lnW[i] + state.lnPhi[i] - potential[i];
            sum += W[i] * gradient[i];
        }
        distance = sum;
    }
    double largestGradient(int n) const
    {
        double largest = 0.0;
        for (int i = 0; i < n; ++i)
            largest = std::max(largest, W[i] * gradient[i] * gradient[i]);
        return std::sqrt(largest);
    }
};

// Next to where a phase is about to split by itself two phases that are nearly one have equal fugacities, and would go
// further apart.
StabilityTest::StabilityTest(const FlashProblem &whole, const PhaseSplit &phases)
    : problem(whole), split(phases),
      isOne(phases.count == 1 ||
            (phases.count == 2 && sumOfDifferences(whole.size(), phases.phases[0].x, phases.phases[1].x) < nearlyOne))
{
    const SplitPhase &first = split.phases[0];
    for (int i = 0; i < problem.size(); ++i)
        potential[i] = std::log(first.x[i]) + first.state.lnPhi[i];
    listStarts();
    arrival = isNearCritical ? 0.0 : nearPhase;
}

// One step of Newton's method in 2 sqrt(W_i), shortened until the distance falls.
bool StabilityTest::newtonStep(Trial &trial) const
{
    const int n = problem.size();
    PairArray byMoles;
    PairTriangle matrix;
    CompoundArray step;
    CompoundArray rootW;
    lnPhiByMoles(problem.model, problem.isotherm, trial.state, byMoles);
    for (int i = 0; i < n; ++i) {
        rootW[i] = std::sqrt(trial.W[i]);
        step[i] = -rootW[i] * trial.gradient[i];
    }
    matrix.size = n;
    for (int j = 0; j < n; ++j) {
        const double *derivatives = columnOf(byMoles, n, j);
        double *column = matrix.column(j);
        for (int i = j; i < n; ++i)
            column[i] = rootW[i] * rootW[j] / trial.total * derivatives[i];
        column[j] += 1.0;
    }
    solveDescent(matrix, step.data());

    const Trial before = trial;
    double length = 1.0;
    for (int i = 0; i < n; ++i) // no mole number shall fall to less than a tenth at once
        if (rootW[i] + 0.5 * length * step[i] < 0.3 * rootW[i])
            length = -1.4 * rootW[i] / step[i];
    for (int halving = 0; halving < 12; ++halving, length *= 0.5) {
        for (int i = 0; i < n; ++i)
            trial.lnW[i] = 2.0 * std::log(rootW[i] + 0.5 * length * step[i]);
        trial.findMoles(n);
        trial.evaluate(problem, potential);
        if (trial.distance < before.distance)
            return true;
    }
    trial = before;
    return false;
}

// The sum of the differences between mole numbers of a trial and the nearest of the phases that are there and have
// nearly its density; one where there is none.
double StabilityTest::differenceFromKnown(const CompoundArray &W, const PhaseState &state) const
{
    double least = 1.0;
    for (int k = 0; k < split.count; ++k) {
        const SplitPhase &phase = split.phases[k];
        if (std::fabs(state.Z - phase.state.Z) > 0.1 * phase.state.Z)
            continue;
        least = std::min(least, sumOfDifferences(problem.size(), W, phase.x));
    }
    return least;
}

bool StabilityTest::descend(TrialPhase &found) const
{
    const int n = problem.size();
    Trial trial;
    trial.root = found.root;
    trial.lnW = found.lnW;
    trial.normalize(n);
    trial.evaluate(problem, potential);
    double difference = differenceFromKnown(trial.W, trial.state);
    if (difference < samePhase)
        return false;
    for (int step = 0; step < substitutions + newtonSteps; ++step) {
        // More steps than the first proof of instability takes make a better start for the split.
        if (step >= substitutions / 2 && trial.distance < -1e-4)
            break;
        if (trial.largestGradient(n) < converged)
            break;
        const double before = difference;
        const auto isArriving = [&] { // at a phase that is there already
            difference = differenceFromKnown(trial.W, trial.state);
            return difference < samePhase || (difference < arrival && difference < contraction * before);
        };
        if (step < substitutions || !newtonStep(trial)) {
            if (step >= substitutions && trial.largestGradient(n) < 1e-6)
                break; // the distance cannot fall any more: round-off
            for (int i = 0; i < n; ++i)
                trial.lnW[i] = potential[i] - trial.state.lnPhi[i];
            trial.findMoles(n);
            if (isArriving()) // by the density of the trial before, which is as good as its own
                return false;
            trial.evaluate(problem, potential);
        } else if (isArriving()) {
            return false;
        }
    }
    found.lnW = trial.lnW;
    found.distance = trial.distance;
    const bool isAllowed = problem.vaporAllowed || problem.looksLiquid(trial.state);
    return isAllowed && trial.distance < unstable && differenceFromKnown(trial.W, trial.state) > samePhase;
}

bool StabilityTest::findNext(TrialPhase &trial)
{
    while (nextStart < startCount) {
        setStart(starts[nextStart++], trial);
        if (descend(trial))
            return true;
    }
    return false;
}

} // namespace reference
