#include "reference/engine/phase_properties.h"

#include <algorithm>
#include <cmath>

namespace reference {

namespace {

using Polynomial = std::array<double, 5>;

constexpr double referenceTemperature = 298.15; // K
constexpr double referencePressure = 101325.0;  // Pa

Polynomial mixtureHeatCapacity(const MixtureModel &model, const CompoundArray &fractions)
{
    Polynomial sum{};
    for (int i = 0; i < model.size; ++i)
        for (std::size_t power = 0; power < sum.size(); ++power)
            sum[power] += fractions[i] * model.compounds[i].idealGasHeatCapacity[power];
    return sum;
}

// The integral of Cp / R over T, without its constant.
double enthalpyIntegral(const Polynomial &c, double T)
{
    return ((((c[4] / 5.0 * T + c[3] / 4.0) * T + c[2] / 3.0) * T + c[1] / 2.0) * T + c[0]) * T;
}

// The integral of Cp / (R T) over T, without its constant.
double entropyIntegral(const Polynomial &c, double T)
{
    return (((c[4] / 4.0 * T + c[3] / 3.0) * T + c[2] / 2.0) * T + c[1]) * T + c[0] * std::log(T);
}

} // namespace

double idealGasHeatCapacity(const Polynomial &c, double T)
{
    return gasConstant * ((((c[4] * T + c[3]) * T + c[2]) * T + c[1]) * T + c[0]);
}

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

    const Polynomial ideal = mixtureHeatCapacity(model, properties.fractions);
    properties.enthalpy = gasConstant * (enthalpyIntegral(ideal, T) - enthalpyIntegral(ideal, referenceTemperature)) +
                          residualEnthalpy(model, isotherm, fractions, properties.state);
    properties.entropy = gasConstant * (entropyIntegral(ideal, T) - entropyIntegral(ideal, referenceTemperature) -
                                        std::log(pressure / referencePressure) + mixing) +
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
