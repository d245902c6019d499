#include "reference/engine/flash/fraction_place.h"

#include "reference/engine/flash/quality_search.h"

#include <algorithm>
#include <cmath>

namespace reference {

double FractionPlace::largest() const { return std::max(std::fabs(residual[0]), std::fabs(residual[1])); }

bool FractionPlace::evaluate(const Feed &feed, const FlashSpecification &fraction, const FlashSpecification &other)
{
    const double temperature = std::exp(lnT);
    const double pressure = std::exp(lnP);
    if (!flashLimitsOf(FlashVariable::temperature).contain(temperature) ||
        !flashLimitsOf(FlashVariable::pressure).contain(pressure) ||
        equilibrium.find(feed, temperature, pressure) != FlashStatus::solved || !equilibrium.phases.vaporPresent ||
        equilibrium.phases.phaseCount() < 2)
        return false;
    const Equilibrium::Growth &growth =
        fraction.variable == FlashVariable::vaporMassFraction ? equilibrium.vaporMass : equilibrium.vaporMoles;
    residual[0] = vaporPart(feed.model, equilibrium.phases, fraction.variable) - fraction.value;
    byT[0] = temperature * growth.byT;
    byP[0] = pressure * growth.byP;
    residual[1] = residualOf(equilibrium.totals, other);
    const double unit = unitOf(equilibrium.totals, other);
    byT[1] = unit * temperature * equilibrium.totals.byTemperature(other.variable);
    byP[1] = unit * pressure * equilibrium.totals.byPressure(other.variable);
    return std::isfinite(residual[0]) && std::isfinite(residual[1]);
}

} // namespace reference
