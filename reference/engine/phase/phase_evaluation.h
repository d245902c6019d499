// One phase by the equation of state of its model: fugacity coefficients, residual properties and
// their derivatives, all analytic.
//
// Cubic equations (see CubicConstants) mix after van der Waals: a = sum x_i x_j sqrt(a_i a_j) (1 - kij),
// b = sum x_i b_i. The other models have an ideal gas as vapor, and a liquid with
// ln phi_i = ln gamma_i + ln(p_i / P) + v_i (P - p_i) / (R T), where p_i and v_i are vapor pressure and liquid
// volume of the pure compound, and gamma_i is one in the ideal mixture or an activity coefficient by NRTL: Raoult's
// law with the Poynting factor, from which every other property of that liquid follows.
#pragma once

#include "reference/engine/phase/isotherm.h"
#include "reference/engine/phase/phase_state.h"

namespace reference {

// Fills `state`. The mole fractions must be zero or more and sum to one; a fraction of zero gives
// the coefficient at infinite dilution.
void evaluatePhase(const MixtureModel &model, const Isotherm &isotherm, double pressure, const double *moleFractions,
                   Root root, PhaseState &state);

// ln phi of every compound at infinite dilution in the liquid of one: by a cubic equation a small part of the work of a
// mixture.
void evaluateSolvent(const MixtureModel &model, const Isotherm &isotherm, double pressure, int solvent,
                     CompoundArray &lnPhi);

// n d(ln phi_i)/d(n_j) at constant temperature and pressure, symmetric, element i + size * j.
void lnPhiByMoles(const MixtureModel &model, const Isotherm &isotherm, const PhaseState &state, PairArray &derivatives);

// The first derivatives of what evaluatePhase gives.
void evaluateSlopes(const MixtureModel &model, const Isotherm &isotherm, const double *moleFractions,
                    const PhaseState &state, PhaseSlopes &slopes);

} // namespace reference
