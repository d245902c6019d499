#include "reference/engine/phase/mixture_model.h"

#include "reference/engine/compounds/nrtl.h"
#include "reference/engine/eos/cubic.h"
#include "reference/engine/eos/gas_constant.h"

#include <cmath>

namespace reference {

namespace {

// By what a cubic equation misses the volume of the saturated liquid at 0.7 Tc; zero where that volume
// isn't known.
double volumeShift(const CompoundTerms &compound, EquationOfState equation)
{
    const double T = 0.7 * compound.criticalTemperature;
    const double P = std::exp(compound.saturationPressure.logarithm(T).value);
    const double shift = cubicVolumes(compound, equation, T, P).liquid - compound.liquidVolume.volume(T).value;
    return std::isfinite(shift) ? shift : 0.0;
}

CompoundTerms termsOf(const CompoundData &compound, EquationOfState equation)
{
    const CubicConstants &constants = cubicConstants(equation);
    const double thermal = gasConstant * compound.criticalTemperature;
    const double omega = compound.acentricFactor;
    CompoundTerms terms{.data = &compound,
                        .molecularWeight = compound.molecularWeight,
                        .criticalTemperature = compound.criticalTemperature,
                        .criticalPressure = compound.criticalPressure,
                        .acentricFactor = omega,
                        .attractionRoot = thermal * std::sqrt(constants.omegaA / compound.criticalPressure),
                        .attractionSlope = alphaSlope(equation, omega),
                        .inverseRootCriticalT = 1.0 / std::sqrt(compound.criticalTemperature),
                        .covolume = constants.omegaB * thermal / compound.criticalPressure,
                        .idealGasHeatCapacity = compound.idealGasHeatCapacity,
                        .volumeShift = 0.0,
                        .saturationPressure = SaturationPressure(compound),
                        .liquidVolume = LiquidVolume(compound)};
    if (isCubicEquation(equation))
        terms.volumeShift = volumeShift(terms, equation);
    return terms;
}

} // namespace

CubicVolumes cubicVolumes(const CompoundTerms &compound, EquationOfState equation, double T, double P)
{
    const double thermal = gasConstant * T;
    const double reducedRoot = std::sqrt(T) * compound.inverseRootCriticalT;
    const double s = compound.attractionRoot * (1.0 + compound.attractionSlope * (1.0 - reducedRoot));
    const CompressibilityRoots roots = solveCompressibility(cubicConstants(equation), s * s * P / (thermal * thermal),
                                                            compound.covolume * P / thermal);
    return {roots.liquid * thermal / P + compound.covolume, roots.vapor * thermal / P + compound.covolume};
}

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
    model.listInteracting();
    if (equation == EquationOfState::nrtl)
        for (int j = 0; j < model.size; ++j)
            for (int i = 0; i < model.size; ++i) {
                const NrtlParameters pair = nrtlParameters(list[i]->id, list[j]->id);
                model.nrtl.energy[i + model.size * j] = pair.energy;
                model.nrtl.nonrandomness[i + model.size * j] = pair.nonrandomness;
            }
    return model;
}

void MixtureModel::listInteracting()
{
    const int most = size * size / 8;
    interactingCount = 0;
    for (int j = 0; j < size; ++j)
        for (int i = 0; i < j; ++i) {
            const double factor = pairFactor[i + size * j];
            if (factor == 1.0)
                continue;
            if (interactingCount == most)
                return;
            interacting[interactingCount++] = {i, j, 1.0 - factor};
        }
    interactsLittle = true;
}

double MixtureModel::molecularWeight(const double *moleFractions) const
{
    double sum = 0.0;
    for (int i = 0; i < size; ++i)
        sum += moleFractions[i] * compounds[i].molecularWeight;
    return sum;
}

HeatCapacityTerms MixtureModel::heatCapacityTerms(const double *moleFractions) const
{
    HeatCapacityTerms sum{};
    for (int i = 0; i < size; ++i)
        for (std::size_t term = 0; term < sum.size(); ++term)
            sum[term] += moleFractions[i] * compounds[i].idealGasHeatCapacity[term];
    return sum;
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
    chosen.listInteracting();
    if (equation == EquationOfState::nrtl)
        for (int j = 0; j < chosen.size; ++j)
            for (int i = 0; i < chosen.size; ++i) {
                const int from = members[i] + size * members[j];
                chosen.nrtl.energy[i + chosen.size * j] = nrtl.energy[from];
                chosen.nrtl.nonrandomness[i + chosen.size * j] = nrtl.nonrandomness[from];
            }
    return chosen;
}

} // namespace reference
