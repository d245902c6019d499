// Where to begin the search for two phases with a given vapor fraction.
#pragma once

#include "reference/engine/flash/two_phase_point.h"

namespace reference {

// A first estimate of a state with these moles of vapor in one mole, at a temperature or pressure (`at`): by Wilson's
// ratios, then by some substitution of the fugacity coefficients into them. False when there is none within the limits
// of flashes.
bool estimatePoint(const Feed &feed, double vapor, const FlashSpecification &at, TwoPhasePoint &point);

// The temperature and pressure of that estimate.
bool estimateConditions(const Feed &feed, double vapor, const FlashSpecification &at, FlashConditions &conditions);

} // namespace reference
