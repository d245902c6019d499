// What a phase's molar properties have over those of the ideal gas, with a derivative in one
// direction.
#pragma once

#include "reference/engine/eos/equation_of_state.h"
#include "reference/engine/numerics/dual.h"

namespace reference {

// Residual properties at a temperature and pressure: the phase less the ideal gas at the same two.
// Volumes stand here both whole and as residuals, because neither can be had from the other with all
// its digits: in a dilute gas the residual is small, in a liquid the whole.
struct Residual {
    Dual volume;            // m3/mol
    Dual volumeByT;         // at constant pressure
    Dual volumeByP;         // at constant temperature
    Dual residualVolume;    //
    Dual residualVolumeByT; //
    Dual enthalpy;          // J/mol
    Dual entropy;           // J/mol/K
    Dual heatCapacityP;     // of constant pressure, J/mol/K
    Dual heatCapacityV;     // of constant volume

    Dual gibbs(Dual T) const { return enthalpy - T * entropy; }
    // Whether the residual volume is the one of the two that has the digits.
    bool gasLike() const { return std::fabs(residualVolume.value) < volume.value; }
    Dual volumeDifference(const Residual &other) const
    {
        return gasLike() ? residualVolume - other.residualVolume : volume - other.volume;
    }
};

// The mixture's parameters of a cubic equation.
struct CubicParameters {
    Dual a;   // Pa m6/mol2
    Dual aT;  // da/dT
    Dual aTT; // d2a/dT2
    Dual b;   // m3/mol
};

// `freeZ` is Z - B of the phase, a root of the equation.
Residual cubicResidual(const CubicConstants &equation, Dual T, Dual P, const CubicParameters &parameters, double freeZ);

Residual idealGasResidual(Dual T, Dual P); // all zero but the whole volume

// The mean over the compounds of a liquid that has activity coefficients: of what ln phi_i has beside v_i P / (R T) -
// ln P, and of v_i / (R T), with derivatives by temperature.
struct ActivityParameters {
    Dual saturation, saturationT, saturationTT;
    Dual volume, volumeT, volumeTT;
};
Residual activityResidual(Dual T, Dual P, const ActivityParameters &parameters);

} // namespace reference
