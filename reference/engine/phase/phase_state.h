// What is found of one phase by the equation of state of its model.
#pragma once

#include "reference/engine/numerics/compound_arrays.h"

namespace reference {

// Which solution of the equation a phase stands for where it has more than one.
enum class Root {
    vapor,  // the largest
    liquid, // the smallest
    stable, // the one with the lower Gibbs energy
};

// One phase at a temperature, pressure and composition.
struct PhaseState {
    double pressure;     // Pa
    double Z;            // compressibility factor
    bool severalRoots;   // there are a vapor and a liquid here
    bool vaporRoot;      // this is the vapor, or what is there instead of both
    bool liquidRoot;     // this is the liquid, or what is there instead of both
    CompoundArray lnPhi; // logarithms of the fugacity coefficients

    CompoundArray fractions; // models of activity coefficients only: the mole fractions

    // Cubic equations only.
    double a;                 // Pa m6/mol2
    double b;                 // m3/mol
    double A;                 // a P / (R T)^2
    double B;                 // b P / (R T)
    double freeZ;             // Z - B, with all its digits
    double attractionLog;     // ln((Z + d1 B) / (Z + d2 B)) / (d1 - d2)
    CompoundArray pairSum;    // sum over j of (1 - kij) x_j s_j
    CompoundArray attraction; // 2 s_i pairSum_i P / (R T)^2: the slope of n^2 A with the moles of i
    CompoundArray beta;       // b_i / b
};

// First derivatives of what evaluatePhase gives.
struct PhaseSlopes {
    double ZbyT;            // 1/K, at constant pressure
    double ZbyP;            // 1/Pa, at constant temperature
    CompoundArray lnPhiByT; // 1/K
    CompoundArray lnPhiByP; // 1/Pa
};

} // namespace reference
