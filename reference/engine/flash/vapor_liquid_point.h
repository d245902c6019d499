// What makes a point of two phases the answer of a flash.
#pragma once

#include "reference/engine/flash/two_phase_point.h"

namespace reference {

// Whether the phases of a point are two, the first the vapor.
bool areVaporAndLiquid(const Feed &feed, const TwoPhasePoint &point);

// Whether temperature and pressure are where flashes look for solutions.
bool isWithinLimits(const Totals &totals);

// Whether no other phases at the same temperature and pressure have a lower Gibbs energy, as far as flashTP finds any,
// and it calls the first phase a vapor, too.
bool isStable(const Feed &feed, const TwoPhasePoint &point);

// What a point says as a result.
void giveResult(const Feed &feed, const TwoPhasePoint &point, FlashResult &result);

} // namespace reference
