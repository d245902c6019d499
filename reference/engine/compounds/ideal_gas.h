// Pure compounds as ideal gases: heat capacity, and its integrals from 298.15 K on.
#pragma once

#include <array>

namespace reference {

inline constexpr double referenceTemperature = 298.15; // K
inline constexpr double referencePressure = 101325.0;  // Pa

// c0..c4 of Cp/R = c0 + c1 T + c2 T^2 + c3 T^3 + c4 T^4, T in K.
using HeatCapacityPolynomial = std::array<double, 5>;

double idealGasHeatCapacity(const HeatCapacityPolynomial &coefficients, double kelvin);      // J/mol/K
double idealGasHeatCapacitySlope(const HeatCapacityPolynomial &coefficients, double kelvin); // J/mol/K2

// Over those at 298.15 K and the same pressure.
double idealGasEnthalpy(const HeatCapacityPolynomial &coefficients, double kelvin); // J/mol
double idealGasEntropy(const HeatCapacityPolynomial &coefficients, double kelvin);  // J/mol/K

} // namespace reference
