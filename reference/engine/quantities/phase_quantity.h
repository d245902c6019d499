// What a phase and a pair of phases can be asked for: names, shapes and bases.
#pragma once

#include "reference/engine/phase/direction.h"

#include <span>
#include <string_view>

namespace reference {

// Properties of one phase. The unit is SI; what has a molar basis is per mole.
enum class PhaseQuantity {
    fugacity,                // Pa
    fugacityCoefficient,     //
    logFugacity,             // of the fugacity in Pa
    logFugacityCoefficient,  //
    activity,                // relative to the pure compound as the same phase at the same T and P
    activityCoefficient,     //
    volume,                  // m3/mol
    density,                 // mol/m3
    compressibilityFactor,   //
    compressibility,         // isothermal, 1/Pa
    enthalpy,                // J/mol; the same as enthalpyNF
    enthalpyF,               // relative to the elements at 298.15 K
    enthalpyNF,              // relative to the pure ideal gases at 298.15 K
    entropy,                 // J/mol/K; the same as entropyNF
    entropyF,                // relative to the elements at 298.15 K and 101325 Pa
    entropyNF,               // relative to the pure ideal gases at 298.15 K and 101325 Pa
    gibbsEnergy,             // J/mol, of enthalpyNF and entropyNF as the following ones
    helmholtzEnergy,         // J/mol
    internalEnergy,          // J/mol
    heatCapacityCp,          // J/mol/K
    heatCapacityCv,          // J/mol/K
    speedOfSound,            // m/s
    jouleThomsonCoefficient, // K/Pa
    molecularWeight,         // g/mol
    excessEnthalpy,          // over the pure compounds as the same phase at the same T and P, mixed ideally
    excessEntropy,           //
    excessGibbsEnergy,       //
    excessHelmholtzEnergy,   //
    excessInternalEnergy,    //
    excessVolume,            //
    viscosity,               // Pa s
    thermalConductivity,     // W/m/K
    diffusionCoefficient,    // m2/s
};
inline constexpr int phaseQuantityCount = 33;

// Properties of two phases, the first and the second. Without basis.
enum class PairQuantity {
    kvalue,         // fugacity coefficient in the second phase over that in the first
    logKvalue,      //
    surfaceTension, // N/m
};
inline constexpr int pairQuantityCount = 3;

struct QuantityShape {
    std::string_view name; // the identifier of CAPE-OPEN 1.1
    int dimension;         // 0: one value, 1: one for each compound, 2: one for each pair of compounds
    bool molarBasis;       // per mole, or moles per volume
    bool extensive;        // grows with the amount
};

// By the value of the enumeration.
std::span<const QuantityShape, phaseQuantityCount> phaseQuantities();
std::span<const QuantityShape, pairQuantityCount> pairQuantities();
inline const QuantityShape &shapeOf(PhaseQuantity quantity) { return phaseQuantities()[static_cast<int>(quantity)]; }
inline const QuantityShape &shapeOf(PairQuantity quantity) { return pairQuantities()[static_cast<int>(quantity)]; }

// How many values there are for a number of compounds. In a matrix the first index runs fastest; a
// derivative by moles or fractions has one whole block of the quantity for each compound in turn.
int valueCount(PhaseQuantity quantity, Differential differential, int compounds);
int valueCount(PairQuantity quantity, Differential differential, int compounds);

} // namespace reference
