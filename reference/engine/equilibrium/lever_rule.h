// States at the same temperature and pressure that are in equilibrium with each other.
#pragma once

#include "reference/engine/equilibrium/equilibrium.h"

namespace reference {

// Where a feed can be in two states with the same chemical potentials it can be anything between them, with the phases
// of both: a pure compound that boils, two compounds in three phases. Makes the mixture that has `part` of the second
// one. False when these are no such states, or have too many phases together.
bool mixStates(const Feed &feed, const FlashResult &first, const FlashResult &second, double part, FlashResult &mixed);

} // namespace reference
