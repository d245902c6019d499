#include "reference/engine/flash/quality_search.h"

#include "reference/engine/equilibrium/lever_rule.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace reference {

double vaporPart(const MixtureModel &model, const FlashResult &state, FlashVariable variable)
{
    if (variable == FlashVariable::vaporFraction || state.phaseCount() == 1)
        return state.vaporFraction;
    const auto massOf = [&](bool present, double amount, const CompoundArray &x) {
        return present ? amount * model.molecularWeight(x.data()) : 0.0;
    };
    const double vapor = massOf(state.vaporPresent, state.vaporFraction, state.vapor);
    const double liquid = massOf(state.liquidPresent, state.liquidFraction, state.liquid);
    const double liquid2 = massOf(state.liquid2Present, state.liquid2Fraction, state.liquid2);
    return vapor / (vapor + liquid + liquid2);
}

void QualitySearch::take(const FlashSpecification &at, double free, Sample &sample) const
{
    sample.free = free;
    sample.known = flashAt(feed, at, std::exp(free), sample.state) == FlashStatus::solved;
    if (sample.known)
        sample.surplus = surplusOf(sample.state, sample.state);
}

// How much vapor is too much. A fluid of one phase has the name of what its neighbor of two phases is about to be: next
// to a critical point its own may be another one.
double QualitySearch::surplusOf(const FlashResult &state, const FlashResult &neighbor) const
{
    if (state.phaseCount() == 1 && isBoth(neighbor))
        return (neighbor.vaporFraction > 0.5 ? 1.0 : 0.0) - fraction.value;
    return vaporPart(feed.model, state, fraction.variable) - fraction.value;
}

// Of states that are named alike.
bool QualitySearch::liesBetween(const FlashResult &one, const FlashResult &other) const
{
    if (isEnd())
        return isBoth(one) != isBoth(other);
    return (surplusOf(one, other) > 0.0) != (surplusOf(other, one) > 0.0);
}

// Where the vapor vanishes beside two liquids, one of these can be so thin that it has the vapor's name from there on:
// it gets the one that it has in the neighboring state of three phases.
void QualitySearch::nameAsNeighbor(FlashResult &state, const FlashResult &neighbor) const
{
    const int n = feed.size();
    if (state.phaseCount() != 2 || !state.vaporPresent || neighbor.phaseCount() != 3)
        return;
    const double fromLiquid = sumOfDifferences(n, state.vapor, neighbor.liquid);
    const double fromLiquid2 = sumOfDifferences(n, state.vapor, neighbor.liquid2);
    if (sumOfDifferences(n, state.vapor, neighbor.vapor) <= std::min(fromLiquid, fromLiquid2))
        return;
    const bool isFirst = fromLiquid < fromLiquid2;
    if (isFirst) {
        state.liquid2 = state.liquid;
        state.liquid2Fraction = state.liquidFraction;
    }
    (isFirst ? state.liquid : state.liquid2) = state.vapor;
    (isFirst ? state.liquidFraction : state.liquid2Fraction) = state.vaporFraction;
    state.liquid2Present = true;
    state.vaporPresent = false;
    state.vaporFraction = 0.0;
}

bool QualitySearch::differ(Sample &low, Sample &high) const
{
    nameAsNeighbor(low.state, high.state);
    nameAsNeighbor(high.state, low.state);
    if (!liesBetween(low.state, high.state))
        return false;
    low.surplus = surplusOf(low.state, high.state);
    high.surplus = surplusOf(high.state, low.state);
    return true;
}

// Between two samples, if the vapor fraction is.
bool QualitySearch::close(const FlashSpecification &at, Sample &low, Sample &high)
{
    if (!low.known || !high.known)
        return false;
    if (isEnd()) {
        enclose(at, low, high);
        return differ(low, high) && closeEnd(at, low, high);
    }
    if (isBoth(low.state) == isBoth(high.state))
        return differ(low, high) && closeInside(at, low, high);
    const Sample first = low;
    const Sample second = high;
    return (differ(low, high) && closeInside(at, low, high)) || closeBeforeGap(at, first, second);
}

// Where the vapor ends at once, as where another phase gets its name, there can be more of it before that than at both
// samples, of which one has it beside a liquid and the other not: goes there while it comes nearer.
bool QualitySearch::closeBeforeGap(const FlashSpecification &at, const Sample &low, const Sample &high)
{
    Sample inside = isBoth(low.state) ? low : high;
    Sample outside = isBoth(low.state) ? high : low;
    inside.surplus = surplusOf(inside.state, inside.state);
    Sample middle;
    constexpr int mostHalvings = 20;
    for (int halving = 0; halving < mostHalvings; ++halving) {
        take(at, 0.5 * (inside.free + outside.free), middle);
        if (!middle.known)
            return false;
        if (!isBoth(middle.state)) {
            outside = middle;
            continue;
        }
        if ((middle.surplus > 0.0) != (inside.surplus > 0.0))
            return inside.free < middle.free ? closeInside(at, inside, middle) : closeInside(at, middle, inside);
        if (std::fabs(middle.surplus) >= std::fabs(inside.surplus))
            return false;
        inside = middle;
    }
    return false;
}

bool QualitySearch::accept(const Sample &sample)
{
    if (!isBoth(sample.state) || !(std::fabs(sample.surplus) < acceptedResidual))
        return false;
    result = sample.state;
    return true;
}

// Between samples with too little and too much vapor.
bool QualitySearch::closeInside(const FlashSpecification &at, Sample &low, Sample &high)
{
    constexpr double met = 1e-12; // of a vapor fraction
    const bool moreVaporUpward = high.surplus > 0.0;
    type =
        moreVaporUpward == (at.variable == FlashVariable::pressure) ? SolutionType::normal : SolutionType::retrograde;
    double lowWeight = 1.0;
    double highWeight = 1.0;
    bool isSlow = false; // where there is no vapor, what is too little is the same everywhere
    Sample middle;
    for (int step = 0; step < 100; ++step) {
        const double width = high.free - low.free;
        double part = 0.5;
        if (!isSlow) // the method of Illinois
            part = lowWeight * low.surplus / (lowWeight * low.surplus - highWeight * high.surplus);
        take(at, low.free + part * width, middle);
        if (!middle.known)
            take(at, low.free + 0.45 * width, middle);
        if (!middle.known)
            return false;
        nameAsNeighbor(middle.state, low.state);
        nameAsNeighbor(middle.state, high.state);
        middle.surplus = surplusOf(middle.state, isBoth(low.state) ? low.state : high.state);
        if (std::fabs(middle.surplus) < met && accept(middle))
            return true;
        const bool isLow = (middle.surplus > 0.0) == (low.surplus > 0.0);
        isSlow = std::fabs(middle.surplus) > 0.5 * std::fabs((isLow ? low : high).surplus);
        lowWeight = isLow ? 1.0 : 0.5 * lowWeight;
        highWeight = isLow ? 0.5 * highWeight : 1.0;
        (isLow ? low : high) = middle;
        if (high.free - low.free <= edgeWidth * std::max(1.0, std::fabs(high.free)))
            break;
    }
    if (accept(low) || accept(high))
        return true;
    const double part = low.surplus / (low.surplus - high.surplus);
    if (!mixStates(feed, low.state, high.state, part, middle.state))
        return false;
    middle.surplus = vaporPart(feed.model, middle.state, fraction.variable) - fraction.value;
    return accept(middle);
}

bool QualitySearch::between(const FlashSpecification &at, const FlashResult &first, const FlashResult &second)
{
    const auto sampleOf = [&](const FlashResult &state) {
        return Sample{true, std::log(otherConditionOf(state, at.variable)), 0.0, state};
    };
    Sample low = sampleOf(first);
    Sample high = sampleOf(second);
    if (high.free < low.free)
        std::swap(low, high);
    return close(at, low, high);
}

bool QualitySearch::scan(const FlashSpecification &at, double first, double end, int intervals, int *from)
{
    const auto place = [&](int i) { return std::log(first) + std::log(end / first) * i / intervals; };
    int interval = from ? *from : 0;
    bool isFound = false;
    Sample last;
    take(at, place(interval), last);
    while (!isFound && interval < intervals) {
        Sample next;
        take(at, place(++interval), next);
        Sample low = first < end ? last : next;
        Sample high = first < end ? next : last;
        isFound = close(at, low, high);
        last = next;
    }
    if (from)
        *from = interval;
    return isFound;
}

bool QualitySearch::beside(const FlashSpecification &at, double guess, SolutionType wanted)
{
    const bool atTemperature = at.variable == FlashVariable::temperature;
    const FlashLimits limits = flashLimitsOf(otherCondition(at.variable));
    const double lowest = std::log(limits.lowest);
    const double highest = std::log(limits.highest);
    Sample start;
    take(at, std::clamp(std::log(guess), lowest, highest), start);
    if (!start.known)
        return false;
    for (const bool up : {!atTemperature, atTemperature}) { // mostly a liquid splits further, and has less vapor then
        Sample last = start;
        Sample next;
        double step = atTemperature ? 0.02 : 0.002;
        for (int i = 0; i < 14; ++i, step *= 1.7) {
            const double target = std::clamp(last.free + (up ? step : -step), lowest, highest);
            if (target == last.free)
                break;
            take(at, target, next);
            if (!next.known)
                break;
            Sample low = up ? last : next;
            Sample high = up ? next : last;
            if (close(at, low, high) && (wanted == SolutionType::unspecified || wanted == type))
                return true;
            last = next;
        }
    }
    return false;
}

} // namespace reference
