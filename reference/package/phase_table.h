// The phases of a package.
#pragma once

#include "reference/engine/phase/phase_state.h"

#include "platform/platform.h"

#include <span>
#include <string_view>

namespace reference {

struct PhaseRow {
    std::string_view label;
    std::string_view stateOfAggregation;
    std::string_view description;
    Root root;
};

enum PhaseIndex { vaporPhase, liquidPhase, phaseCount };

std::span<const PhaseRow, phaseCount> phaseTable();

// The phase with this label, compared without regard to case; null if there is none.
const PhaseRow *findPhase(BSTR label);

} // namespace reference
