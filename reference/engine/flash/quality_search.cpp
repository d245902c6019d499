#include "reference/engine/flash/quality_search.h"

#include "reference/engine/equilibrium/flash_tp.h"
#include "reference/engine/equilibrium/lever_rule.h"

#include <algorithm>
#include <cmath>

namespace reference {

namespace {

constexpr double met = 1e-12;       // of a vapor fraction
constexpr double goodEnough = 1e-9; // where the pressure has no digits for more

double massOf(const MixtureModel &model, double amount, const CompoundArray &x)
{
    double sum = 0.0;
    for (int i = 0; i < model.size; ++i)
        sum += x[i] * model.compounds[i].molecularWeight;
    return amount * sum;
}

} // namespace

double vaporPart(const MixtureModel &model, const FlashResult &state, FlashVariable variable)
{
    if (variable == FlashVariable::vaporFraction || state.phaseCount() == 1)
        return state.vaporFraction;
    const double vapor = state.vaporPresent ? massOf(model, state.vaporFraction, state.vapor) : 0.0;
    const double liquid = state.liquidPresent ? massOf(model, state.liquidFraction, state.liquid) : 0.0;
    const double liquid2 = state.liquid2Present ? massOf(model, state.liquid2Fraction, state.liquid2) : 0.0;
    return vapor / (vapor + liquid + liquid2);
}

// At the ends of the range any vapor is too much, and any liquid.
void QualitySearch::take(const FlashSpecification &at, double free, Sample &sample) const
{
    const bool atTemperature = at.variable == FlashVariable::temperature;
    const double other = std::exp(free);
    sample.free = free;
    sample.known = flashTP(feed.model, atTemperature ? at.value : other, atTemperature ? other : at.value,
                           feed.fractions(), feed.phases, sample.state) == FlashStatus::solved;
    if (!sample.known)
        return;
    sample.surplus = vaporPart(feed.model, sample.state, fraction.variable) - fraction.value;
    if (fraction.value == 0.0 && !sample.state.vaporPresent)
        sample.surplus = -1.0;
    if (fraction.value == 1.0 && sample.state.vaporPresent && sample.state.phaseCount() == 1)
        sample.surplus = 1.0;
}

bool QualitySearch::accept(const Sample &sample)
{
    const FlashResult &state = sample.state;
    if (!state.vaporPresent || state.phaseCount() < 2 || !(std::fabs(sample.surplus) < goodEnough))
        return false;
    result = state;
    if (fraction.value == 0.0 || fraction.value == 1.0) { // exactly
        const double rest = 1.0 - fraction.value;
        const double liquids = state.liquidFraction + state.liquid2Fraction;
        result.vaporFraction = fraction.value;
        result.liquidFraction = rest * (state.liquidFraction / liquids);
        result.liquid2Fraction = rest * (state.liquid2Fraction / liquids);
    }
    return true;
}

// Between samples with too little and too much vapor.
bool QualitySearch::close(const FlashSpecification &at, Sample &low, Sample &high)
{
    const bool moreVaporUpward = (high.surplus > 0.0);
    type =
        moreVaporUpward == (at.variable == FlashVariable::pressure) ? SolutionType::normal : SolutionType::retrograde;
    double lowWeight = 1.0;
    double highWeight = 1.0;
    const bool atEnd = fraction.value == 0.0 || fraction.value == 1.0;
    Sample middle;
    for (int step = 0; step < 100; ++step) {
        const double width = high.free - low.free;
        double part = 0.5;
        if (!atEnd && step % 4 != 3) // the method of Illinois
            part = lowWeight * low.surplus / (lowWeight * low.surplus - highWeight * high.surplus);
        take(at, low.free + part * width, middle);
        if (!middle.known)
            take(at, low.free + 0.45 * width, middle);
        if (!middle.known)
            return false;
        if (!atEnd && std::fabs(middle.surplus) < met && accept(middle))
            return true;
        const bool isLow = (middle.surplus > 0.0) == (low.surplus > 0.0);
        lowWeight = isLow ? 1.0 : 0.5 * lowWeight;
        highWeight = isLow ? 0.5 * highWeight : 1.0;
        (isLow ? low : high) = middle;
        if (high.free - low.free <= 2e-15 * std::max(1.0, std::fabs(high.free)))
            break;
    }
    if (accept(low) || accept(high))
        return true;
    const double part = low.surplus / (low.surplus - high.surplus);
    if (atEnd || !mixStates(feed, low.state, high.state, part, middle.state))
        return false;
    middle.surplus = vaporPart(feed.model, middle.state, fraction.variable) - fraction.value;
    return accept(middle);
}

bool QualitySearch::between(const FlashSpecification &at, double first, double second)
{
    Sample low;
    Sample high;
    take(at, std::log(std::min(first, second)), low);
    take(at, std::log(std::max(first, second)), high);
    return low.known && high.known && (low.surplus > 0.0) != (high.surplus > 0.0) && close(at, low, high);
}

bool QualitySearch::near(const FlashSpecification &at, double guess, SolutionType wanted)
{
    const bool atTemperature = at.variable == FlashVariable::temperature;
    const FlashLimits limits = flashLimitsOf(atTemperature ? FlashVariable::pressure : FlashVariable::temperature);
    const double lowest = std::log(limits.lowest);
    const double highest = std::log(limits.highest);
    Sample start;
    take(at, std::clamp(std::log(guess), lowest, highest), start);
    if (!start.known)
        return false;
    // Less vapor under more pressure and at less temperature, where that is normal.
    const bool upward = (start.surplus > 0.0) == atTemperature;
    for (const bool up : {upward, !upward}) {
        if (up != upward && wanted == SolutionType::normal)
            continue;
        if (up == upward && wanted == SolutionType::retrograde)
            continue;
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
            if ((next.surplus > 0.0) != (last.surplus > 0.0)) {
                if (up ? close(at, last, next) : close(at, next, last))
                    return true;
                break;
            }
            last = next;
        }
    }
    return false;
}

} // namespace reference
