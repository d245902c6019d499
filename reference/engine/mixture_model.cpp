#include "reference/engine/mixture_model.h"

#include <cmath>

namespace reference {

namespace {

CompoundTerms termsOf(const CompoundData &compound, EquationOfState equation)
{
    const CubicConstants &constants = cubicConstants(equation);
    const double thermal = gasConstant * compound.criticalTemperature;
    const double omega = compound.acentricFactor;
    return {.data = &compound,
            .molecularWeight = compound.molecularWeight,
            .criticalTemperature = compound.criticalTemperature,
            .criticalPressure = compound.criticalPressure,
            .acentricFactor = omega,
            .attractionRoot = thermal * std::sqrt(constants.omegaA / compound.criticalPressure),
            .attractionSlope = alphaSlope(equation, omega),
            .inverseRootCriticalT = 1.0 / std::sqrt(compound.criticalTemperature),
            .covolume = constants.omegaB * thermal / compound.criticalPressure,
            .idealGasHeatCapacity = compound.idealGasHeatCapacity,
            .saturationPressure = SaturationPressure(compound),
            .liquidVolume = LiquidVolume(compound)};
}

} // namespace

MixtureModel MixtureModel::of(std::span<const CompoundData *const> list, EquationOfState equation)
{
    MixtureModel model;
    model.equation = equation;
    model.size = static_cast<int>(list.size());
    for (int i = 0; i < model.size; ++i) {
        model.compounds[i] = termsOf(*list[i], equation);
        for (int j = 0; j < model.size; ++j)
            model.pairFactor[i + model.size * j] = 1.0 - interactionParameter(list[i]->id, list[j]->id, equation);
    }
    return model;
}

MixtureModel MixtureModel::subset(std::span<const int> members) const
{
    MixtureModel chosen;
    chosen.equation = equation;
    chosen.size = static_cast<int>(members.size());
    for (int i = 0; i < chosen.size; ++i) {
        chosen.compounds[i] = compounds[members[i]];
        for (int j = 0; j < chosen.size; ++j)
            chosen.pairFactor[i + chosen.size * j] = pairFactor[members[i] + size * members[j]];
    }
    return chosen;
}

} // namespace reference
