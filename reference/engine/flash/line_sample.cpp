#include "reference/engine/flash/line_sample.h"

#include "reference/engine/flash/quality_search.h"

#include <algorithm>
#include <cmath>

namespace reference {

void LineSample::take(const Feed &feed, const FlashSpecification &at, double other)
{
    free = other;
    known = flashAt(feed, at, other, state) == FlashStatus::solved;
}

double LineSampler::fractionOf(const FlashResult &state) const
{
    return vaporPart(feed.model, state, fraction.variable);
}

// How much more vapor a sample has than wanted. One phase counts as the one that its neighbor of two phases
// is about to be, and is on the other side of a fraction of 0 or 1.
double LineSampler::surplus(const LineSample &sample, const LineSample &neighbor) const
{
    if (sample.isTwo())
        return fractionOf(sample.state) - fraction.value;
    const bool nearVapor =
        neighbor.isTwo() && !sample.isNamed ? neighbor.state.vaporFraction > 0.5 : sample.state.vaporPresent;
    const double difference = (nearVapor ? 1.0 : 0.0) - fraction.value;
    return difference != 0.0 ? difference : nearVapor ? 1.0 : -1.0;
}

bool LineSampler::startBetween(LineSample first, LineSample second, const FlashSpecification &at,
                               TwoPhasePoint &point) const
{
    if (!first.known || !second.known)
        return false;
    if (!first.isTwo() && !second.isTwo())
        first.isNamed = second.isNamed = true;
    for (int halving = 0; halving < 30; ++halving) {
        const bool two = first.isTwo() || second.isTwo();
        if (two ? surplus(first, second) * surplus(second, first) > 0.0
                : first.state.vaporPresent == second.state.vaporPresent)
            return false;
        if ((two || (n == 1 && halving > 10)) && halving % 3 == 0 && solveBetween(first, second, at, point))
            return true;
        LineSample middle;
        middle.take(feed, at, std::sqrt(first.free * second.free));
        if (!middle.known)
            return false;
        const bool before = two || middle.isTwo() ? surplus(first, middle) * surplus(middle, first) < 0.0
                                                  : middle.state.vaporPresent != first.state.vaporPresent;
        middle.isNamed = first.isNamed && second.isNamed;
        (before ? second : first) = middle;
    }
    return false;
}

bool LineSampler::solveBetween(const LineSample &first, const LineSample &second, const FlashSpecification &at,
                               TwoPhasePoint &point) const
{
    const bool takeFirst =
        !second.isTwo() || (first.isTwo() && std::fabs(surplus(first, second)) < std::fabs(surplus(second, first)));
    const FlashResult &nearest = takeFirst ? first.state : second.state;
    point.setPhases(n, nearest);
    if (n == 1 || fraction.variable == FlashVariable::vaporFraction)
        point.setAmounts(n, fraction.value, 1.0 - fraction.value);
    else
        point.setAmounts(n, nearest.vaporFraction, nearest.liquidFraction);
    if (!solvePoint(feed, point, Closing::of(fraction), Closing::of(at)) || !areVaporAndLiquid(feed, point))
        return false;
    const double free = otherConditionOf(point.totals, at.variable);
    return free > std::min(first.free, second.free) * (1.0 - 1e-9) &&
           free < std::max(first.free, second.free) * (1.0 + 1e-9) && isStable(feed, point);
}

} // namespace reference
