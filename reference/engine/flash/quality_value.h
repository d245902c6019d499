// States where the vapor fraction and a variable other than temperature and pressure have their values, with any number
// of liquids.
#pragma once

#include "reference/engine/equilibrium/equilibrium.h"

namespace reference {

// Looks along the temperature and the pressure, by flashes alone: slower than what follows the line of two phases, and
// not bound to it.
bool findByQuality(const Feed &feed, const FlashSpecification &fraction, const FlashSpecification &other,
                   FlashResult &result);

} // namespace reference
