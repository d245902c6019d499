// What the batch flash reports of a row.
#pragma once

#include "commands/stored_lookup.h"
#include "gateway/call/verdict.h"
#include "material/material_object.h"
#include "properties/chain_rule.h"
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

// A material that results are read from, with what is looked up and worked out once for several of them.
class FlashedMixture {
public:
    FlashedMixture(const CMaterialObject &flashed, std::size_t nameCount);

    const CMaterialObject &material;

    // To be called behind each flash: compositions have changed.
    void startRow();

    const PropertyValues *stored(std::int32_t phase, std::size_t index);

    // Brings a value of a phase, or of all, to the other basis, in place; power 0 leaves it.
    Verdict convertOfPhase(std::int32_t phase, std::int32_t power, double &value);
    Verdict convertOfOverall(std::int32_t power, double &value);

private:
    std::vector<StoredLookup> lookups;       // of the phases
    std::vector<KnownMolarMass> molarMasses; // of the phases
    KnownMolarMass overallMolarMass;
};

// The value of result `index` of the row that was just flashed. A vapor fraction that can't be converted is a NaN and a
// warning; every other failure ends the command.
Verdict FlashResult(FlashedMixture &mixture, std::size_t index, std::int32_t vaporPhase, double &value);
