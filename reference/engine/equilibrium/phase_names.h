// Which phase of a split is called the vapor, and which are the liquids.
#pragma once

#include "reference/engine/equilibrium/flash_types.h"
#include "reference/engine/equilibrium/phase_split.h"
#include "reference/engine/equilibrium/present_compounds.h"

namespace reference {

// Writes the phases into the result under the names that flash_tp.h and FlashResult say. False when the names that are
// allowed do not fit them: a phase that stands at one of two roots can only have that one's name.
bool namePhases(const FlashProblem &problem, const PhaseSplit &split, FlashPhases allowed,
                const PresentCompounds &present, FlashResult &result);

// Whether the first of two liquids is the second one by name.
bool isSecondLiquid(const MixtureModel &model, const CompoundArray &x, const PhaseState &state,
                    const CompoundArray &otherX, const PhaseState &otherState);

// A phase's volume in units of its own covolume; that of the ideal mixture, by its root alone.
double relativeVolume(const FlashProblem &problem, const PhaseState &state);

} // namespace reference
