#include "reference/engine/flash/vapor_liquid_point.h"

#include "reference/engine/eos/gas_constant.h"
#include "reference/engine/equilibrium/flash_tp.h"

#include <algorithm>
#include <cmath>

namespace reference {

bool areVaporAndLiquid(const Feed &feed, const TwoPhasePoint &point)
{
    if (!feed.model.isCubic())
        return true; // an ideal gas and a liquid never become one
    const PhaseState &vapor = point.vapor.state;
    const PhaseState &liquid = point.liquid.state;
    const double ratio = vapor.Z / liquid.Z;
    if (std::fabs(ratio - 1.0) < 1e-4 && (feed.size() == 1 || point.largestLnK(feed.size()) < 1e-4))
        return false;
    // Beyond a critical point the equations hold with the phases in each other's place, unless one of them stands at
    // one of several roots. A molecule's own volume is the measure of density, as for flashTP.
    if (vapor.severalRoots || liquid.severalRoots)
        return true;
    double vaporCovolume = 0.0;
    double liquidCovolume = 0.0;
    for (int i = 0; i < feed.size(); ++i) {
        vaporCovolume += point.y[i] * feed.model.compounds[i].covolume;
        liquidCovolume += point.x[i] * feed.model.compounds[i].covolume;
    }
    return ratio > vaporCovolume / liquidCovolume;
}

bool isWithinLimits(const Totals &totals)
{
    constexpr double slack = 1e-9;
    return totals.temperature > lowestFlashTemperature * (1.0 - slack) &&
           totals.temperature < highestFlashTemperature * (1.0 + slack) &&
           totals.pressure > lowestFlashPressure * (1.0 - slack) &&
           totals.pressure < highestFlashPressure * (1.0 + slack);
}

bool isStable(const Feed &feed, const TwoPhasePoint &point)
{
    FlashResult pair;
    FlashResult named;
    giveResult(feed, point, pair);
    if (nameStablePair(feed.model, pair, feed.fractions(), feed.phases, named))
        return named.vaporPresent && named.vaporFraction == pair.vaporFraction;
    // That is strict, and a flash takes longer.
    constexpr double metastable = 1e-8; // a Gibbs energy over R T too high by this is no round-off
    Equilibrium found;
    if (found.find(feed, point.totals.temperature, point.totals.pressure) != FlashStatus::solved)
        return false; // more phases than are allowed, or none that are known
    if (found.phases.phaseCount() > 1 && !found.phases.vaporPresent)
        return false; // two liquids
    const auto gibbsOf = [](const Totals &totals) {
        return totals.value(FlashVariable::gibbsEnergy) / (gasConstant * totals.temperature);
    };
    const double gibbs = gibbsOf(point.totals);
    return gibbsOf(found.totals) > gibbs - metastable * (1.0 + 1e-3 * std::fabs(gibbs));
}

void giveResult(const Feed &feed, const TwoPhasePoint &point, FlashResult &result)
{
    const int n = feed.size();
    result.temperature = point.totals.temperature;
    result.pressure = point.totals.pressure;
    result.clear();
    result.vaporPresent = true;
    result.liquidPresent = true;
    result.vaporFraction = point.vaporAmount(n);
    result.liquidFraction = point.liquidAmount(n);
    std::copy_n(point.y.begin(), n, result.vapor.begin());
    std::copy_n(point.x.begin(), n, result.liquid.begin());
}

} // namespace reference
