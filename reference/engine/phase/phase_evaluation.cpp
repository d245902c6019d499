#include "reference/engine/phase/phase_evaluation.h"

#include "reference/engine/phase/activity_phase.h"
#include "reference/engine/phase/cubic_phase.h"

namespace reference {

void evaluatePhase(const MixtureModel &model, const Isotherm &isotherm, double pressure, const double *moleFractions,
                   Root root, PhaseState &state)
{
    (model.isCubic() ? cubic::evaluatePhase : activity::evaluatePhase)(model, isotherm, pressure, moleFractions, root,
                                                                       state);
}

void evaluateSolvent(const MixtureModel &model, const Isotherm &isotherm, double pressure, int solvent,
                     CompoundArray &lnPhi)
{
    if (model.isCubic())
        return cubic::evaluateSolvent(model, isotherm, pressure, solvent, lnPhi);
    CompoundArray fractions{};
    fractions[static_cast<std::size_t>(solvent)] = 1.0;
    PhaseState state;
    activity::evaluatePhase(model, isotherm, pressure, fractions.data(), Root::liquid, state);
    lnPhi = state.lnPhi;
}

void lnPhiByMoles(const MixtureModel &model, const Isotherm &isotherm, const PhaseState &state, PairArray &derivatives)
{
    (model.isCubic() ? cubic::lnPhiByMoles : activity::lnPhiByMoles)(model, isotherm, state, derivatives);
}

void evaluateSlopes(const MixtureModel &model, const Isotherm &isotherm, const double *moleFractions,
                    const PhaseState &state, PhaseSlopes &slopes)
{
    (model.isCubic() ? cubic::evaluateSlopes : activity::evaluateSlopes)(model, isotherm, moleFractions, state, slopes);
}

} // namespace reference
