// The compounds that the packages are made of: constants, correlations and binary interaction
// parameters, as published. The tables and their sources stand in reference/data.
#pragma once

#include "reference/engine/compounds/ideal_gas.h"
#include "reference/engine/compounds/transport_correlation.h"
#include "reference/engine/eos/equation_of_state.h"

#include <array>
#include <span>
#include <string_view>

namespace reference {

// A published correlation in powers of the distance from the critical point, q = 1 - T / T0:
//   exponential  value = scale * exp(g * (n1 q^t1 + n2 q^t2 + ...)), g = T0 / T for a vapor pressure
//                and 1 for a density
//   linear       value = scale * (1 + n1 q^t1 + n2 q^t2 + ...)
// reference/engine/compounds/saturation.h evaluates it.
enum class CorrelationForm { none, exponential, linear };

struct Correlation {
    CorrelationForm form;
    double temperature; // T0, K: the end of its range
    double scale;
    std::array<double, 6> factors;   // n1, n2, ...
    std::array<double, 6> exponents; // t1, t2, ...
    int terms;
    double lowest; // K: the beginning of its range
};

// A constant that is not known is NaN.
struct CompoundData {
    std::string_view id;
    std::string_view iupacName;
    std::string_view formula; // Hill order
    std::string_view casNumber;
    std::string_view smiles;
    double molecularWeight;         // g/mol
    double criticalTemperature;     // K
    double criticalPressure;        // Pa
    double criticalVolume;          // m3/mol
    double criticalCompressibility; // Pc Vc / (R Tc)
    double acentricFactor;          //
    double normalBoilingPoint;      // K at 101325 Pa; NaN for a compound that only sublimes there
    double normalFreezingPoint;     // K at 101325 Pa
    double triplePointTemperature;  // K
    double triplePointPressure;     // Pa

    // Ideal gas at 298.15 K.
    double formationEnthalpy;    // from the elements, J/mol
    double formationGibbsEnergy; // from the elements, J/mol
    double standardEntropy;      // absolute, at 1e5 Pa, J/mol/K

    double dipoleMoment;      // C m
    double parachor;          // kg^0.25 m3 / (s^0.5 mol)
    double associationFactor; // kappa of Chung et al.
    double diffusionVolume;   // of Fuller et al., m3/mol

    double solventAssociation; // phi of Wilke and Chang; 1 for what does not associate

    HeatCapacityTerms idealGasHeatCapacity;
    Correlation vaporPressure; // Pa
    Correlation liquidDensity; // of the saturated liquid, mol/m3
    TransportCorrelations transport;
};

std::span<const CompoundData> compoundTable();

// The compound of an id of the table, spelled exactly so; null for any other.
const CompoundData *findCompound(std::string_view id);

// The interaction parameter kij of the equation's mixing rule, the same in both directions; 0 for
// pairs without one, and for models that are no cubic equation.
double interactionParameter(std::string_view first, std::string_view second,
                            EquationOfState equation = EquationOfState::pengRobinson);

} // namespace reference
