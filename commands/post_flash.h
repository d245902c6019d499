// What the batch flash reports of a row.
#pragma once

#include "commands/stored_lookup.h"
#include "gateway/call/verdict.h"
#include "material/material_object.h"
#include "properties/property_name.h"

#include <cstddef>
#include <cstdint>
#include <vector>

// Kinds of results beside the single-phase properties of the vocabulary.
enum FlashResultKind : std::int32_t {
    TemperatureResult = 5,
    PressureResult = 6,
    VaporFractionResult = 7,
};

// Reads one result name: one of the three above, or a property of which a mixture has an overall
// value. Refuses others.
Verdict ReadFlashResult(const WideString &name, ParsedProperty &property);

// The value of result `index` of the row that was just flashed, with the lookups of the phases. A vapor fraction that
// can't be converted is a NaN and a warning; every other failure ends the command.
Verdict FlashResult(const CMaterialObject &material, std::vector<StoredLookup> &lookups, std::size_t index,
                    std::int32_t vaporPhase, double &value);
