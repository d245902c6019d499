#include "reference/engine/phase_state.h"

#include "reference/engine/cubic_phase.h"
#include "reference/engine/ideal_phase.h"

namespace reference {

namespace {

bool isIdeal(const MixtureModel &model) { return model.equation == EquationOfState::idealMixture; }

} // namespace

Isotherm::Isotherm(const MixtureModel &model, double kelvin) : temperature(kelvin)
{
    isIdeal(model) ? ideal::prepare(model, *this) : cubic::prepare(model, *this);
}

void evaluatePhase(const MixtureModel &model, const Isotherm &isotherm, double pressure, const double *moleFractions,
                   Root root, PhaseState &state)
{
    (isIdeal(model) ? ideal::evaluatePhase : cubic::evaluatePhase)(model, isotherm, pressure, moleFractions, root,
                                                                   state);
}

void lnPhiByMoles(const MixtureModel &model, const Isotherm &isotherm, const PhaseState &state, PairArray &derivatives)
{
    (isIdeal(model) ? ideal::lnPhiByMoles : cubic::lnPhiByMoles)(model, isotherm, state, derivatives);
}

void evaluateSlopes(const MixtureModel &model, const Isotherm &isotherm, const double *moleFractions,
                    const PhaseState &state, PhaseSlopes &slopes)
{
    (isIdeal(model) ? ideal::evaluateSlopes : cubic::evaluateSlopes)(model, isotherm, moleFractions, state, slopes);
}

} // namespace reference
