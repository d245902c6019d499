// The line of states with a given vapor fraction.
#pragma once

#include "reference/engine/flash/two_phase_point.h"

namespace reference {

enum class LineStatus {
    solved,
    otherType, // only solutions of another type than the one wanted are on the line
    unstable,  // only states are on the line that would split further, or otherwise
    notOnLine, // the whole line was followed, and has no such state
    noLine,    // no state with this vapor fraction was found at all
};

// Finds the state where the vapor fraction (of moles or mass) and another variable have their values. The
// feed must be allowed both phases.
LineStatus findOnQualityLine(const Feed &feed, const FlashSpecification &fraction, const FlashSpecification &other,
                             SolutionType type, FlashResult &result);

} // namespace reference
