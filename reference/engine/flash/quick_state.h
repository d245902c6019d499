// States that have given values, found in a short time where that is easy.
#pragma once

#include "reference/engine/equilibrium/equilibrium.h"

namespace reference {

// A state and whether its slopes are those of the mixture in equilibrium: on a jump there are none.
struct FoundState {
    Equilibrium equilibrium;
    bool slopesKnown = false;
};

// Finds the state of given temperature or pressure (`fixed`) where another variable has its value, if it is one phase
// or one vapor and one liquid and the way there from `start`, a logarithm of the other condition, has no obstacles. Two
// phases are left without the slopes of their mixture.
bool findQuickly(const Feed &feed, const FlashSpecification &fixed, const FlashSpecification &wanted, double start,
                 FoundState &state);

} // namespace reference
