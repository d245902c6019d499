#include "reference/engine/flash/quality_search.h"

#include "reference/engine/equilibrium/lever_rule.h"
#include "reference/engine/flash/vapor_liquid_point.h"
#include "reference/engine/phase/phase_evaluation.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace reference {

namespace {

constexpr double met = 1e-12;       // of a vapor fraction
constexpr double edgeWidth = 2e-15; // of the logarithm of a temperature or pressure

bool isBoth(const FlashResult &state) { return state.vaporPresent && state.phaseCount() > 1; }

// Where the vapor vanishes beside two liquids, one of these can be so thin that it has the vapor's name from there on:
// it gets the one that it has in the neighboring state of three phases.
void nameAsNeighbor(int n, FlashResult &state, const FlashResult &neighbor)
{
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

} // namespace

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

bool QualitySearch::differ(Sample &low, Sample &high) const
{
    nameAsNeighbor(feed.size(), low.state, high.state);
    nameAsNeighbor(feed.size(), high.state, low.state);
    if (!liesBetween(low.state, high.state))
        return false;
    low.surplus = surplusOf(low.state, high.state);
    high.surplus = surplusOf(high.state, low.state);
    return true;
}

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

// Between two samples, if the vapor fraction is.
bool QualitySearch::close(const FlashSpecification &at, Sample &low, Sample &high)
{
    if (!low.known || !high.known)
        return false;
    if (isEnd())
        enclose(at, low, high);
    return differ(low, high) && (isEnd() ? closeEnd(at, low, high) : closeInside(at, low, high));
}

bool QualitySearch::accept(const Sample &sample)
{
    if (!isBoth(sample.state) || !(std::fabs(sample.surplus) < acceptedResidual))
        return false;
    result = sample.state;
    return true;
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
        nameAsNeighbor(feed.size(), middle.state, inside.state);
        (isBoth(middle.state) ? inside : outside) = middle;
    }
    return acceptEnd(inside, outside) || continueToEnd(at, inside);
}

// Between samples with too little and too much vapor.
bool QualitySearch::closeInside(const FlashSpecification &at, Sample &low, Sample &high)
{
    const bool moreVaporUpward = high.surplus > 0.0;
    type =
        moreVaporUpward == (at.variable == FlashVariable::pressure) ? SolutionType::normal : SolutionType::retrograde;
    double lowWeight = 1.0;
    double highWeight = 1.0;
    Sample middle;
    for (int step = 0; step < 100; ++step) {
        const double width = high.free - low.free;
        double part = 0.5;
        if (step % 4 != 3) // the method of Illinois
            part = lowWeight * low.surplus / (lowWeight * low.surplus - highWeight * high.surplus);
        take(at, low.free + part * width, middle);
        if (!middle.known)
            take(at, low.free + 0.45 * width, middle);
        if (!middle.known)
            return false;
        nameAsNeighbor(feed.size(), middle.state, low.state);
        nameAsNeighbor(feed.size(), middle.state, high.state);
        middle.surplus = surplusOf(middle.state, isBoth(low.state) ? low.state : high.state);
        if (std::fabs(middle.surplus) < met && accept(middle))
            return true;
        const bool isLow = (middle.surplus > 0.0) == (low.surplus > 0.0);
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

bool QualitySearch::scan(const FlashSpecification &at, double first, double end, int intervals)
{
    Sample last;
    take(at, std::log(first), last);
    for (int i = 1; i <= intervals; ++i) {
        Sample next;
        take(at, std::log(first) + std::log(end / first) * i / intervals, next);
        Sample low = first < end ? last : next;
        Sample high = first < end ? next : last;
        if (close(at, low, high))
            return true;
        last = next;
    }
    return false;
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
