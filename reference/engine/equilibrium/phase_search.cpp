#include "reference/engine/equilibrium/phase_search.h"

#include "reference/engine/equilibrium/phase_names.h"
#include "reference/engine/equilibrium/stability.h"
#include "reference/engine/phase/phase_evaluation.h"

#include <cmath>

namespace reference {

namespace {

constexpr int mostRounds = 16;
constexpr int mostFailures = 3;      // trials of no use, which take far longer than others
constexpr double noticeable = -1e-8; // a distance from the tangent plane that a split must be able to use

// Whether two phases can have the names of those that are allowed: of a vapor and a liquid, or of two liquids.
bool canBeNamed(const FlashProblem &problem, const PhaseSplit &pair)
{
    const PhaseState &one = pair.phases[0].state;
    const PhaseState &other = pair.phases[1].state;
    if (!problem.vaporAllowed)
        return problem.looksLiquid(one) && problem.looksLiquid(other);
    return (one.vaporRoot && other.liquidRoot) || (other.vaporRoot && one.liquidRoot);
}

// Two phases, of which one has the composition of `one`, and the other that of all the rest.
SplitStatus splitApart(const FlashProblem &problem, const PhaseSplit &from, int one, PhaseSplit &pair)
{
    const int n = problem.size();
    pair.count = 2;
    pair.phases[0] = from.phases[one];
    pair.phases[1] = from.phases[one == 0 ? 1 : 0];
    SplitPhase &rest = pair.phases[1];
    rest.amount = 1.0 - from.phases[one].amount;
    for (int i = 0; i < n; ++i) {
        rest.x[i] = 0.0;
        for (int k = 0; k < from.count; ++k)
            if (k != one)
                rest.x[i] += from.phases[k].amount / rest.amount * from.phases[k].x[i];
        pair.phases[0].lnE[i] = std::log(pair.phases[0].x[i]);
        rest.lnE[i] = std::log(rest.x[i]);
    }
    pair.phases[0].root = problem.bestRoot();
    rest.root = problem.bestRoot();
    if (!pair.update(problem))
        return SplitStatus::collapsed;
    if (!problem.vaporAllowed)
        return converge(problem, pair);
    const bool firstIsVapor =
        relativeVolume(problem, pair.phases[0].state) > relativeVolume(problem, pair.phases[1].state);
    pair.phases[0].root = firstIsVapor ? Root::vapor : Root::liquid;
    pair.phases[1].root = firstIsVapor ? Root::liquid : Root::vapor;
    if (!pair.update(problem))
        return SplitStatus::collapsed;
    return converge(problem, pair);
}

} // namespace

PhaseSearchStatus findStablePhases(const FlashProblem &problem, PhaseSplit &split)
{
    if (problem.size() == 1) {
        split.setOnePhase(problem);
        return PhaseSearchStatus::stable;
    }
    if (!problem.vaporAllowed || splitFromWilson(problem, split) != SplitStatus::solved)
        split.setOnePhase(problem);
    int failures = 0;
    for (int round = 0; round < mostRounds; ++round) {
        if (settleRoots(problem, split) != SplitStatus::solved)
            split.setOnePhase(problem);
        StabilityTest test(problem, split);
        TrialPhase trial;
        bool better = false;
        bool open = false;
        while (!better && test.findNext(trial)) {
            if (split.count == maximumPhases)
                return PhaseSearchStatus::tooMany;
            better = splitFurther(problem, trial, split) == SplitStatus::solved;
            if (better || trial.distance > noticeable)
                continue;
            open = true;
            if (++failures > mostFailures)
                return PhaseSearchStatus::notConverged;
        }
        if (!better)
            return open ? PhaseSearchStatus::notConverged : PhaseSearchStatus::stable;
    }
    return PhaseSearchStatus::notConverged;
}

bool areStable(const FlashProblem &problem, const PhaseSplit &split)
{
    PhaseState best;
    for (int k = 0; k < split.count; ++k) {
        const SplitPhase &phase = split.phases[k];
        if (!phase.state.severalRoots)
            continue;
        evaluatePhase(problem.model, problem.isotherm, problem.pressure, phase.x.data(), problem.bestRoot(), best);
        if (best.vaporRoot != phase.state.vaporRoot)
            return false;
    }
    StabilityTest test(problem, split);
    TrialPhase trial;
    return !test.findNext(trial);
}

void findTwoPhases(const FlashProblem &problem, PhaseSplit &split)
{
    PhaseSplit best;
    best.setOnePhase(problem);
    PhaseSplit pair;
    const auto take = [&](SplitStatus status) {
        if (status != SplitStatus::solved || !canBeNamed(problem, pair))
            return;
        if (pair.gibbs < best.gibbs)
            best = pair;
    };
    if (problem.vaporAllowed)
        take(splitFromWilson(problem, pair));
    for (int k = 0; split.count > 1 && k < split.count; ++k)
        take(splitApart(problem, split, k, pair));
    split = best;
}

} // namespace reference
