// Two phases that are nearly one, as next to a critical point of a mixture.
#pragma once

#include "reference/engine/flash/two_phase_point.h"

namespace reference {

// Whether the phases of a point that has been evaluated are nearly one, and not two roots of an equation.
bool areNearPhases(const Feed &feed, const TwoPhasePoint &point);

// ln phi of every compound in the vapor less that in the liquid, of a point that has been evaluated: from the integral
// of its slopes along the straight line between the compositions, which keeps the digits that a difference of nearly
// equal numbers loses. False where the phases are too far apart for that, or at different roots; then nothing is
// written.
bool differenceOfNearPhases(const Feed &feed, const TwoPhasePoint &point, CompoundArray &difference);

} // namespace reference
