#include "reference/engine/flash/quality_value.h"

#include "reference/engine/flash/quality_search.h"
#include "reference/engine/numerics/root_search.h"

#include <cmath>

namespace reference {

namespace {

constexpr double aimed = 1e-11;        // largest residual
constexpr double goodEnough = 3e-10;   // where the fraction has no digits for more
constexpr double lowestPressure = 1e2; // that is looked at, Pa

// What a variable misses its value by along states of the vapor fraction, by the logarithm of the inverse
// temperature or of the pressure: from where it is warm, as flashes of what would be solid take long.
class QualityStates {
public:
    QualityStates(const Feed &whole, FlashVariable condition, const FlashSpecification &vaporFraction,
                  const FlashSpecification &value, FlashResult &answer)
        : feed(whole), along(condition), wanted(value), quality(whole, vaporFraction), result(answer)
    {
    }

    Probe probe(double at)
    {
        Probe probed;
        probed.at = at;
        if (!findOther({along, std::exp(along == FlashVariable::temperature ? -at : at)}))
            return probed;
        result = quality.found();
        other = along == FlashVariable::temperature ? result.pressure : result.temperature;
        Equilibrium now;
        now.phases = result;
        now.findTotals(feed);
        probed.residual = (now.totals.value(wanted.variable) - wanted.value) / scaleOf(wanted, result.temperature);
        if (wanted.variable == FlashVariable::volume)
            probed.residual = std::log(now.totals.volume / wanted.value);
        probed.known = std::isfinite(probed.residual);
        probed.met = std::fabs(probed.residual) < aimed;
        return probed;
    }

    bool cross(const Probe &a, const Probe &b)
    {
        const Probe &better = std::fabs(a.residual) < std::fabs(b.residual) ? a : b;
        return std::fabs(better.residual) < goodEnough && probe(better.at).known;
    }

private:
    const Feed &feed;
    const FlashVariable along;
    const FlashSpecification &wanted;
    QualitySearch quality;
    FlashResult &result;
    double other = 0.0; // pressure or temperature of the last state found

    bool findOther(const FlashSpecification &at)
    {
        if (other > 0.0 && quality.near(at, other, SolutionType::unspecified))
            return true;
        return along == FlashVariable::temperature
                   ? quality.scan(at, lowestPressure, highestFlashPressure, 16)
                   : quality.scan(at, highestFlashTemperature, lowestFlashTemperature, 48);
    }
};

} // namespace

bool findByQuality(const Feed &feed, const FlashSpecification &fraction, const FlashSpecification &other,
                   FlashResult &result)
{
    // States of nearly one fraction can fill a wide range of pressures and a narrow one of temperatures, or the other
    // way.
    const auto search = [&](FlashVariable along, double lowest, double highest, int intervals) {
        QualityStates states(feed, along, fraction, other, result);
        return RootSearch(states, std::log(lowest), std::log(highest)).scan(intervals) == SearchStatus::found;
    };
    return search(FlashVariable::temperature, 1.0 / highestFlashTemperature, 1.0 / lowestFlashTemperature, 100) ||
           search(FlashVariable::pressure, lowestPressure, highestFlashPressure, 60);
}

} // namespace reference
