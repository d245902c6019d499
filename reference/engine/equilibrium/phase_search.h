// The search for the phases of least Gibbs energy.
#pragma once

#include "reference/engine/equilibrium/phase_split.h"

namespace reference {

enum class PhaseSearchStatus {
    stable,       // no other phase would form, as far as the tangent plane shows
    tooMany,      // more than maximumPhases would
    notConverged, //
};

// As many phases as there are.
PhaseSearchStatus findStablePhases(const FlashProblem &problem, PhaseSplit &split);

// Whether no other phase would form beside these, whose fugacities are equal, as far as the tangent plane shows.
bool areStable(const FlashProblem &problem, const PhaseSplit &split);

// The best of one phase, and of two that are one vapor and one liquid or, where no vapor is allowed, two liquids; from
// the phases that findStablePhases left, which are others.
void findTwoPhases(const FlashProblem &problem, PhaseSplit &split);

} // namespace reference
