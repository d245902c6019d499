#include "reference/engine/phase/isotherm.h"

#include "reference/engine/eos/gas_constant.h"

#include <cmath>

namespace reference {

namespace {

// The product of two functions of temperature.
TemperatureFunction product(const TemperatureFunction &f, const TemperatureFunction &g)
{
    return {f.value * g.value, f.byT * g.value + f.value * g.byT,
            f.byTT * g.value + 2.0 * f.byT * g.byT + f.value * g.byTT,
            f.byTTT * g.value + 3.0 * (f.byTT * g.byT + f.byT * g.byTT) + f.value * g.byTTT};
}

TemperatureFunction exponential(const TemperatureFunction &f)
{
    const double value = std::exp(f.value);
    return {value, value * f.byT, value * (f.byTT + f.byT * f.byT),
            value * (f.byTTT + (3.0 * f.byTT + f.byT * f.byT) * f.byT)};
}

// 1 / (R T)
TemperatureFunction inverseThermal(double T)
{
    const double value = 1.0 / (gasConstant * T);
    return {value, -value / T, 2.0 * value / (T * T), -6.0 * value / (T * T * T)};
}

TemperatureFunction operator-(const TemperatureFunction &f, const TemperatureFunction &g)
{
    return {f.value - g.value, f.byT - g.byT, f.byTT - g.byTT, f.byTTT - g.byTTT};
}

void prepareCubic(const MixtureModel &model, Isotherm &isotherm)
{
    const double T = isotherm.temperature;
    const double root = std::sqrt(T);
    const double inverse = 0.5 / T;
    for (int i = 0; i < model.size; ++i) {
        const CompoundTerms &compound = model.compounds[i];
        const double reducedRoot = root * compound.inverseRootCriticalT;
        isotherm.s[i] = compound.attractionRoot * (1.0 + compound.attractionSlope * (1.0 - reducedRoot));
        isotherm.slope[i] = -compound.attractionRoot * compound.attractionSlope * reducedRoot * inverse;
        isotherm.curvature[i] = -isotherm.slope[i] * inverse;
    }
}

void prepareIdeal(const MixtureModel &model, Isotherm &isotherm)
{
    const double T = isotherm.temperature;
    const TemperatureFunction inverse = inverseThermal(T);
    for (int i = 0; i < model.size; ++i) {
        const CompoundTerms &compound = model.compounds[i];
        const TemperatureFunction logPressure = compound.saturationPressure.logarithm(T);
        isotherm.volume[i] = product(compound.liquidVolume.volume(T), inverse);
        isotherm.saturation[i] = logPressure - product(isotherm.volume[i], exponential(logPressure));
    }
}

} // namespace

Isotherm::Isotherm(const MixtureModel &model, double kelvin) : temperature(kelvin)
{
    model.isIdeal() ? prepareIdeal(model, *this) : prepareCubic(model, *this);
}

} // namespace reference
