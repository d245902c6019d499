#include "reference/engine/phase/isotherm.h"

#include "reference/engine/eos/gas_constant.h"

#include <cmath>

namespace reference {

namespace {

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
        if (isotherm.s[i] < 0.0) { // beyond where alpha is zero: the root of a alpha is the positive one
            isotherm.s[i] = -isotherm.s[i];
            isotherm.slope[i] = -isotherm.slope[i];
            isotherm.curvature[i] = -isotherm.curvature[i];
        }
        isotherm.b[i] = compound.covolume;
    }
}

void prepareSaturation(const MixtureModel &model, Isotherm &isotherm)
{
    const double T = isotherm.temperature;
    const TemperatureFunction inverse = overTemperature(1.0 / gasConstant, T); // 1 / (R T)
    for (int i = 0; i < model.size; ++i) {
        const CompoundTerms &compound = model.compounds[i];
        const TemperatureFunction logPressure = compound.saturationPressure.logarithm(T);
        isotherm.volume[i] = compound.liquidVolume.volume(T) * inverse;
        isotherm.saturation[i] = logPressure - isotherm.volume[i] * exp(logPressure);
    }
    if (model.equation == EquationOfState::nrtl)
        isotherm.local.prepare(model.size, model.nrtl, T);
}

} // namespace

Isotherm::Isotherm(const MixtureModel &model, double kelvin) : temperature(kelvin)
{
    model.isCubic() ? prepareCubic(model, *this) : prepareSaturation(model, *this);
}

} // namespace reference
