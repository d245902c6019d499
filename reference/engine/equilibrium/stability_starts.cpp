// Where the search for another phase starts.
#include "reference/engine/equilibrium/phase_names.h"
#include "reference/engine/equilibrium/stability.h"
#include "reference/engine/phase/phase_evaluation.h"

#include <algorithm>
#include <cmath>

namespace reference {

namespace {

constexpr double slack = 0.7;       // of logarithms of mole numbers
constexpr double wideSlack = 6.0;   // the same next to a critical point, where many a phase is far from pure
constexpr double immiscible = 8.0;  // the sum of both ln gamma at infinite dilution from which two compounds are that
constexpr double attracting = -1.0; // the same for those that like each other better than themselves
constexpr double never = -1e300;

} // namespace

void StabilityTest::add(Start::Kind kind, int one, int other) { starts[startCount++] = {kind, one, other}; }

void StabilityTest::listStarts()
{
    const int n = problem.size();
    isNearCritical = std::any_of(split.phases.begin(), split.phases.begin() + split.count,
                                 [&](const SplitPhase &phase) { return isMiddling(phase); });
    const bool haveLiquids = !problem.model.isIdeal(); // that split
    for (int i = 0; i < n && haveLiquids; ++i)
        setPureStart(i, pureStarts[i]);
    // Pure compounds that would form a phase at once come first: they save the rest.
    CompoundArray gain; // of the start's compound: what its phase would have of it, as logarithm
    for (int i = 0; i < n; ++i)
        gain[i] = haveLiquids && !isCovered(i) ? pureStarts[i][i] : never;
    const auto addPure = [&](bool forming) {
        const int from = startCount;
        for (int i = 0; i < n; ++i)
            if ((gain[i] > 0.0) == forming && gain[i] > never)
                add(Start::Kind::pure, i);
        std::sort(starts.begin() + from, starts.begin() + startCount,
                  [&](const Start &a, const Start &b) { return gain[a.one] > gain[b.one]; });
    };
    addPure(true);
    const auto isGas = [&](const SplitPhase &phase) { return !problem.looksLiquid(phase.state); };
    const bool hasVapor = std::any_of(split.phases.begin(), split.phases.begin() + split.count, isGas);
    if (problem.vaporAllowed && (isOne || !hasVapor)) {
        add(Start::Kind::wilsonVapor);
        add(Start::Kind::idealGas);
    }
    if (isOne)
        add(Start::Kind::wilsonLiquid);
    for (int k = 0; k < split.count; ++k)
        if (isOne ? k == 0 : isMiddling(split.phases[k])) {
            add(Start::Kind::lighter, k);
            add(Start::Kind::heavier, k);
        }
    for (int k = 0; k < split.count; ++k)
        if (split.count > 1 && isGas(split.phases[k]) && areOthersNearlyPure(k))
            add(Start::Kind::condensate, k);
    for (int k = 1; k < split.count; ++k)
        for (int m = 0; m < k; ++m)
            add(Start::Kind::mean, m, k);
    for (int k = 0; k < split.count; ++k)
        for (int m = 0; m < split.count; ++m)
            if (m != k && (!hasVapor || isNearCritical || isDenseGas(split.phases[m])))
                add(Start::Kind::lean, m, k);
    addPure(false);
    for (int i = 0; i < n && haveLiquids; ++i)
        addPair(i);
}

// The start of two compounds in equal parts: of one, and of the other that it attracts most, if it attracts any. Their
// phase can be one that neither of them leads to.
void StabilityTest::addPair(int one)
{
    double least = attracting;
    int best = -1;
    for (int i = 0; i < problem.size(); ++i) {
        const double lnGammaInOne = pureStarts[i][i] - pureStarts[one][i];
        if (lnGammaInOne < 0.5 * attracting && lnGammaOfPair(one, i) < least) {
            least = lnGammaOfPair(one, i);
            best = i;
        }
    }
    const auto isSame = [&](const Start &start) {
        return start.kind == Start::Kind::pair && start.one == best && start.other == one;
    };
    if (best >= 0 && std::none_of(starts.begin(), starts.begin() + startCount, isSame))
        add(Start::Kind::pair, one, best);
}

void StabilityTest::setStart(const Start &at, TrialPhase &trial) const
{
    const int n = problem.size();
    const auto byWilson = [&](const double *x, double sign) {
        for (int i = 0; i < n; ++i)
            trial.lnW[i] = std::log(x[i]) + sign * wilsonLogRatio(problem.model.compounds[i],
                                                                  problem.isotherm.temperature, problem.pressure);
    };
    switch (at.kind) {
    case Start::Kind::wilsonVapor:
        trial.root = Root::vapor;
        return byWilson(problem.z, 1.0);
    case Start::Kind::wilsonLiquid:
        trial.root = Root::liquid;
        return byWilson(problem.z, -1.0);
    case Start::Kind::lighter: // neither a vapor nor what there is
        trial.root = problem.bestRoot();
        return byWilson(split.phases[at.one].x.data(), 1.0 / 3.0);
    case Start::Kind::heavier:
        trial.root = problem.bestRoot();
        return byWilson(split.phases[at.one].x.data(), -1.0 / 3.0);
    case Start::Kind::condensate:
        trial.root = Root::liquid;
        return byWilson(split.phases[at.one].x.data(), -1.0);
    case Start::Kind::idealGas: // knows what the phases are like, which Wilson's ratios do not
        trial.root = Root::vapor;
        trial.lnW = potential;
        return;
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
        return;
    case Start::Kind::pair:
        trial.root = Root::liquid;
        return setPairStart(at.one, at.other, trial.lnW);
    }
}

// What a phase of one compound alone would become in one step of substitution.
void StabilityTest::setPureStart(int pure, CompoundArray &lnW) const
{
    CompoundArray lnPhi;
    evaluateSolvent(problem.model, problem.isotherm, problem.pressure, pure, lnPhi);
    for (int i = 0; i < problem.size(); ++i)
        lnW[i] = potential[i] - lnPhi[i];
}

void StabilityTest::setPairStart(int one, int other, CompoundArray &lnW) const
{
    CompoundArray x{};
    x[one] = x[other] = 0.5;
    PhaseState state;
    evaluatePhase(problem.model, problem.isotherm, problem.pressure, x.data(), Root::liquid, state);
    for (int i = 0; i < problem.size(); ++i)
        lnW[i] = potential[i] - state.lnPhi[i];
}

// The sum of the logarithms of activity coefficients at infinite dilution, of each of two compounds in the other.
double StabilityTest::lnGammaOfPair(int one, int other) const
{
    return pureStarts[one][one] - pureStarts[other][one] + pureStarts[other][other] - pureStarts[one][other];
}

// Whether a phase of one compound would take up more of another one than of its own, so that the search would not stay
// near it, and that of the other one leads to the same phase.
bool StabilityTest::isCovered(int pure) const
{
    const double reach = isOne && isNearCritical ? wideSlack : slack;
    const auto favoriteOf = [&](int i) {
        const CompoundArray &lnW = pureStarts[i];
        const auto most = std::max_element(lnW.begin(), lnW.begin() + problem.size());
        return *most > lnW[i] + reach ? static_cast<int>(most - lnW.begin()) : i;
    };
    const int favorite = favoriteOf(pure);
    if (favorite == pure || favoriteOf(favorite) != favorite)
        return false;
    const bool isAttracted = pureStarts[pure][favorite] > pureStarts[favorite][favorite];
    return !isAttracted && lnGammaOfPair(pure, favorite) < immiscible;
}

// Whether a phase is neither like a gas nor like a liquid: by its volume over its covolume, about four at a critical
// point. Two phases of the same kind can be near to such a one each.
bool StabilityTest::isMiddling(const SplitPhase &phase) const
{
    const double volume = relativeVolume(problem, phase.state);
    return !phase.state.severalRoots && volume > (isOne ? 1.6 : 2.0) && volume < (isOne ? 8.0 : 6.0);
}

// Whether all phases but one are nearly pure, as water beside a gas: then that one can have a liquid of its own.
bool StabilityTest::areOthersNearlyPure(int one) const
{
    constexpr double nearlyPure = 0.9;
    for (int k = 0; k < split.count; ++k) {
        const CompoundArray &x = split.phases[k].x;
        if (k != one && *std::max_element(x.begin(), x.begin() + problem.size()) < nearlyPure)
            return false;
    }
    return true;
}

// Whether a phase is a gas that is not much thinner than a liquid of the same compounds could be.
bool StabilityTest::isDenseGas(const SplitPhase &phase) const
{
    const double volume = relativeVolume(problem, phase.state);
    return volume > 2.0 && volume < 18.0;
}

} // namespace reference
