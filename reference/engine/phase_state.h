// One phase by the equation of state of its model: fugacity coefficients, residual properties and
// their derivatives, all analytic.
//
// Cubic equations (see CubicConstants) mix after van der Waals: a = sum x_i x_j sqrt(a_i a_j) (1 - kij),
// b = sum x_i b_i. The ideal mixture has an ideal gas as vapour, and a liquid with
// ln phi_i = ln(p_i / P) + v_i (P - p_i) / (R T), where p_i and v_i are vapour pressure and liquid
// volume of the pure compound: Raoult's law with the Poynting factor, from which every other
// property of that liquid follows.
#pragma once

#include "reference/engine/mixture_model.h"

namespace reference {

// The parts of the model that depend on temperature alone.
struct Isotherm {
    double temperature; // K

    // Cubic equations: a_ij = s_i s_j (1 - kij).
    CompoundArray s;       // square root of a alpha, Pa^0.5 m3/mol
    CompoundArray slope;   // ds/dT
    CompoundArray bending; // d2s/dT2

    // Ideal mixture: ln phi_i of the liquid is saturation_i + volume_i P - ln P.
    std::array<TemperatureFunction, maximumCompounds> saturation; // ln p_i - v_i p_i / (R T)
    std::array<TemperatureFunction, maximumCompounds> volume;     // v_i / (R T), 1/Pa

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
    double pressure;     // Pa
    double Z;            // compressibility factor
    bool severalRoots;   // there are a vapour and a liquid here
    bool vaporRoot;      // this is the vapour, or what is there instead of both
    bool liquidRoot;     // this is the liquid, or what is there instead of both
    CompoundArray lnPhi; // logarithms of the fugacity coefficients

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

} // namespace reference
