#include "reference/engine/equilibrium/two_phase_split.h"

#include "reference/engine/equilibrium/phase_transfer.h"

#include "reference/engine/numerics/symmetric_solve.h"
#include "reference/engine/phase/phase_evaluation.h"

#include <algorithm>
#include <cmath>

namespace reference {

namespace {

constexpr double equalFugacity = 1e-11;  // aimed at
constexpr double goodEnough = 1e-10;     // what is promised, where round-off lets no more
constexpr double sameComposition = 1e-5; // largest ln K of phases that are one
constexpr double limitOfLnK = 500.0;     // largest |ln K|: with more, fractions vanish
constexpr double largeLnRatio = 1.0;     // difference of logarithms of fugacities
constexpr int firstSubstitutions = 3;
constexpr int mostSubstitutions = 200;
constexpr int mostNewtonSteps = 60;

// Whether the two are less than the feed's one phase beyond round-off.
bool betterThanFeed(const FlashProblem &problem, const TwoPhases &phases)
{
    return phases.gibbs < problem.gibbs - 1e-13 * (1.0 + std::fabs(problem.gibbs));
}

bool collapsing(const FlashProblem &problem, const TwoPhases &phases)
{
    return std::all_of(phases.lnK.begin(), phases.lnK.begin() + problem.model.size,
                       [](double lnK) { return std::fabs(lnK) < sameComposition; });
}

// Successive substitution: the ratios that equal fugacities would have with these coefficients.
void substitute(const FlashProblem &problem, TwoPhases &phases)
{
    for (int i = 0; i < problem.model.size; ++i)
        phases.lnK[i] = phases.liquid.lnPhi[i] - phases.vapor.lnPhi[i];
}

// Moves lnK by the step of Newton's method for the least Gibbs energy in the mole numbers of the vapor.
void newtonDirection(const FlashProblem &problem, const TwoPhases &phases, CompoundArray &change)
{
    const int n = problem.model.size;
    const double both = phases.amounts.vapor * phases.amounts.liquid;
    PhaseTransfer transfer(problem.model, problem.isotherm, phases.amounts, problem.z, phases.vapor, phases.y,
                           phases.liquid, phases.x);
    CompoundArray step;
    for (int i = 0; i < n; ++i)
        step[i] = -both * transfer.scale[i] * phases.lnFugacityRatio[i];
    solveDescent(n, transfer.matrix, step);

    double moved = 0.0;
    for (int i = 0; i < n; ++i)
        moved += transfer.scale[i] * step[i];
    for (int i = 0; i < n; ++i)
        change[i] = (step[i] / transfer.scale[i] - moved) / both;
}

// One Newton step, shortened until the Gibbs energy falls or, where that has no digits left, the
// fugacities come nearer. False when no length does.
bool newtonStep(const FlashProblem &problem, TwoPhases &phases)
{
    const int n = problem.model.size;
    CompoundArray change;
    newtonDirection(problem, phases, change);

    double largest = 0.0;
    for (int i = 0; i < n; ++i)
        largest = std::max(largest, std::fabs(change[i]));
    double length = largest > 3.0 ? 3.0 / largest : 1.0;
    const double roundOff = 1e-14 * (1.0 + std::fabs(phases.gibbs));

    TwoPhases next;
    for (int halving = 0; halving < 15; ++halving, length *= 0.5) {
        for (int i = 0; i < n; ++i)
            next.lnK[i] = phases.lnK[i] + length * change[i];
        if (!next.update(problem))
            continue;
        next.findGibbs(problem);
        const bool falls = next.gibbs < phases.gibbs - roundOff;
        const bool nearer = next.gibbs < phases.gibbs + roundOff && next.largestLnRatio < 0.9 * phases.largestLnRatio;
        if (falls || nearer) {
            phases = next;
            return true;
        }
    }
    return false;
}

// Substitution, where it lowers the Gibbs energy: far from equilibrium, with compounds that hardly dissolve in one of
// the phases, it goes further than a Newton step may.
bool goodSubstitution(const FlashProblem &problem, TwoPhases &phases)
{
    TwoPhases next = phases;
    substitute(problem, next);
    if (!next.update(problem))
        return false;
    next.findGibbs(problem);
    if (!(next.gibbs < phases.gibbs))
        return false;
    phases = next;
    return true;
}

// Whether both phases are as dense as liquids. One of two liquids can stand for the vapor only where it has one root;
// where it comes to have a vapor root, too, there is no equilibrium to converge to.
bool areBothLiquid(const FlashProblem &problem, const TwoPhases &phases)
{
    if (problem.model.isIdeal())
        return false;
    const double critical = cubicConstants(problem.model.equation).criticalVolume;
    return phases.vapor.Z < critical * phases.vapor.B && phases.liquid.Z < critical * phases.liquid.B;
}

SplitStatus verdict(const FlashProblem &problem, TwoPhases &phases)
{
    if (collapsing(problem, phases))
        return SplitStatus::collapsed;
    phases.findGibbs(problem);
    if (!betterThanFeed(problem, phases))
        return SplitStatus::collapsed;
    if (phases.largestLnRatio < goodEnough)
        return SplitStatus::solved;
    return areBothLiquid(problem, phases) ? SplitStatus::collapsed : SplitStatus::notConverged;
}

// From phases that have been updated to phases in equilibrium.
SplitStatus converge(const FlashProblem &problem, TwoPhases &phases)
{
    // Substitution until the phases beat the feed: Newton's method goes on downhill from there and
    // cannot end in the feed itself.
    for (int step = 0;; ++step) {
        if (phases.largestLnRatio < equalFugacity)
            return verdict(problem, phases);
        if (step >= firstSubstitutions) {
            phases.findGibbs(problem);
            if (betterThanFeed(problem, phases))
                break;
            if (step >= mostSubstitutions || collapsing(problem, phases))
                return SplitStatus::collapsed;
        }
        substitute(problem, phases);
        if (!phases.update(problem))
            return SplitStatus::collapsed;
    }
    for (int step = 0; step < mostNewtonSteps && phases.largestLnRatio >= equalFugacity; ++step) {
        if (phases.largestLnRatio > largeLnRatio && goodSubstitution(problem, phases))
            continue;
        if (newtonStep(problem, phases))
            continue;
        if (phases.largestLnRatio < goodEnough)
            break;
        substitute(problem, phases);
        if (!phases.update(problem))
            return SplitStatus::collapsed;
        phases.findGibbs(problem);
    }
    return verdict(problem, phases);
}

} // namespace

bool TwoPhases::update(const FlashProblem &problem)
{
    const int n = problem.model.size;
    CompoundArray K{};
    for (int i = 0; i < n; ++i) {
        lnK[i] = std::clamp(lnK[i], -limitOfLnK, limitOfLnK);
        K[i] = std::exp(lnK[i]);
    }
    if (!solveRachfordRice(n, problem.z, K.data(), amounts))
        return false;
    for (int i = 0; i < n; ++i) {
        x[i] = problem.z[i] / (amounts.liquid + amounts.vapor * K[i]);
        y[i] = K[i] * x[i];
    }
    evaluatePhase(problem.model, problem.isotherm, problem.pressure, y.data(), Root::vapor, vapor);
    evaluatePhase(problem.model, problem.isotherm, problem.pressure, x.data(), Root::liquid, liquid);
    largestLnRatio = 0.0;
    for (int i = 0; i < n; ++i) {
        lnFugacityRatio[i] = lnK[i] + vapor.lnPhi[i] - liquid.lnPhi[i];
        largestLnRatio = std::max(largestLnRatio, std::fabs(lnFugacityRatio[i]));
    }
    return true;
}

void TwoPhases::findGibbs(const FlashProblem &problem)
{
    gibbs = 0.0;
    for (int i = 0; i < problem.model.size; ++i) {
        const double liquidPotential = std::log(x[i]) + liquid.lnPhi[i];
        gibbs += problem.z[i] * liquidPotential + amounts.vapor * y[i] * lnFugacityRatio[i];
    }
}

SplitStatus splitFromWilson(const FlashProblem &problem, TwoPhases &phases)
{
    for (int i = 0; i < problem.model.size; ++i)
        phases.lnK[i] = wilsonLogRatio(problem.model.compounds[i], problem.isotherm.temperature, problem.pressure);
    if (!phases.update(problem))
        return SplitStatus::collapsed;
    return converge(problem, phases);
}

SplitStatus splitFromTrial(const FlashProblem &problem, Root root, const CompoundArray &lnW, TwoPhases &phases)
{
    const int n = problem.model.size;
    CompoundArray w;
    double total = 0.0;
    for (int i = 0; i < n; ++i)
        total += std::exp(lnW[i]);
    double amount = 0.5; // of the phase that splits off
    for (int i = 0; i < n; ++i) {
        w[i] = std::exp(lnW[i]) / total;
        amount = std::min(amount, 0.9 * problem.z[i] / w[i]);
    }
    // The tangent plane promises that a small enough amount lowers the Gibbs energy.
    const double sign = root == Root::vapor ? 1.0 : -1.0;
    for (int halving = 0; halving < 40; ++halving, amount *= 0.5) {
        for (int i = 0; i < n; ++i) {
            const double rest = (problem.z[i] - amount * w[i]) / (1.0 - amount);
            phases.lnK[i] = sign * std::log(w[i] / rest);
        }
        if (!phases.update(problem))
            continue;
        phases.findGibbs(problem);
        if (betterThanFeed(problem, phases))
            return converge(problem, phases);
    }
    return SplitStatus::collapsed;
}

} // namespace reference
