// An ideal gas and a liquid of activity coefficients, which are one in the ideal mixture: what phase_evaluation.h
// declares, for models of that kind.
#pragma once

#include "reference/engine/phase/isotherm.h"
#include "reference/engine/phase/phase_state.h"

namespace reference::activity {

void evaluatePhase(const MixtureModel &model, const Isotherm &isotherm, double pressure, const double *moleFractions,
                   Root root, PhaseState &state);
void lnPhiByMoles(const MixtureModel &model, const Isotherm &isotherm, const PhaseState &state, PairArray &derivatives);
void evaluateSlopes(const MixtureModel &model, const Isotherm &isotherm, const double *moleFractions,
                    const PhaseState &state, PhaseSlopes &slopes);

// What temperature does to ln phi_i of the liquid at a composition, without volume_i P - ln P.
void temperatureTerms(const MixtureModel &model, const Isotherm &isotherm, const double *moleFractions,
                      std::array<TemperatureFunction, maximumCompounds> &terms);

} // namespace reference::activity
