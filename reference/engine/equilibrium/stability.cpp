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
constexpr double slack = 0.7;       // of logarithms of mole numbers
constexpr double wideSlack = 6.0;   // the same next to a critical point, where many a phase is far from pure
constexpr int substitutions = 8;
constexpr int newtonSteps = 40;

constexpr double never = -1e300;

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
}

// Pure compounds that would form a phase at once come first: they save the rest.
void StabilityTest::listStarts()
{
    const auto add = [&](Start::Kind kind, int one, int other = 0) { starts[startCount++] = {kind, one, other}; };
    CompoundArray gain; // of the start's compound: what its phase would have of it, as logarithm
    const auto addPure = [&](bool forming) {
        const int from = startCount;
        for (int i = 0; i < problem.size(); ++i)
            if ((gain[i] > 0.0) == forming && gain[i] > never)
                add(Start::Kind::pure, i);
        std::sort(starts.begin() + from, starts.begin() + startCount,
                  [&](const Start &a, const Start &b) { return gain[a.one] > gain[b.one]; });
    };
    const bool isCritical = isNearCritical();
    const double reach = isOne && isCritical ? wideSlack : slack;
    arrival = isCritical ? 0.0 : nearPhase;
    for (int i = 0; i < problem.size(); ++i)
        gain[i] = setPureStart(i, reach, pureStarts[i]) ? pureStarts[i][i] : never;
    addPure(true);
    bool hasVapor = false;
    for (int k = 0; k < split.count; ++k)
        hasVapor = hasVapor || !problem.looksLiquid(split.phases[k].state);
    if (problem.vaporAllowed && (isOne || !hasVapor))
        add(Start::Kind::wilsonVapor, 0);
    if (isOne)
        add(Start::Kind::wilsonLiquid, 0);
    for (int k = 1; k < split.count; ++k)
        for (int m = 0; m < k; ++m)
            add(Start::Kind::mean, m, k);
    for (int k = 0; k < split.count && isCritical; ++k)
        for (int m = 0; m < split.count; ++m)
            if (m != k)
                add(Start::Kind::lean, m, k);
    addPure(false);
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

void StabilityTest::setStart(const Start &at, TrialPhase &trial) const
{
    const int n = problem.size();
    const auto byWilson = [&](double sign) {
        for (int i = 0; i < n; ++i)
            trial.lnW[i] =
                std::log(problem.z[i]) +
                sign * wilsonLogRatio(problem.model.compounds[i], problem.isotherm.temperature, problem.pressure);
    };
    switch (at.kind) {
    case Start::Kind::wilsonVapor:
        trial.root = Root::vapor;
        return byWilson(1.0);
    case Start::Kind::wilsonLiquid:
        trial.root = Root::liquid;
        return byWilson(-1.0);
    case Start::Kind::mean: // between two phases, a third one can hide that neither leads to
        trial.root = problem.bestRoot();
        for (int i = 0; i < n; ++i)
            trial.lnW[i] = std::log(split.phases[at.one].x[i] + split.phases[at.other].x[i]);
        return;
    case Start::Kind::lean: // some of another phase in one that is about to split
        trial.root = problem.bestRoot();
        for (int i = 0; i < n; ++i)
            trial.lnW[i] = std::log(0.95 * split.phases[at.one].x[i] + 0.05 * split.phases[at.other].x[i]);
        return;
    case Start::Kind::pure:
        trial.root = Root::liquid;
        std::copy_n(pureStarts[at.one].begin(), n, trial.lnW.begin());
    }
}

// What a phase of one compound alone would become in one step of substitution. False if it would take up more of
// another compound than of its own, by `reach` as logarithm, at the chemical potentials there are: the search would not
// stay near it.
bool StabilityTest::setPureStart(int pure, double reach, CompoundArray &lnW) const
{
    if (problem.model.isIdeal())
        return false; // its liquids never split
    CompoundArray lnPhi;
    evaluateSolvent(problem.model, problem.isotherm, problem.pressure, pure, lnPhi);
    const double most = potential[pure] - lnPhi[pure] + reach;
    for (int i = 0; i < problem.size(); ++i) {
        lnW[i] = potential[i] - lnPhi[i];
        if (lnW[i] > most)
            return false;
    }
    return true;
}

// Whether a phase is neither like a gas nor like a liquid: by its volume over its covolume, about four at a critical
// point. Two phases of the same kind can be near to such a one each.
bool StabilityTest::isNearCritical() const
{
    if (!problem.model.isCubic())
        return false;
    const auto isMiddling = [&](const SplitPhase &phase) {
        const double volume = phase.state.Z / phase.state.B;
        return !phase.state.severalRoots && volume > (isOne ? 1.6 : 2.0) && volume < (isOne ? 8.0 : 6.0);
    };
    return std::any_of(split.phases.begin(), split.phases.begin() + split.count, isMiddling);
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
