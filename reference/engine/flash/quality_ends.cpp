// The ends of the range of vapor fractions, where a state has vapor and liquid and the one next to it not both.
#include "reference/engine/flash/quality_search.h"
#include "reference/engine/flash/vapor_liquid_point.h"
#include "reference/engine/phase/phase_evaluation.h"

#include <algorithm>
#include <cmath>

namespace reference {

// Between a liquid and a vapor of all the feed there mostly are both, in a narrow range perhaps, with an end on either
// side: leaves the samples on two sides of the one that is wanted.
void QualitySearch::enclose(const FlashSpecification &at, Sample &low, Sample &high) const
{
    const auto isAllVapor = [](const Sample &sample) {
        return sample.state.vaporPresent && sample.state.phaseCount() == 1;
    };
    const auto isAllLiquid = [](const Sample &sample) { return !sample.state.vaporPresent; };
    const bool vaporIsLow = isAllVapor(low);
    Sample &vapor = vaporIsLow ? low : high;
    Sample &liquid = vaporIsLow ? high : low;
    if (!isAllVapor(vapor) || !isAllLiquid(liquid))
        return;
    constexpr int mostHalvings = 20;
    Sample middle;
    for (int halving = 0; halving < mostHalvings; ++halving) {
        take(at, 0.5 * (low.free + high.free), middle);
        if (!middle.known)
            return;
        if (isBoth(middle.state)) {
            (fraction.value == 0.0 ? vapor : liquid) = middle;
            return;
        }
        (middle.state.vaporPresent ? vapor : liquid) = middle;
    }
}

// Whether two phases are far from becoming one, where substitution would stop on its way to that.
bool QualitySearch::differ(const CompoundArray &one, const CompoundArray &other) const
{
    constexpr double least = 0.02; // difference of the logarithms of a compound's fractions
    for (int i = 0; i < feed.size(); ++i)
        if (std::fabs(std::log(one[i] / other[i])) > least)
            return true;
    return false;
}

// Makes a phase have the fugacities that the state next to it has; it nearly does.
bool QualitySearch::polish(const FlashResult &outside, Root root, CompoundArray &x) const
{
    const int n = feed.size();
    const Isotherm isotherm(feed.model, outside.temperature);
    PhaseState state;
    CompoundArray potential;
    const CompoundArray &whole = outside.vaporPresent ? outside.vapor : outside.liquid;
    const Root wholeRoot = outside.phaseCount() == 1 ? Root::stable : Root::liquid;
    evaluatePhase(feed.model, isotherm, outside.pressure, whole.data(), wholeRoot, state);
    for (int i = 0; i < n; ++i)
        potential[i] = std::log(whole[i]) + state.lnPhi[i];
    constexpr int mostSteps = 1000; // next to a critical point many are needed
    constexpr double equalFugacity = 1e-11;
    double change = 1.0;
    for (int step = 0; step < mostSteps && change > equalFugacity; ++step) {
        evaluatePhase(feed.model, isotherm, outside.pressure, x.data(), root, state);
        double sum = 0.0;
        change = 0.0;
        for (int i = 0; i < n; ++i) {
            const double next = std::exp(potential[i] - state.lnPhi[i]);
            change = std::max(change, std::fabs(std::log(next / x[i])));
            sum += x[i] = next;
        }
        for (int i = 0; i < n; ++i)
            x[i] /= sum;
    }
    return change < 0.5 * acceptedResidual; // the promise is for all phases together
}

// Next to a critical point the amounts have few digits, and flashes end somewhat before the phases do. Newton's method
// goes on from the last one, where there is one liquid.
bool QualitySearch::continueToEnd(const FlashSpecification &at, const Sample &inside)
{
    const int n = feed.size();
    const FlashResult &last = inside.state;
    if (last.liquid2Present || !last.liquidPresent)
        return false;
    TwoPhasePoint point;
    point.setPhases(n, last);
    point.setAmounts(n, fraction.value, 1.0 - fraction.value);
    if (!solvePoint(feed, point, Closing::of(fraction), Closing::of(at)) || !areVaporAndLiquid(feed, point))
        return false;
    constexpr double nearby = 1e-3;
    const double free = std::log(otherConditionOf(point.totals, at.variable));
    if (!(std::fabs(free - inside.free) < nearby) || !isStable(feed, point))
        return false;
    giveResult(feed, point, result);
    result.vaporFraction = fraction.value;
    result.liquidFraction = 1.0 - fraction.value;
    return true;
}

// At the ends of the range the balance is that of what lies outside, where the phase of no amount is not there.
bool QualitySearch::acceptEnd(const Sample &inside, const Sample &outside)
{
    const FlashResult &beyond = outside.state;
    constexpr double smallest = 1e-5; // next to a critical point the last amounts that flashes find
    const bool vanishes = std::fabs(inside.surplus) < smallest;
    result = inside.state;
    result.temperature = beyond.temperature;
    result.pressure = beyond.pressure;
    if (fraction.value == 0.0) {
        // Where two compounds are in three phases a liquid becomes vapor at once, whatever its amount: then the vapor
        // is the phase that boiling begins with if it has the fugacities of the liquids there.
        if (vanishes ? result.liquid2Present != beyond.liquid2Present : beyond.vaporPresent)
            return false;
        result.liquid2Present = beyond.liquid2Present;
        result.vaporFraction = 0.0;
        result.liquidFraction = result.liquid2Present ? beyond.liquidFraction : 1.0;
        result.liquid2Fraction = result.liquid2Present ? beyond.liquid2Fraction : 0.0;
        result.liquid = beyond.vaporPresent ? beyond.vapor : beyond.liquid;
        result.liquid2 = beyond.liquid2;
        return polish(beyond, Root::vapor, result.vapor) && differ(result.vapor, result.liquid) &&
               (!result.liquid2Present || differ(result.vapor, result.liquid2));
    }
    if (!vanishes || beyond.phaseCount() != 1)
        return false;
    result.vapor = beyond.vaporPresent ? beyond.vapor : beyond.liquid;
    result.vaporFraction = 1.0;
    result.liquidFraction = result.liquid2Fraction = 0.0;
    const auto good = [&](bool present, CompoundArray &liquid) {
        return !present || (polish(beyond, Root::liquid, liquid) && differ(result.vapor, liquid));
    };
    return good(result.liquidPresent, result.liquid) && good(result.liquid2Present, result.liquid2);
}

// Between samples of which one has vapor with liquid, and the other not both.
bool QualitySearch::closeEnd(const FlashSpecification &at, Sample &low, Sample &high)
{
    const bool insideIsLow = isBoth(low.state);
    Sample &inside = insideIsLow ? low : high;
    Sample &outside = insideIsLow ? high : low;
    // Vapor comes with lower pressure or higher temperature, liquid the other way, where that is normal.
    const bool thinner = insideIsLow == (at.variable == FlashVariable::temperature);
    type = thinner == (fraction.value == 0.0) ? SolutionType::normal : SolutionType::retrograde;
    Sample middle;
    while (high.free - low.free > edgeWidth * std::max(1.0, std::fabs(high.free))) {
        take(at, 0.5 * (low.free + high.free), middle);
        if (!middle.known || middle.free == low.free || middle.free == high.free)
            break;
        nameAsNeighbor(middle.state, inside.state);
        (isBoth(middle.state) ? inside : outside) = middle;
    }
    return acceptEnd(inside, outside) || continueToEnd(at, inside);
}

} // namespace reference
