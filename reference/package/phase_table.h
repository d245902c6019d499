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

// The phase of a label in any case; null for another.
const PhaseRow *findPhase(BSTR label);

} // namespace reference
