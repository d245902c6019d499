#include "reference/engine/flash/quality_value.h"

#include "reference/engine/flash/quality_newton.h"
#include "reference/engine/flash/quality_search.h"
#include "reference/engine/numerics/root_search.h"

#include <cmath>

namespace reference {

namespace {

constexpr double aimed = 1e-11; // largest residual

// What a variable misses its value by along states of the vapor fraction, by the logarithm of the inverse
// temperature or of the pressure: from where it is warm, as flashes of what would be solid take long.
class QualityStates {
public:
    QualityStates(const Feed &whole, FlashVariable condition, const FlashSpecification &vaporFraction,
                  const FlashSpecification &value, FlashResult &answer)
        : feed(whole), along(condition), fraction(vaporFraction), wanted(value), quality(whole, vaporFraction),
          result(answer)
    {
    }

    Probe probe(double at)
    {
        Probe probed;
        probed.at = at;
        if (!findOther({along, std::exp(along == FlashVariable::temperature ? -at : at)}))
            return probed;
        other = otherConditionOf(result, along);
        Equilibrium now;
        now.phases = result;
        now.findTotals(feed);
        probed.residual = residualOf(now.totals, wanted);
        probed.known = std::isfinite(probed.residual);
        probed.met = std::fabs(probed.residual) < aimed;
        return probed;
    }

    bool cross(const Probe &a, const Probe &b)
    {
        const Probe &better = std::fabs(a.residual) < std::fabs(b.residual) ? a : b;
        return std::fabs(better.residual) < acceptedResidual && probe(better.at).known;
    }

private:
    const Feed &feed;
    const FlashVariable along;
    const FlashSpecification &fraction;
    const FlashSpecification &wanted;
    QualitySearch quality;
    FlashResult &result;
    double other = 0.0; // pressure or temperature of the last state found

    bool findOther(const FlashSpecification &at)
    {
        SolutionType type = SolutionType::normal;
        if (other > 0.0 && findFractionNear(feed, fraction, at, bothConditions(at, other), result, type))
            return true;
        const bool found = (other > 0.0 && quality.beside(at, other, SolutionType::unspecified)) ||
                           (along == FlashVariable::temperature
                                ? quality.scan(at, lowestSearchPressure, highestFlashPressure, 16)
                                : quality.scan(at, highestFlashTemperature, coldestWithPhases(feed), 48));
        if (found)
            result = quality.found();
        return found;
    }
};

} // namespace

bool findByQuality(const Feed &feed, const FlashSpecification &fraction, const FlashSpecification &other,
                   FlashResult &result)
{
    // States of nearly one fraction can fill a wide range of pressures and a narrow one of temperatures, or the other
    // way.
    bool hopeless = false;
    const auto search = [&](FlashVariable along, double lowest, double highest, int intervals) {
        QualityStates states(feed, along, fraction, other, result);
        RootSearch values(states, std::log(lowest), std::log(highest));
        const bool found = values.scan(intervals) == SearchStatus::found;
        hopeless = values.sawValue() && values.isHopeless();
        return found;
    };
    return search(FlashVariable::temperature, 1.0 / highestFlashTemperature, 1.0 / coldestWithPhases(feed), 60) ||
           (!hopeless && search(FlashVariable::pressure, lowestSearchPressure, highestFlashPressure, 60));
}

} // namespace reference
