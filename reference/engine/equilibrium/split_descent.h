// From a start to phases in equilibrium, downhill in the Gibbs energy.
#pragma once

#include "reference/engine/equilibrium/phase_split.h"

namespace reference {

// A phase that would rather be there than not, as the tangent plane shows.
struct TrialPhase {
    Root root;
    CompoundArray lnW; // logarithms of mole numbers, of which only the ratios count
    double distance;   // from the tangent plane
};

enum class SplitStatus {
    solved,       // phases of equal fugacities, with less Gibbs energy than at the start
    collapsed,    // only one phase is left
    notConverged, // the last digits were not reached
};

// Two phases, a liquid and a vapor, from the ratios that Wilson estimates.
SplitStatus splitFromWilson(const FlashProblem &problem, PhaseSplit &split);

// Takes some of a trial phase out of the phases there are, so that the Gibbs energy falls, and goes on from there to
// phases in equilibrium: fewer than before, perhaps. `split` is left as it was unless this succeeds.
SplitStatus splitFurther(const FlashProblem &problem, const TrialPhase &trial, PhaseSplit &split);

// Gives each phase with several roots the one of the lowest Gibbs energy that is allowed, and goes on to equilibrium if
// that changed any.
SplitStatus settleRoots(const FlashProblem &problem, PhaseSplit &split);

// From phases that have been updated to phases in equilibrium.
SplitStatus converge(const FlashProblem &problem, PhaseSplit &split);

} // namespace reference
