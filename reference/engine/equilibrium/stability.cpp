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
constexpr double slack = 0.7;       // of logarithms of mole numbers
constexpr int substitutions = 8;
constexpr int newtonSteps = 40;

// Between two of these phases, a third one can hide that neither of them leads to.
constexpr struct {
    int one;
    int other;
} phasePairs[] = {{0, 1}, {0, 2}, {1, 2}, {0, 3}, {1, 3}, {2, 3}};
constexpr int mostPairs = maximumPhases * (maximumPhases - 1) / 2;
static_assert(std::size(phasePairs) == mostPairs);

void normalize(int n, CompoundArray &lnW)
{
    const double largest = *std::max_element(lnW.begin(), lnW.begin() + n);
    double sum = 0.0;
    for (int i = 0; i < n; ++i)
        sum += std::exp(lnW[i] - largest);
    for (int i = 0; i < n; ++i)
        lnW[i] -= largest + std::log(sum);
}

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
    double squaredGradient; // scaled
    Root root;

    void evaluate(const FlashProblem &problem, const CompoundArray &potential)
    {
        const int n = problem.size();
        total = 0.0;
        for (int i = 0; i < n; ++i) {
            W[i] = std::exp(lnW[i]);
            total += W[i];
        }
        for (int i = 0; i < n; ++i)
            w[i] = W[i] / total;
        evaluatePhase(problem.model, problem.isotherm, problem.pressure, w.data(), root, state);
        distance = 1.0 - total;
        squaredGradient = 0.0;
        for (int i = 0; i < n; ++i) {
            gradient[i] = lnW[i] + state.lnPhi[i] - potential[i];
            distance += W[i] * gradient[i];
            squaredGradient += W[i] * gradient[i] * gradient[i];
        }
    }
    double largestGradient(int n) const
    {
        double largest = 0.0;
        for (int i = 0; i < n; ++i)
            largest = std::max(largest, std::sqrt(W[i]) * std::fabs(gradient[i]));
        return largest;
    }
};

StabilityTest::StabilityTest(const FlashProblem &whole, const PhaseSplit &phases) : problem(whole), split(phases)
{
    const SplitPhase &first = split.phases[0];
    for (int i = 0; i < problem.size(); ++i)
        potential[i] = std::log(first.x[i]) + first.state.lnPhi[i];
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
        trial.evaluate(problem, potential);
        if (trial.distance < before.distance)
            return true;
    }
    trial = before;
    return false;
}

// Whether a trial has come to one of the phases that are there.
bool StabilityTest::isKnown(const CompoundArray &W, const PhaseState &state) const
{
    for (int k = 0; k < split.count; ++k) {
        const SplitPhase &phase = split.phases[k];
        if (std::fabs(state.Z - phase.state.Z) > 0.1 * phase.state.Z)
            continue;
        double difference = 0.0;
        for (int i = 0; i < problem.size(); ++i)
            difference += std::fabs(W[i] - phase.x[i]);
        if (difference < samePhase)
            return true;
    }
    return false;
}

bool StabilityTest::descend(TrialPhase &start_) const
{
    const int n = problem.size();
    Trial trial;
    trial.root = start_.root;
    trial.lnW = start_.lnW;
    normalize(n, trial.lnW); // only the composition matters at first
    trial.evaluate(problem, potential);
    for (int step = 0; step < substitutions + newtonSteps; ++step) {
        // A few steps more than the first proof of instability take make a better start for the split.
        if (step >= substitutions / 2 && trial.distance < -1e-4)
            break;
        if (isKnown(trial.W, trial.state))
            return false;
        if (trial.largestGradient(n) < converged)
            break;
        if (step < substitutions || !newtonStep(trial)) {
            if (step >= substitutions && trial.largestGradient(n) < 1e-6)
                break; // the distance cannot fall any more: round-off
            for (int i = 0; i < n; ++i)
                trial.lnW[i] = potential[i] - trial.state.lnPhi[i];
            trial.evaluate(problem, potential);
        }
    }
    start_.lnW = trial.lnW;
    start_.distance = trial.distance;
    return trial.distance < unstable && !isKnown(trial.W, trial.state);
}

// False when there is no such start.
bool StabilityTest::setStart(int index, TrialPhase &trial) const
{
    const int n = problem.size();
    const auto byWilson = [&](double sign) {
        for (int i = 0; i < n; ++i)
            trial.lnW[i] =
                std::log(problem.z[i]) +
                sign * wilsonLogRatio(problem.model.compounds[i], problem.isotherm.temperature, problem.pressure);
    };
    if (index == 0) {
        trial.root = Root::vapor;
        byWilson(1.0);
        return problem.vaporAllowed;
    }
    if (index == 1) {
        trial.root = Root::liquid;
        byWilson(-1.0);
        return true;
    }
    if (index < 2 + mostPairs) {
        const auto [one, other] = phasePairs[index - 2];
        if (other >= split.count)
            return false;
        trial.root = problem.bestRoot();
        for (int i = 0; i < n; ++i)
            trial.lnW[i] = std::log(split.phases[one].x[i] + split.phases[other].x[i]);
        return true;
    }
    const int pure = index - 2 - mostPairs;
    trial.root = Root::liquid;
    if (!staysPure(pure))
        return false;
    for (int i = 0; i < n; ++i)
        trial.lnW[i] = std::log(0.05 * problem.z[i] + (i == pure ? 0.95 : 0.0));
    return true;
}

// Whether a phase of one compound alone would take up more of that than of any other, at the chemical potentials there
// are: otherwise the search would not stay near it.
bool StabilityTest::staysPure(int pure) const
{
    if (problem.model.isIdeal())
        return false; // its liquids never split
    CompoundArray lnPhi;
    evaluateSolvent(problem.model, problem.isotherm, problem.pressure, pure, lnPhi);
    const double own = potential[pure] - lnPhi[pure];
    for (int i = 0; i < problem.size(); ++i)
        if (potential[i] - lnPhi[i] > own + slack)
            return false;
    return true;
}

bool StabilityTest::findNext(TrialPhase &trial)
{
    for (; start < 2 + mostPairs + problem.size(); ++start)
        if (setStart(start, trial) && descend(trial)) {
            ++start;
            return true;
        }
    return false;
}

} // namespace reference
