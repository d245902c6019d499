#include "reference/engine/mixture_model.h"

#include <cmath>

namespace reference {

namespace {

// Peng, Robinson, Ind. Eng. Chem. Fundam. 15 (1976) 59. The constants of the critical point are
// given there as 0.45724 and 0.07780; these are the same with all digits.
constexpr double omegaA = 0.457235528921;
constexpr double omegaB = 0.0777960739039;

CompoundTerms termsOf(const CompoundData &compound)
{
    const double thermal = gasConstant * compound.criticalTemperature;
    const double omega = compound.acentricFactor;
    return {.molecularWeight = compound.molecularWeight,
            .criticalTemperature = compound.criticalTemperature,
            .criticalPressure = compound.criticalPressure,
            .acentricFactor = omega,
            .attractionRoot = thermal * std::sqrt(omegaA / compound.criticalPressure),
            .attractionSlope = 0.37464 + (1.54226 - 0.26992 * omega) * omega,
            .inverseRootCriticalT = 1.0 / std::sqrt(compound.criticalTemperature),
            .covolume = omegaB * thermal / compound.criticalPressure,
            .idealGasHeatCapacity = compound.idealGasHeatCapacity};
}

} // namespace

MixtureModel MixtureModel::of(std::span<const CompoundData *const> list)
{
    MixtureModel model;
    model.size = static_cast<int>(list.size());
    for (int i = 0; i < model.size; ++i) {
        model.compounds[i] = termsOf(*list[i]);
        for (int j = 0; j < model.size; ++j)
            model.pairFactor[i + model.size * j] = 1.0 - interactionParameter(list[i]->id, list[j]->id);
    }
    return model;
}

MixtureModel MixtureModel::subset(std::span<const int> members) const
{
    MixtureModel chosen;
    chosen.size = static_cast<int>(members.size());
    for (int i = 0; i < chosen.size; ++i) {
        chosen.compounds[i] = compounds[members[i]];
        for (int j = 0; j < chosen.size; ++j)
            chosen.pairFactor[i + chosen.size * j] = pairFactor[members[i] + size * members[j]];
    }
    return chosen;
}

} // namespace reference
