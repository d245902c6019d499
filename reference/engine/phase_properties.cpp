#include "reference/engine/phase_properties.h"

#include "reference/engine/ideal_gas.h"

#include <algorithm>
#include <cmath>

namespace reference {

namespace {

HeatCapacityPolynomial mixtureHeatCapacity(const MixtureModel &model, const CompoundArray &fractions)
{
    HeatCapacityPolynomial sum{};
    for (int i = 0; i < model.size; ++i)
        for (std::size_t power = 0; power < sum.size(); ++power)
            sum[power] += fractions[i] * model.compounds[i].idealGasHeatCapacity[power];
    return sum;
}

} // namespace

void evaluateProperties(const MixtureModel &model, const Isotherm &isotherm, double pressure, const double *fractions,
                        Root root, PhaseProperties &properties)
{
    const double T = isotherm.temperature;
    properties.temperature = T;
    std::copy_n(fractions, model.size, properties.fractions.begin());
    evaluatePhase(model, isotherm, pressure, fractions, root, properties.state);

    double molecularWeight = 0.0;
    double mixing = 0.0;
    for (int i = 0; i < model.size; ++i) {
        molecularWeight += fractions[i] * model.compounds[i].molecularWeight;
        if (fractions[i] > 0.0)
            mixing -= fractions[i] * std::log(fractions[i]);
    }
    properties.molecularWeight = molecularWeight;
    properties.volume = properties.state.Z * gasConstant * T / pressure;

    const HeatCapacityPolynomial ideal = mixtureHeatCapacity(model, properties.fractions);
    properties.enthalpy = idealGasEnthalpy(ideal, T) + residualEnthalpy(model, isotherm, fractions, properties.state);
    properties.entropy = idealGasEntropy(ideal, T) + gasConstant * (mixing - std::log(pressure / referencePressure)) +
                         residualEntropy(model, isotherm, fractions, properties.state);
}

void addDerivatives(const MixtureModel &model, const Isotherm &isotherm, PhaseProperties &properties)
{
    const PhaseState &state = properties.state;
    const double T = properties.temperature;
    const double P = state.pressure;
    const double *fractions = properties.fractions.data();
    evaluateSlopes(model, isotherm, fractions, state, properties.slopes);
    const PhaseSlopes &slopes = properties.slopes;
    properties.volumeByT = gasConstant / P * (state.Z + T * slopes.ZbyT);
    properties.volumeByP = gasConstant * T / P * (slopes.ZbyP - state.Z / P);
    properties.heatCapacity = idealGasHeatCapacity(mixtureHeatCapacity(model, properties.fractions), T) +
                              residualHeatCapacity(model, isotherm, fractions, state, slopes.ZbyT);
}

} // namespace reference
