// Pure compounds as ideal gases: heat capacity, and its integrals from 298.15 K on.
#pragma once

#include <array>

namespace reference {

inline constexpr double referenceTemperature = 298.15; // K
inline constexpr double referencePressure = 101325.0;  // Pa

// Cp/R = c0 + the sum of ci E(theta_i / T), E(x) = x^2 exp(x) / (exp(x) - 1)^2: what does not
// oscillate, and harmonic oscillators of temperatures that all compounds share. So the coefficients of a
// mixture are the mean of those of its compounds.
using HeatCapacityTerms = std::array<double, 10>; // c0, c1, ...

double idealGasHeatCapacity(const HeatCapacityTerms &terms, double kelvin);      // J/mol/K
double idealGasHeatCapacitySlope(const HeatCapacityTerms &terms, double kelvin); // J/mol/K2

// Over those at 298.15 K and the same pressure.
double idealGasEnthalpy(const HeatCapacityTerms &terms, double kelvin); // J/mol
double idealGasEntropy(const HeatCapacityTerms &terms, double kelvin);  // J/mol/K

// The heat capacity and its integrals together, which share most of their work.
struct IdealGasState {
    double heatCapacity;
    double enthalpy;
    double entropy;
};
IdealGasState idealGasState(const HeatCapacityTerms &terms, double kelvin);

} // namespace reference
