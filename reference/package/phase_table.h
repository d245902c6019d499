// The phases of a package.
#pragma once

#include "reference/engine/compounds/compound_data.h"
#include "reference/engine/phase/phase_state.h"

#include "platform/platform.h"

#include <span>
#include <string_view>

namespace reference {

enum PhaseIndex { vaporPhase, liquidPhase, liquid2Phase, phaseCount };

struct PhaseRow {
    PhaseIndex index;
    std::string_view label;
    std::string_view stateOfAggregation;
    std::string_view description;
    Root root;
};

std::span<const PhaseRow, phaseCount> phaseTable();

// The phase with this label, compared without regard to case; null if there is none.
const PhaseRow *findPhase(BSTR label);

// The compound that a phase is rich in, by its id: the second liquid of packages that have water is the aqueous one.
// Empty where there is none.
std::string_view keyCompoundOf(const PhaseRow &phase, std::span<const CompoundData *const> compounds);

} // namespace reference
