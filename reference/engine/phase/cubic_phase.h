// Phases by a cubic equation: what phase_evaluation.h declares, for models with such an equation.
#pragma once

#include "reference/engine/phase/isotherm.h"
#include "reference/engine/phase/phase_state.h"

namespace reference::cubic {

// For each compound the sum over j of (1 - kij) x_j times the value of j.
void pairSums(const MixtureModel &model, const double *moleFractions, const CompoundArray &values, CompoundArray &sums);

void evaluatePhase(const MixtureModel &model, const Isotherm &isotherm, double pressure, const double *moleFractions,
                   Root root, PhaseState &state);
void evaluateSolvent(const MixtureModel &model, const Isotherm &isotherm, double pressure, int solvent,
                     CompoundArray &lnPhi);
void lnPhiByMoles(const MixtureModel &model, const Isotherm &isotherm, const PhaseState &state, PairArray &derivatives);
void evaluateSlopes(const MixtureModel &model, const Isotherm &isotherm, const double *moleFractions,
                    const PhaseState &state, PhaseSlopes &slopes);

} // namespace reference::cubic
