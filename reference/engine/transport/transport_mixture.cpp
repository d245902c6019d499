#include "reference/engine/transport/transport_mixture.h"

#include <cmath>

namespace reference {

TransportMixture::TransportMixture(const PhasePoint &of) : point(of), chung(of)
{
    const MixtureModel &model = point.model();
    for (int i = 0; i < model.size; ++i) {
        const PureTransport pure = pureTransport(model.compounds[i], model.equation, point.temperature());
        gasViscosities[i] = pure.gasViscosity;
        gasConductivities[i] = pure.gasConductivity;
        viscosityFactors[i] = pure.viscosityFactor;
        conductivityFactors[i] = pure.conductivityFactor;
    }
    gas.emplace(point, gasViscosities.data());
}

Dual TransportMixture::geometricMean(const DualArray &factors, const Direction &direction) const
{
    Dual sum;
    for (int i = 0; i < point.model().size; ++i) {
        const Dual logarithm = log(factors[i]);
        sum += point.fractions()[i] * Dual(logarithm.value, logarithm.slope * direction.ofTemperature());
    }
    if (direction.compound >= 0)
        sum.slope = std::log(factors[direction.compound].value) - sum.value;
    return exp(sum);
}

Dual TransportMixture::viscosity(const Direction &direction) const
{
    return gas->mean(gasViscosities.data(), direction) +
           geometricMean(viscosityFactors, direction) * chung.fluid(direction).viscosity().excess;
}

Dual TransportMixture::thermalConductivity(const Direction &direction) const
{
    const Dual heatCapacity = point.bulk(direction).idealHeatCapacity;
    return gas->mean(gasConductivities.data(), direction) +
           geometricMean(conductivityFactors, direction) * chung.fluid(direction).conductivity(heatCapacity).excess;
}

} // namespace reference
