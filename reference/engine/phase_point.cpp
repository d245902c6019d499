#include "reference/engine/phase_point.h"

#include "reference/engine/cubic.h"
#include "reference/engine/cubic_phase.h"
#include "reference/engine/ideal_gas.h"

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

bool isIdeal(const MixtureModel &model) { return model.equation == EquationOfState::idealMixture; }

} // namespace

PhasePoint::PhasePoint(const MixtureModel &model, double temperature, double pressure,
                       std::span<const double> fractions, Root root)
    : mixture(model), isotherm(model, temperature)
{
    std::ranges::copy(fractions.first(static_cast<std::size_t>(model.size)), x.begin());
    evaluatePhase(mixture, isotherm, pressure, x.data(), root, phase);
    liquid = root == Root::liquid || (root == Root::stable && !phase.vaporRoot);
    if (!isIdeal(mixture)) {
        cubic::pairSums(mixture, x.data(), isotherm.slope, slopeSum);
        cubic::pairSums(mixture, x.data(), isotherm.bending, bendingSum);
    }
}

CubicParameters PhasePoint::cubicParameters(const Direction &direction) const
{
    const double T = isotherm.temperature;
    CubicParameters sum{phase.a, 0.0, 0.0, phase.b};
    double aTTT = 0.0;
    for (int i = 0; i < mixture.size; ++i) {
        const double thirdSlope = -1.5 * isotherm.bending[i] / T; // of s, which is linear in sqrt(T)
        sum.aT.value += 2.0 * x[i] * isotherm.slope[i] * phase.pairSum[i];
        sum.aTT.value += 2.0 * x[i] * (isotherm.bending[i] * phase.pairSum[i] + isotherm.slope[i] * slopeSum[i]);
        aTTT += 2.0 * x[i] * (thirdSlope * phase.pairSum[i] + 3.0 * isotherm.bending[i] * slopeSum[i]);
    }
    if (direction.differential == Differential::byTemperature) {
        sum.a.slope = sum.aT.value;
        sum.aT.slope = sum.aTT.value;
        sum.aTT.slope = aTTT;
    }
    if (const int j = direction.compound; j >= 0) {
        const double s = isotherm.s[j];
        const double sT = isotherm.slope[j];
        const double sTT = isotherm.bending[j];
        sum.a.slope = 2.0 * (s * phase.pairSum[j] - sum.a.value);
        sum.aT.slope = 2.0 * (sT * phase.pairSum[j] + s * slopeSum[j] - sum.aT.value);
        sum.aTT.slope = 2.0 * (sTT * phase.pairSum[j] + 2.0 * sT * slopeSum[j] + s * bendingSum[j] - sum.aTT.value);
        sum.b.slope = mixture.compounds[j].covolume - sum.b.value;
    }
    return sum;
}

RaoultParameters PhasePoint::raoultParameters(const Direction &direction) const
{
    RaoultParameters mean;
    const struct {
        Dual RaoultParameters::*sum;
        std::array<TemperatureFunction, maximumCompounds> Isotherm::*functions;
        double TemperatureFunction::*value;
        double TemperatureFunction::*slope;
    } rows[] = {
        {&RaoultParameters::saturation, &Isotherm::saturation, &TemperatureFunction::value, &TemperatureFunction::byT},
        {&RaoultParameters::saturationT, &Isotherm::saturation, &TemperatureFunction::byT, &TemperatureFunction::byTT},
        {&RaoultParameters::saturationTT, &Isotherm::saturation, &TemperatureFunction::byTT,
         &TemperatureFunction::byTTT},
        {&RaoultParameters::volume, &Isotherm::volume, &TemperatureFunction::value, &TemperatureFunction::byT},
        {&RaoultParameters::volumeT, &Isotherm::volume, &TemperatureFunction::byT, &TemperatureFunction::byTT},
        {&RaoultParameters::volumeTT, &Isotherm::volume, &TemperatureFunction::byTT, &TemperatureFunction::byTTT},
    };
    for (const auto &row : rows) {
        const auto &functions = isotherm.*row.functions;
        Dual sum;
        for (int i = 0; i < mixture.size; ++i) {
            sum.value += x[i] * (functions[i].*row.value);
            sum.slope += x[i] * (functions[i].*row.slope) * direction.ofTemperature();
        }
        if (direction.compound >= 0)
            sum.slope = functions[direction.compound].*row.value - sum.value;
        mean.*row.sum = sum;
    }
    return mean;
}

Residual PhasePoint::residual(const Direction &direction) const
{
    const Dual T(isotherm.temperature, direction.ofTemperature());
    const Dual P(phase.pressure, direction.ofPressure());
    if (!isIdeal(mixture))
        return cubicResidual(cubicConstants(mixture.equation), T, P, cubicParameters(direction), phase.freeZ);
    return phase.vaporRoot ? idealGasResidual(T, P) : raoultResidual(T, P, raoultParameters(direction));
}

Residual PhasePoint::pureResidual(int i, const Direction &direction) const
{
    const CubicConstants &equation = cubicConstants(mixture.equation);
    const Dual T(isotherm.temperature, direction.ofTemperature());
    const Dual P(phase.pressure, direction.ofPressure());
    const double s = isotherm.s[i];
    const double sT = isotherm.slope[i];
    const double sTT = isotherm.bending[i];
    const double sTTT = -1.5 * sTT / T.value;
    const CubicParameters parameters{{s * s, 2.0 * s * sT * T.slope},
                                     {2.0 * s * sT, 2.0 * (sT * sT + s * sTT) * T.slope},
                                     {2.0 * (sT * sT + s * sTT), 2.0 * (3.0 * sT * sTT + s * sTTT) * T.slope},
                                     mixture.compounds[i].covolume};
    const double thermal = gasConstant * T.value;
    const CompressibilityRoots roots =
        solveCompressibility(equation, s * s * P.value / (thermal * thermal), parameters.b.value * P.value / thermal);
    return cubicResidual(equation, T, P, parameters, phase.vaporRoot ? roots.vapor : roots.liquid);
}

Dual PhasePoint::pureLnPhi(int i, const Direction &direction) const
{
    const Residual pure = pureResidual(i, direction);
    const Dual T(isotherm.temperature, direction.ofTemperature());
    return pure.gibbs(T) / (gasConstant * T);
}

void PhasePoint::addPure(const Direction &direction, Bulk &result) const
{
    if (isIdeal(mixture))
        return;
    const Residual &whole = result.residual;
    Dual volume;
    Dual enthalpy;
    Dual entropy;
    for (int i = 0; i < mixture.size; ++i) {
        const Residual pure = pureResidual(i, direction);
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
    result.residual = residual(direction);

    double heatCapacitySlope = 0.0;
    double mixing = 0.0;
    for (int i = 0; i < mixture.size; ++i) {
        const CompoundTerms &compound = mixture.compounds[i];
        const CompoundData &data = *compound.data;
        result.idealEnthalpy.value += x[i] * idealGasEnthalpy(compound.idealGasHeatCapacity, T);
        result.idealEntropy.value += x[i] * idealGasEntropy(compound.idealGasHeatCapacity, T);
        result.idealHeatCapacity.value += x[i] * idealGasHeatCapacity(compound.idealGasHeatCapacity, T);
        heatCapacitySlope += x[i] * idealGasHeatCapacitySlope(compound.idealGasHeatCapacity, T);
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
        result.idealHeatCapacity.slope = heatCapacitySlope * direction.ofTemperature();
    }
    result.idealEntropy.value += gasConstant * (mixing - std::log(P / referencePressure));
    if (withPure)
        addPure(direction, result);
    return result;
}

} // namespace reference
