// States of equilibrium that have given values, neither of them a vapor fraction.
#pragma once

#include "reference/engine/flash/quick_state.h"
#include "reference/engine/numerics/root_search.h"

namespace reference {

// What was found out about values that were not reached.
struct SearchFindings {
    bool phasesNotFound = false; // a flash on the way failed
    bool jumped = false;         // the value lies in a jump of this variable,
    FlashVariable jumping;       //
    double from, to;             // between these values of it,
    double temperature;          // here
    double pressure;
};

// Finds the state of given temperature or pressure (`fixed`) where another variable has its value. The
// search starts at a pressure or temperature; a thorough one goes on where others give up.
SearchStatus solveAtCondition(const Feed &feed, const FlashSpecification &fixed, const FlashSpecification &wanted,
                              double start, bool thorough, FoundState &state, SearchFindings &findings);

// Finds the state where two variables, neither temperature nor pressure, have their values.
SearchStatus solveWithoutCondition(const Feed &feed, const FlashSpecification &first, const FlashSpecification &second,
                                   FoundState &state, SearchFindings &findings);

} // namespace reference
