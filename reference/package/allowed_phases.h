// The phases that a flash may use, by name, and what the engine is told of them.
#pragma once

#include "reference/engine/equilibrium/flash_types.h"
#include "reference/package/phase_table.h"

#include <array>

namespace reference {

struct AllowedPhases {
    std::array<bool, phaseCount> is{}; // at least one

    FlashPhases kinds() const
    {
        const bool bothLiquids = is[liquidPhase] && is[liquid2Phase];
        if (is[vaporPhase])
            return bothLiquids                           ? FlashPhases::vaporAndTwoLiquids
                   : is[liquidPhase] || is[liquid2Phase] ? FlashPhases::vaporAndLiquid
                                                         : FlashPhases::vaporOnly;
        return bothLiquids ? FlashPhases::twoLiquids : FlashPhases::liquidOnly;
    }

    // What the only liquid, or the first of two, is called.
    PhaseIndex firstLiquid() const { return is[liquidPhase] ? liquidPhase : liquid2Phase; }
};

} // namespace reference
