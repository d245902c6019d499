#include "reference/engine/equilibrium/totals.h"

#include "reference/engine/eos/gas_constant.h"

#include <cmath>
#include <limits>

namespace reference {

Totals Totals::of(const PhaseProperties &phase)
{
    return {.temperature = phase.temperature,
            .pressure = phase.state.pressure,
            .enthalpy = phase.enthalpy,
            .entropy = phase.entropy,
            .volume = phase.volume,
            .heatCapacity = phase.heatCapacity,
            .volumeByT = phase.volumeByT,
            .volumeByP = phase.volumeByP};
}

void Totals::add(double moles, const Totals &other)
{
    enthalpy += moles * other.enthalpy;
    entropy += moles * other.entropy;
    volume += moles * other.volume;
    heatCapacity += moles * other.heatCapacity;
    volumeByT += moles * other.volumeByT;
    volumeByP += moles * other.volumeByP;
}

double Totals::value(FlashVariable variable) const
{
    switch (variable) {
    case FlashVariable::temperature:
        return temperature;
    case FlashVariable::pressure:
        return pressure;
    case FlashVariable::enthalpy:
        return enthalpy;
    case FlashVariable::entropy:
        return entropy;
    case FlashVariable::volume:
        return volume;
    case FlashVariable::internalEnergy:
        return enthalpy - pressure * volume;
    case FlashVariable::gibbsEnergy:
        return enthalpy - temperature * entropy;
    case FlashVariable::helmholtzEnergy:
        return enthalpy - pressure * volume - temperature * entropy;
    case FlashVariable::vaporFraction:
    case FlashVariable::vaporMassFraction:
        break;
    }
    return std::numeric_limits<double>::quiet_NaN();
}

double Totals::byTemperature(FlashVariable variable) const
{
    switch (variable) {
    case FlashVariable::temperature:
        return 1.0;
    case FlashVariable::pressure:
        return 0.0;
    case FlashVariable::enthalpy:
        return heatCapacity;
    case FlashVariable::entropy:
        return heatCapacity / temperature;
    case FlashVariable::volume:
        return volumeByT;
    case FlashVariable::internalEnergy:
        return heatCapacity - pressure * volumeByT;
    case FlashVariable::gibbsEnergy:
        return -entropy;
    case FlashVariable::helmholtzEnergy:
        return -entropy - pressure * volumeByT;
    case FlashVariable::vaporFraction:
    case FlashVariable::vaporMassFraction:
        break;
    }
    return std::numeric_limits<double>::quiet_NaN();
}

double Totals::byPressure(FlashVariable variable) const
{
    switch (variable) {
    case FlashVariable::temperature:
        return 0.0;
    case FlashVariable::pressure:
        return 1.0;
    case FlashVariable::enthalpy:
        return volume - temperature * volumeByT;
    case FlashVariable::entropy:
        return -volumeByT;
    case FlashVariable::volume:
        return volumeByP;
    case FlashVariable::internalEnergy:
        return -temperature * volumeByT - pressure * volumeByP;
    case FlashVariable::gibbsEnergy:
        return volume;
    case FlashVariable::helmholtzEnergy:
        return -pressure * volumeByP;
    case FlashVariable::vaporFraction:
    case FlashVariable::vaporMassFraction:
        break;
    }
    return std::numeric_limits<double>::quiet_NaN();
}

double Totals::byOther(FlashVariable fixed, FlashVariable variable) const
{
    return fixed == FlashVariable::temperature ? pressure * byPressure(variable)
                                               : temperature * byTemperature(variable);
}

double scaleOf(const FlashSpecification &given, double temperature)
{
    switch (given.variable) {
    case FlashVariable::vaporFraction:
    case FlashVariable::vaporMassFraction:
        return 1.0;
    case FlashVariable::temperature:
    case FlashVariable::pressure:
    case FlashVariable::volume:
        return given.value;
    case FlashVariable::entropy:
        return std::fmax(std::fabs(given.value), gasConstant);
    default:
        return std::fmax(std::fabs(given.value), gasConstant * temperature);
    }
}

double residualOf(const Totals &totals, const FlashSpecification &wanted)
{
    const double value = totals.value(wanted.variable);
    if (wanted.variable == FlashVariable::volume)
        return std::log(value / wanted.value);
    return (value - wanted.value) / scaleOf(wanted, totals.temperature);
}

double unitOf(const Totals &totals, const FlashSpecification &wanted)
{
    return wanted.variable == FlashVariable::volume ? 1.0 / totals.volume : 1.0 / scaleOf(wanted, totals.temperature);
}

} // namespace reference
