#include "reference/engine/phase/phase_point.h"

#include "reference/engine/compounds/ideal_gas.h"
#include "reference/engine/eos/gas_constant.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace reference {

namespace {

constexpr double infinite = std::numeric_limits<double>::infinity();

// Of one mole from the elements at 298.15 K, J/mol/K.
double formationEntropy(const CompoundData &compound)
{
    return (compound.formationEnthalpy - compound.formationGibbsEnergy) / referenceTemperature;
}

PhaseState evaluatedPhase(const MixtureModel &model, const Isotherm &isotherm, double pressure, const double *fractions,
                          Root root)
{
    PhaseState state;
    evaluatePhase(model, isotherm, pressure, fractions, root, state);
    return state;
}

} // namespace

PhasePoint::PhasePoint(const MixtureModel &model, double temperature, double pressure,
                       std::span<const double> fractions, Root root)
    : mixture(model), isotherm(model, temperature),
      phase(evaluatedPhase(model, isotherm, pressure, fractions.data(), root)),
      liquid(root == Root::liquid || (root == Root::stable && !phase.vaporRoot)),
      sums(model, isotherm, fractions.data())
{
    std::ranges::copy(fractions.first(static_cast<std::size_t>(model.size)), x.begin());
}

Dual PhasePoint::pureLnPhi(int i, const Direction &direction) const
{
    const Residual pure = pureResidualOf(mixture, isotherm, phase, i, direction);
    const Dual T(isotherm.temperature, direction.ofTemperature());
    return pure.gibbs(T) / (gasConstant * T);
}

void PhasePoint::addPure(const Direction &direction, Bulk &result) const
{
    if (mixture.isIdeal())
        return;
    const Residual &whole = result.residual;
    Dual volume;
    Dual enthalpy;
    Dual entropy;
    for (int i = 0; i < mixture.size; ++i) {
        const Residual pure = pureResidualOf(mixture, isotherm, phase, i, direction);
        const Dual amount(x[i], direction.ofMean(i == direction.compound ? 1.0 : 0.0, x[i]));
        volume += amount * whole.volumeDifference(pure);
        enthalpy += amount * (whole.enthalpy - pure.enthalpy);
        entropy += amount * (whole.entropy - pure.entropy);
    }
    result.pureVolumeDifference = volume;
    result.pureEnthalpyDifference = enthalpy;
    result.pureEntropyDifference = entropy;
}

Bulk PhasePoint::bulk(const Direction &direction, bool withPure) const
{
    Bulk result;
    const double T = isotherm.temperature;
    const double P = phase.pressure;
    result.T = {T, direction.ofTemperature()};
    result.P = {P, direction.ofPressure()};
    result.residual = residualOf(mixture, isotherm, x.data(), phase, sums, direction);

    const HeatCapacityTerms ideal = mixture.heatCapacityTerms(x.data());
    const IdealGasState state = idealGasState(ideal, T);
    result.idealEnthalpy.value = state.enthalpy;
    result.idealEntropy.value = state.entropy;
    result.idealHeatCapacity.value = state.heatCapacity;
    double mixing = 0.0;
    for (int i = 0; i < mixture.size; ++i) {
        const CompoundTerms &compound = mixture.compounds[i];
        const CompoundData &data = *compound.data;
        result.formationEnthalpy.value += x[i] * data.formationEnthalpy;
        result.formationEntropy.value += x[i] * formationEntropy(data);
        result.molecularWeight.value += x[i] * compound.molecularWeight;
        if (x[i] > 0.0)
            mixing -= x[i] * std::log(x[i]);
    }
    // The slopes of means, before mixing and pressure join the entropy.
    if (const int j = direction.compound; j >= 0) {
        const CompoundTerms &compound = mixture.compounds[j];
        const auto giveSlope = [](Dual &mean, double own) { mean.slope = own - mean.value; };
        giveSlope(result.idealEnthalpy, idealGasEnthalpy(compound.idealGasHeatCapacity, T));
        giveSlope(result.idealEntropy, idealGasEntropy(compound.idealGasHeatCapacity, T));
        giveSlope(result.idealHeatCapacity, idealGasHeatCapacity(compound.idealGasHeatCapacity, T));
        giveSlope(result.formationEnthalpy, compound.data->formationEnthalpy);
        giveSlope(result.formationEntropy, formationEntropy(*compound.data));
        giveSlope(result.molecularWeight, compound.molecularWeight);
        result.idealEntropy.slope += gasConstant * ((x[j] > 0.0 ? -std::log(x[j]) : infinite) - mixing);
    } else {
        result.idealEnthalpy.slope = result.idealHeatCapacity.value * direction.ofTemperature();
        result.idealEntropy.slope =
            result.idealHeatCapacity.value / T * direction.ofTemperature() - gasConstant / P * direction.ofPressure();
        if (direction.ofTemperature() != 0.0)
            result.idealHeatCapacity.slope = idealGasHeatCapacitySlope(ideal, T);
    }
    result.idealEntropy.value += gasConstant * (mixing - std::log(P / referencePressure));
    if (withPure)
        addPure(direction, result);
    return result;
}

} // namespace reference
