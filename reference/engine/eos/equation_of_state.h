// Which equation gives the properties of a mixture, and the constants of the cubic ones.
#pragma once

namespace reference {

enum class EquationOfState {
    pengRobinson,
    soaveRedlichKwong,
    idealMixture, // ideal gas, and a liquid that obeys Raoult's law
    nrtl,         // ideal gas, and a liquid with activity coefficients by NRTL
};

constexpr bool isCubicEquation(EquationOfState equation)
{
    return equation == EquationOfState::pengRobinson || equation == EquationOfState::soaveRedlichKwong;
}

// P = R T / (v - b) - a alpha(T) / ((v + d1 b) (v + d2 b)), with
// a = omegaA (R Tc)^2 / Pc, b = omegaB R Tc / Pc and alpha = (1 + kappa (1 - sqrt(T / Tc)))^2.
struct CubicConstants {
    double d1;
    double d2;
    double omegaA;
    double omegaB;
    double criticalVolume; // v / b at the critical point

    constexpr double sum() const { return d1 + d2; }
    constexpr double product() const { return d1 * d2; }
    constexpr double difference() const { return d1 - d2; }
    constexpr double atCovolume() const { return (1.0 + d1) * (1.0 + d2); } // (v + d1 b) (v + d2 b) / b^2 for v = b
    // R T b / (a alpha) at the critical point: above it the equation has one volume at every pressure.
    constexpr double criticalThermal() const { return omegaB / omegaA; }
};

// The constants of a cubic equation; those of Peng and Robinson for models that are none.
const CubicConstants &cubicConstants(EquationOfState equation);

// kappa of the alpha function, from the acentric factor:
// - Peng-Robinson: Peng, Robinson, Ind. Eng. Chem. Fundam. 15 (1976) 59; for acentric factors above
//   0.491 (n-undecane and heavier, alcohols) the polynomial of third degree of Robinson, Peng, GPA
//   Research Report 28 (1978).
// - Soave-Redlich-Kwong: Soave, Chem. Eng. Sci. 27 (1972) 1197.
double alphaSlope(EquationOfState equation, double acentricFactor);

} // namespace reference
