// The Peng-Robinson equation of state (Peng, Robinson, Ind. Eng. Chem. Fundam. 15 (1976) 59) with
// van der Waals mixing: fugacity coefficients, residual properties and their derivatives, all
// analytic. P = R T / (v - b) - a / (v^2 + 2 b v - b^2).
#pragma once

#include "reference/engine/mixture_model.h"

namespace reference {

// The parts of the model that depend on temperature alone. a_ij = s_i s_j (1 - kij).
struct Isotherm {
    double temperature;    // K
    CompoundArray s;       // square root of a, Pa^0.5 m3/mol
    CompoundArray slope;   // ds/dT
    CompoundArray bending; // d2s/dT2

    Isotherm(const MixtureModel &model, double kelvin);
};

// Which solution of the equation a phase stands for where it has more than one.
enum class Root {
    vapor,  // the largest
    liquid, // the smallest
    stable, // the one with the lower Gibbs energy
};

// One phase at a temperature, pressure and composition.
struct PhaseState {
    double pressure;       // Pa
    double a;              // Pa m6/mol2
    double b;              // m3/mol
    double A;              // a P / (R T)^2
    double B;              // b P / (R T)
    double Z;              // compressibility factor
    bool severalRoots;     // the equation has a vapour and a liquid root here
    bool vaporRoot;        // Z is the vapour root, or the only one
    bool liquidRoot;       // Z is the liquid root, or the only one
    double attractionLog;  // ln((Z + (1 + sqrt 2) B) / (Z + (1 - sqrt 2) B))
    CompoundArray pairSum; // sum over j of (1 - kij) x_j s_j
    CompoundArray alpha;   // (da/dn_i) / a = 2 s_i pairSum_i / a
    CompoundArray beta;    // b_i / b
    CompoundArray lnPhi;   // logarithms of the fugacity coefficients
};

// Fills `state`. The mole fractions must be zero or more and sum to one; a fraction of zero gives
// the coefficient at infinite dilution.
void evaluatePhase(const MixtureModel &model, const Isotherm &isotherm, double pressure, const double *moleFractions,
                   Root root, PhaseState &state);

// n d(ln phi_i)/d(n_j) at constant temperature and pressure, symmetric, element i + size * j.
void lnPhiByMoles(const MixtureModel &model, const Isotherm &isotherm, const PhaseState &state, PairArray &derivatives);

// First derivatives of what evaluatePhase gives.
struct PhaseSlopes {
    double ZbyT;            // 1/K, at constant pressure
    double ZbyP;            // 1/Pa, at constant temperature
    CompoundArray lnPhiByT; // 1/K
    CompoundArray lnPhiByP; // 1/Pa
};
void evaluateSlopes(const MixtureModel &model, const Isotherm &isotherm, const double *moleFractions,
                    const PhaseState &state, PhaseSlopes &slopes);

// The phase's molar property less that of the ideal gas at the same temperature and pressure.
double residualEnthalpy(const MixtureModel &model, const Isotherm &isotherm, const double *moleFractions,
                        const PhaseState &state); // J/mol
double residualEntropy(const MixtureModel &model, const Isotherm &isotherm, const double *moleFractions,
                       const PhaseState &state); // J/mol/K
double residualHeatCapacity(const MixtureModel &model, const Isotherm &isotherm, const double *moleFractions,
                            const PhaseState &state, double ZbyT); // of constant pressure, J/mol/K

} // namespace reference
