#include "reference/engine/flash/quality_value.h"

#include "reference/engine/flash/quality_search.h"
#include "reference/engine/numerics/root_search.h"

#include <cmath>

namespace reference {

namespace {

constexpr double aimed = 1e-11;      // largest residual
constexpr double goodEnough = 3e-10; // where the fraction has no digits for more

class QualityIsotherms {
public:
    QualityIsotherms(const Feed &whole, const FlashSpecification &vaporFraction, const FlashSpecification &value,
                     FlashResult &answer)
        : feed(whole), fraction(vaporFraction), wanted(value), quality(whole, vaporFraction), result(answer)
    {
    }

    Probe probe(double at)
    {
        Probe probed;
        probed.at = at;
        if (!findPressure({FlashVariable::temperature, std::exp(at)}))
            return probed;
        result = quality.found();
        pressure = result.pressure;
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
    const FlashSpecification &fraction;
    const FlashSpecification &wanted;
    QualitySearch quality;
    FlashResult &result;
    double pressure = 0.0; // of the last state found

    bool findPressure(const FlashSpecification &at)
    {
        if (pressure > 0.0 && quality.near(at, pressure, SolutionType::unspecified))
            return true;
        constexpr double low = 1e2;
        return quality.scan(at, low, highestFlashPressure, 16);
    }
};

} // namespace

bool findByQuality(const Feed &feed, const FlashSpecification &fraction, const FlashSpecification &other,
                   FlashResult &result)
{
    QualityIsotherms isotherms(feed, fraction, other, result);
    RootSearch search(isotherms, std::log(lowestFlashTemperature), std::log(highestFlashTemperature));
    return search.scan(100) == SearchStatus::found;
}

} // namespace reference
