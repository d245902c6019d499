#include "reference/engine/transport/pure_transport.h"

#include "reference/engine/phase/saturated_volume.h"

#include <algorithm>
#include <cmath>

namespace reference {

namespace {

// As parts of the critical temperature: up to where saturated phases of a cubic equation are told apart, and where its
// shift makes the liquid as dense as it is.
constexpr double nearestToCritical = 0.97;
constexpr double trueDensity = 0.7;

// A temperature moved into the range of a correlation.
Dual within(const TransportCorrelation &correlation, double highest, double T)
{
    const double end = std::min(correlation.highest, highest);
    return T < correlation.lowest ? correlation.lowest : T > end ? Dual(end) : Dual(T, 1.0);
}

// Of the ideal gas.
Dual heatCapacity(const CompoundTerms &compound, Dual T)
{
    const HeatCapacityTerms &terms = compound.idealGasHeatCapacity;
    return {idealGasHeatCapacity(terms, T.value), T.slope * idealGasHeatCapacitySlope(terms, T.value)};
}

struct GasPair {
    Dual viscosity;
    Dual conductivity;
};

// As ChungFluid has the thin gas.
GasPair estimatedGas(const CompoundTerms &compound, Dual T)
{
    const ChungFluid gas = ChungFluid::ofCompound(*compound.data, T, 1.0); // of any density
    return {gas.viscosity().gas, gas.conductivity(heatCapacity(compound, T)).gas};
}

Dual scaledTo(const TransportCorrelation &correlation, double T, const CompoundTerms &compound, Dual GasPair::*property)
{
    const Dual estimate = estimatedGas(compound, {T, 1.0}).*property;
    if (!correlation.isKnown())
        return estimate;
    const Dual inside = within(correlation, correlation.highest, T);
    if (inside.value == T)
        return correlation.at(inside);
    return estimate * (correlation.at(inside).value / (estimatedGas(compound, inside).*property).value);
}

Dual gasViscosityAt(const CompoundTerms &compound, double T)
{
    return scaledTo(compound.data->transport.gasViscosity, T, compound, &GasPair::viscosity);
}
Dual gasConductivityAt(const CompoundTerms &compound, double T)
{
    return scaledTo(compound.data->transport.gasConductivity, T, compound, &GasPair::conductivity);
}

// A function of T by another function's inner derivative.
Dual chained(Dual byT, Dual T) { return {byT.value, byT.slope * T.slope}; }

// What is scaled to the saturated liquid makes good for the density that a cubic equation misses near the critical
// point. Beyond, that error fades, and what was made good for it goes back to what it is at true densities.
template <typename Function> Dual fading(const CompoundTerms &compound, double T, Function atSaturation)
{
    const double last = nearestToCritical * compound.criticalTemperature;
    if (T <= last)
        return atSaturation(T);
    const double length = 0.1 * compound.criticalTemperature;
    const double end = atSaturation(trueDensity * compound.criticalTemperature).value;
    const double rest = (atSaturation(last).value - end) * std::exp((last - T) / length);
    return {end + rest, -rest / length};
}

struct SaturatedFluid {
    Dual T; // as near to the temperature as the correlation goes
    ChungFluid liquid;

    SaturatedFluid(const TransportCorrelation &correlation, const CompoundTerms &compound, EquationOfState equation,
                   double kelvin)
        : T(within(correlation, nearestToCritical * compound.criticalTemperature, kelvin)),
          liquid(ChungFluid::ofCompound(*compound.data, T,
                                        1.0 / chained(saturatedVolumes(compound, equation, T.value).liquid, T)))
    {
    }
};

Dual viscosityFactor(const CompoundTerms &compound, EquationOfState equation, double kelvin)
{
    const TransportCorrelation &correlation = compound.data->transport.liquidViscosity;
    if (!correlation.isKnown())
        return 1.0;
    const SaturatedFluid fluid(correlation, compound, equation, kelvin);
    const Dual gas = chained(gasViscosityAt(compound, fluid.T.value), fluid.T);
    return (correlation.at(fluid.T) - gas) / fluid.liquid.viscosity().excess;
}

Dual conductivityFactor(const CompoundTerms &compound, EquationOfState equation, double kelvin)
{
    const TransportCorrelation &correlation = compound.data->transport.liquidConductivity;
    if (!correlation.isKnown())
        return 1.0;
    const SaturatedFluid fluid(correlation, compound, equation, kelvin);
    const Dual gas = chained(gasConductivityAt(compound, fluid.T.value), fluid.T);
    return (correlation.at(fluid.T) - gas) / fluid.liquid.conductivity(heatCapacity(compound, fluid.T)).excess;
}

} // namespace

PureTransport pureTransport(const CompoundTerms &compound, EquationOfState equation, double kelvin)
{
    const auto faded = [&](auto factor) {
        return fading(compound, kelvin, [&](double T) { return factor(compound, equation, T); });
    };
    return {gasViscosityAt(compound, kelvin), gasConductivityAt(compound, kelvin), faded(viscosityFactor),
            faded(conductivityFactor)};
}

Dual parachorAt(const CompoundTerms &compound, EquationOfState equation, double kelvin)
{
    const TransportCorrelation &correlation = compound.data->transport.surfaceTension;
    if (!correlation.isKnown())
        return compound.data->parachor;
    return fading(compound, kelvin, [&](double at) {
        const Dual T = within(correlation, nearestToCritical * compound.criticalTemperature, at);
        const SaturatedVolumes volumes = saturatedVolumes(compound, equation, T.value);
        return pow(correlation.at(T), 0.25) / (1.0 / chained(volumes.liquid, T) - 1.0 / chained(volumes.vapor, T));
    });
}

} // namespace reference
