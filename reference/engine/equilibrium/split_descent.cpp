#include "reference/engine/equilibrium/split_descent.h"

#include "reference/engine/equilibrium/split_curvature.h"
#include "reference/engine/phase/phase_evaluation.h"

#include <algorithm>
#include <cmath>

namespace reference {

namespace {

constexpr double equalFugacity = 1e-11;  // aimed at
constexpr double goodEnough = 1e-10;     // what is promised, where round-off lets no more
constexpr double sameComposition = 1e-5; // largest ln ratio of phases that are one
constexpr double largeLnRatio = 1.0;     // difference of logarithms of fugacities
constexpr int firstSubstitutions = 3;
constexpr int mostSubstitutions = 200;
constexpr int mostNewtonSteps = 60;
constexpr int mostFailures = 6; // Newton steps of no use

// Whether the one is less than the other beyond round-off.
bool isLess(double gibbs, double than) { return gibbs < than - 1e-13 * (1.0 + std::fabs(than)); }

bool areOne(const FlashProblem &problem, const SplitPhase &one, const SplitPhase &other)
{
    for (int i = 0; i < problem.size(); ++i)
        if (!(std::fabs(one.lnE[i] - other.lnE[i]) < sameComposition))
            return false;
    return std::fabs(one.state.Z - other.state.Z) < sameComposition * one.state.Z || problem.model.isIdeal();
}

bool anyAreOne(const FlashProblem &problem, const PhaseSplit &split)
{
    for (int k = 1; k < split.count; ++k)
        for (int m = 0; m < k; ++m)
            if (areOne(problem, split.phases[k], split.phases[m]))
                return true;
    return false;
}

// Successive substitution: the ratios that equal fugacities would have with these coefficients.
void substitute(const FlashProblem &problem, PhaseSplit &split)
{
    for (int k = 0; k < split.count; ++k)
        for (int i = 0; i < problem.size(); ++i)
            split.phases[k].lnE[i] = -split.phases[k].state.lnPhi[i];
}

// By what Newton's method for the least Gibbs energy in the mole numbers would change each lnE.
void newtonDirection(const FlashProblem &problem, const PhaseSplit &split, CompoundArray *change)
{
    const int n = problem.size();
    PhaseView views[maximumPhases];
    PhaseArray grown{}; // moles
    for (int k = 0; k < split.count; ++k) {
        views[k] = {split.phases[k].amount, &split.phases[k].x, &split.phases[k].state};
        std::fill_n(change[k].begin(), n, 0.0);
    }
    SplitCurvature curvature(problem.model, problem.isotherm, split.count, views);
    MoveArray step;
    for (int a = 0; a < curvature.size(); ++a) {
        const SplitCurvature::Move &move = curvature.move(a);
        step[a] = move.scale *
                  (split.lnFugacityRatio(move.from, move.compound) - split.lnFugacityRatio(move.to, move.compound));
    }
    curvature.solve(step);
    for (int a = 0; a < curvature.size(); ++a) {
        const SplitCurvature::Move &move = curvature.move(a);
        const double moles = move.scale * step[a];
        change[move.to][move.compound] += moles;
        change[move.from][move.compound] -= moles;
        grown[move.to] += moles;
        grown[move.from] -= moles;
    }
    for (int k = 0; k < split.count; ++k) {
        const SplitPhase &phase = split.phases[k];
        for (int i = 0; i < n; ++i)
            change[k][i] = (change[k][i] / phase.x[i] - grown[k]) / phase.amount;
    }
}

// One Newton step, shortened until the Gibbs energy falls or, where that has no digits left, the
// fugacities come nearer. False when no length does.
bool newtonStep(const FlashProblem &problem, PhaseSplit &split)
{
    const int n = problem.size();
    CompoundArray change[maximumPhases];
    newtonDirection(problem, split, change);
    double largest = 0.0;
    for (int k = 1; k < split.count; ++k)
        for (int i = 0; i < n; ++i)
            largest = std::max(largest, std::fabs(change[k][i] - change[0][i]));
    double length = largest > 3.0 ? 3.0 / largest : 1.0;
    const double roundOff = 1e-14 * (1.0 + std::fabs(split.gibbs));

    PhaseSplit next;
    for (int halving = 0; halving < 15; ++halving, length *= 0.5) {
        next.count = split.count;
        for (int k = 0; k < split.count; ++k) {
            next.phases[k].root = split.phases[k].root;
            next.phases[k].amount = split.phases[k].amount;
            for (int i = 0; i < n; ++i)
                next.phases[k].lnE[i] = split.phases[k].lnE[i] + length * change[k][i];
        }
        if (!next.update(problem))
            continue;
        next.findGibbs(problem);
        const bool falls = next.gibbs < split.gibbs - roundOff;
        const bool nearer = next.gibbs < split.gibbs + roundOff && next.largestLnRatio < 0.9 * split.largestLnRatio;
        if (falls || nearer) {
            split = next;
            return true;
        }
    }
    return false;
}

// Substitution, where it lowers the Gibbs energy: far from equilibrium, with compounds that hardly dissolve in one of
// the phases, it goes further than a Newton step may.
bool goodSubstitution(const FlashProblem &problem, PhaseSplit &split)
{
    PhaseSplit next = split;
    substitute(problem, next);
    if (!next.update(problem))
        return false;
    next.findGibbs(problem);
    if (!(next.gibbs < split.gibbs))
        return false;
    split = next;
    return true;
}

// Takes out what stands there twice. False when one phase is left.
bool mergeTwins(const FlashProblem &problem, PhaseSplit &split)
{
    for (int k = split.count - 1; k > 0; --k)
        for (int m = 0; m < k; ++m)
            if (areOne(problem, split.phases[k], split.phases[m])) {
                split.phases[m].amount += split.phases[k].amount;
                split.remove(k);
                break;
            }
    return split.count > 1;
}

// From phases whose Gibbs energy has been found, which it goes on telling.
SplitStatus descend(const FlashProblem &problem, PhaseSplit &split)
{
    int failures = 0;
    for (int step = 0; step < mostNewtonSteps && split.largestLnRatio >= equalFugacity; ++step) {
        split.followDensity(problem);
        if (split.count > 2 && anyAreOne(problem, split)) {
            if (!mergeTwins(problem, split) || !split.update(problem))
                return SplitStatus::collapsed;
            split.findGibbs(problem);
        }
        if (split.largestLnRatio > largeLnRatio && goodSubstitution(problem, split))
            continue;
        if (newtonStep(problem, split))
            continue;
        if (split.largestLnRatio < goodEnough || ++failures > mostFailures)
            break;
        substitute(problem, split);
        if (!split.update(problem))
            return SplitStatus::collapsed;
        split.findGibbs(problem);
    }
    if (anyAreOne(problem, split))
        return SplitStatus::collapsed;
    return split.largestLnRatio < goodEnough ? SplitStatus::solved : SplitStatus::notConverged;
}

} // namespace

SplitStatus converge(const FlashProblem &problem, PhaseSplit &split)
{
    // Substitution until the phases beat the feed: Newton's method goes on downhill from there and
    // cannot end in the feed itself.
    for (int step = 0;; ++step) {
        if (step >= firstSubstitutions || split.largestLnRatio < equalFugacity) {
            split.findGibbs(problem);
            if (isLess(split.gibbs, problem.gibbs))
                break;
            if (split.largestLnRatio < equalFugacity || step >= mostSubstitutions || anyAreOne(problem, split))
                return SplitStatus::collapsed;
        }
        substitute(problem, split);
        if (!split.update(problem))
            return SplitStatus::collapsed;
    }
    return descend(problem, split);
}

SplitStatus splitFromWilson(const FlashProblem &problem, PhaseSplit &split)
{
    split.count = 2;
    split.phases[0].root = Root::liquid;
    split.phases[1].root = Root::vapor;
    for (int i = 0; i < problem.size(); ++i) {
        split.phases[0].lnE[i] = 0.0;
        split.phases[1].lnE[i] =
            wilsonLogRatio(problem.model.compounds[i], problem.isotherm.temperature, problem.pressure);
    }
    if (!split.update(problem))
        return SplitStatus::collapsed;
    return converge(problem, split);
}

SplitStatus settleRoots(const FlashProblem &problem, PhaseSplit &split)
{
    if (split.count == 1)
        return SplitStatus::solved; // the feed, at its best root
    bool changed = false;
    for (int k = 0; k < split.count; ++k) {
        SplitPhase &phase = split.phases[k];
        if (!phase.state.severalRoots)
            continue;
        PhaseState best;
        evaluatePhase(problem.model, problem.isotherm, problem.pressure, phase.x.data(), problem.bestRoot(), best);
        if (best.vaporRoot == phase.state.vaporRoot)
            continue;
        phase.root = best.vaporRoot ? Root::vapor : Root::liquid;
        changed = true;
    }
    if (!changed)
        return SplitStatus::solved;
    if (!split.update(problem))
        return SplitStatus::collapsed;
    split.findGibbs(problem);
    return descend(problem, split);
}

namespace {

// Puts a trial phase beside the ones there are. `amount` moles of one mole are taken out of these; zero leaves the
// amount to the trial's own mole numbers, which at a stationary point are those of equal fugacities.
bool join(const FlashProblem &problem, const TrialPhase &trial, const CompoundArray &w, double amount,
          const PhaseSplit &split, PhaseSplit &next)
{
    const int n = problem.size();
    next.count = split.count + 1;
    for (int k = 0; k < split.count; ++k) {
        const SplitPhase &before = split.phases[k];
        double left = 0.0;
        for (int i = 0; i < n; ++i)
            left += before.x[i] * (1.0 - amount * w[i] / problem.z[i]);
        next.phases[k].root = before.root;
        next.phases[k].amount = left * before.amount;
        for (int i = 0; i < n; ++i)
            next.phases[k].lnE[i] = std::log(before.x[i] * (1.0 - amount * w[i] / problem.z[i]) / left);
    }
    SplitPhase &added = next.phases[split.count];
    added.root = trial.root;
    added.amount = std::max(amount, 1e-8);
    for (int i = 0; i < n; ++i)
        added.lnE[i] = amount > 0.0 ? std::log(w[i]) : trial.lnW[i];
    if (!next.update(problem))
        return false;
    next.findGibbs(problem);
    return true;
}

// Next to where a phase comes into being, the Gibbs energy has no digits for it, and only the fugacities tell.
SplitStatus joinVanishing(const FlashProblem &problem, const TrialPhase &trial, const CompoundArray &w,
                          PhaseSplit &split)
{
    PhaseSplit next;
    if (!join(problem, trial, w, 0.0, split, next))
        return SplitStatus::collapsed;
    const SplitStatus status = descend(problem, next);
    if (status != SplitStatus::solved)
        return status;
    const bool isBack = next.count <= split.count && !isLess(next.gibbs, split.gibbs); // the phases there were
    if (isBack || isLess(split.gibbs, next.gibbs))
        return SplitStatus::collapsed;
    split = next;
    return status;
}

// Next to a critical point a phase becomes two, on both sides of it: that of the trial and another one, and no part of
// the trial alone lowers the Gibbs energy much. False if that leads nowhere.
bool splitAcross(const FlashProblem &problem, const CompoundArray &w, PhaseSplit &split)
{
    const int n = problem.size();
    const auto differenceFrom = [&](const SplitPhase &phase) { return sumOfDifferences(n, w, phase.x); };
    int nearest = 0;
    for (int k = 1; k < split.count; ++k)
        if (differenceFrom(split.phases[k]) < differenceFrom(split.phases[nearest]))
            nearest = k;
    PhaseSplit next;
    double reach = 1.0;
    for (int halving = 0; halving < 6; ++halving, reach *= 0.5) {
        next = split;
        SplitPhase &here = next.phases[nearest];
        SplitPhase &there = next.phases[next.count++];
        here.amount *= 0.5;
        there.amount = here.amount;
        there.root = here.root;
        for (int k = 0; k < split.count; ++k)
            for (int i = 0; i < n; ++i)
                next.phases[k].lnE[i] = std::log(split.phases[k].x[i]);
        bool possible = true;
        for (int i = 0; i < n; ++i) {
            const double x = split.phases[nearest].x[i];
            const double step = reach * (w[i] - x);
            possible = possible && std::fabs(step) < x;
            here.lnE[i] = std::log(x - step);
            there.lnE[i] = std::log(x + step);
        }
        if (!possible || !next.update(problem))
            continue;
        next.findGibbs(problem);
        if (!isLess(next.gibbs, split.gibbs) || descend(problem, next) != SplitStatus::solved ||
            !isLess(next.gibbs, split.gibbs))
            continue;
        split = next;
        return true;
    }
    return false;
}

} // namespace

SplitStatus splitFurther(const FlashProblem &problem, const TrialPhase &trial, PhaseSplit &split)
{
    const int n = problem.size();
    CompoundArray w;
    double total = 0.0;
    for (int i = 0; i < n; ++i)
        total += std::exp(trial.lnW[i]);
    double amount = 0.5;
    for (int i = 0; i < n; ++i) {
        w[i] = std::exp(trial.lnW[i]) / total;
        amount = std::min(amount, 0.9 * problem.z[i] / w[i]);
    }
    // The tangent plane promises that a small enough amount lowers the Gibbs energy.
    PhaseSplit next;
    for (int halving = 0; halving < 40; ++halving, amount *= 0.5) {
        if (!join(problem, trial, w, amount, split, next) || !isLess(next.gibbs, split.gibbs))
            continue;
        if (descend(problem, next) != SplitStatus::solved || !isLess(next.gibbs, split.gibbs))
            break;
        split = next;
        return SplitStatus::solved;
    }
    const SplitStatus status = joinVanishing(problem, trial, w, split);
    return status == SplitStatus::solved ? status : splitAcross(problem, w, split) ? SplitStatus::solved : status;
}

} // namespace reference
