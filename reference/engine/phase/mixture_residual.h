// The residual properties of a mixture's phase, at its conditions and in a direction away from them.
#pragma once

#include "reference/engine/eos/residual.h"
#include "reference/engine/phase/direction.h"
#include "reference/engine/phase/isotherm.h"
#include "reference/engine/phase/phase_state.h"

namespace reference {

// What a phase by a cubic equation needs beyond PhaseState::pairSum for its residual properties: the
// same sums with other values in place of s. Not filled for other models.
struct PairSums {
    CompoundArray slope;     // with ds/dT
    CompoundArray curvature; // with d2s/dT2

    PairSums(const MixtureModel &model, const Isotherm &isotherm, const double *moleFractions);
};

Residual residualOf(const MixtureModel &model, const Isotherm &isotherm, const double *moleFractions,
                    const PhaseState &state, const PairSums &sums, const Direction &direction = {});

// Of a pure compound as the same phase at the same temperature and pressure.
Residual pureResidualOf(const MixtureModel &model, const Isotherm &isotherm, const PhaseState &state, int compound,
                        const Direction &direction);

} // namespace reference
