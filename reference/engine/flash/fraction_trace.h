// The states of one vapor fraction with any number of liquids, followed by flashes.
#pragma once

#include "reference/engine/equilibrium/equilibrium.h"

namespace reference {

// Follows them, where the fraction is neither 0 nor 1, to one where another variable, which is neither a fraction nor
// temperature or pressure, has its value.
bool findOnFractionTrace(const Feed &feed, const FlashSpecification &fraction, const FlashSpecification &other,
                         FlashResult &result);

} // namespace reference
