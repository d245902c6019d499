// The sentences that say why a flash failed.
#pragma once

#include "reference/engine/equilibrium/flash_types.h"

#include <array>

namespace reference {

// Why a flash failed: a sentence without its full stop, such as "The vapor fraction 1.5 must be from 0 to 1".
using FlashReason = std::array<char, 320>; // ends with a zero

// What a variable is called, and the unit of its values ("" for a fraction).
const char *flashVariableName(FlashVariable variable);
const char *flashVariableUnit(FlashVariable variable);

// Writes a sentence as printf does, cut off where the reason is full.
[[gnu::format(printf, 2, 3)]] void giveReason(FlashReason &reason, const char *format, ...);

// A specification in words, such as "the pressure 100000 Pa".
struct SpecificationText {
    explicit SpecificationText(const FlashSpecification &specification);
    std::array<char, 64> text;
};

// The limits of a temperature or pressure in words: "from 0.01 Pa to 1e+08 Pa", or in short "from 0.01 to 1e8 Pa".
struct LimitsText {
    enum class Form { full, brief };

    explicit LimitsText(FlashVariable condition, Form form = Form::full);
    std::array<char, 64> text;
};

} // namespace reference
