#include "reference/engine/flash/near_phases.h"

#include "reference/engine/phase/phase_evaluation.h"

#include <cmath>

namespace reference {

namespace {

struct Node {
    double place; // part of the way
    double weight;
};

// Gauss's quadrature with three nodes, exact for polynomials of degree five.
const double outerNode = 0.5 * std::sqrt(0.6);
const Node nodes[] = {{0.5 - outerNode, 5.0 / 18.0}, {0.5, 8.0 / 18.0}, {0.5 + outerNode, 5.0 / 18.0}};

} // namespace

bool areNearPhases(const Feed &feed, const TwoPhasePoint &point)
{
    constexpr double near = 0.01;
    const int n = feed.size();
    return n > 1 && feed.model.isCubic() && point.largestLnK(n) < near && !point.vapor.state.severalRoots &&
           !point.liquid.state.severalRoots;
}

bool differenceOfNearPhases(const Feed &feed, const TwoPhasePoint &point, CompoundArray &difference)
{
    if (!areNearPhases(feed, point))
        return false;
    const int n = feed.size();
    double sum = 0.0;     // of the liquid
    double surplus = 0.0; // of the vapor's sum over it
    for (int i = 0; i < n; ++i) {
        sum += point.x[i];
        surplus += point.x[i] * std::expm1(point.unknowns[i]);
    }
    CompoundArray liquid;
    CompoundArray change; // of the mole fractions, to those of the vapor
    for (int i = 0; i < n; ++i) {
        liquid[i] = point.x[i] / sum;
        change[i] = point.x[i] * (std::expm1(point.unknowns[i]) - surplus / sum) / (sum + surplus);
    }

    const Isotherm isotherm(feed.model, point.totals.temperature);
    CompoundArray between;
    CompoundArray integral{};
    PhaseState state;
    PairArray slopes;
    for (const Node &node : nodes) {
        for (int i = 0; i < n; ++i)
            between[i] = liquid[i] + node.place * change[i];
        evaluatePhase(feed.model, isotherm, point.totals.pressure, between.data(), Root::stable, state);
        lnPhiByMoles(feed.model, isotherm, state, slopes);
        for (int j = 0; j < n; ++j)
            for (int i = 0; i < n; ++i)
                integral[i] += node.weight * change[j] * columnOf(slopes, n, j)[i];
    }

    // Both are the same but for the digits, unless the equation has another root on the way.
    constexpr double roundOff = 1e-11;
    for (int i = 0; i < n; ++i)
        if (!(std::fabs(integral[i] - (point.vapor.state.lnPhi[i] - point.liquid.state.lnPhi[i])) < roundOff))
            return false;
    for (int i = 0; i < n; ++i)
        difference[i] = integral[i];
    return true;
}

} // namespace reference
