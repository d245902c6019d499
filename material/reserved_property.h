// The six names that a material answers from its fields and never looks for in its maps.
#pragma once

#include "platform/platform.h"

#include <cstddef>
#include <cstdint>

enum class ReservedProperty { Temperature, Pressure, Flow, TotalFlow, Fraction, PhaseFraction, None };

inline constexpr std::size_t reservedPropertyCount = static_cast<std::size_t>(ReservedProperty::None);

// HashName of the lower-cased names, in the order of ReservedProperty. One comparison of a number
// tells almost every other name apart.
extern std::uint64_t ReservedPropertyHashes[reservedPropertyCount];

// Fills ReservedPropertyHashes, once in a process.
void BuildReservedPropertyHashes();

// Which of the six `name` is. `stemHash` is the HashName of the lower-cased name without its
// suffix; a name with a suffix is none of them. A null name is none.
ReservedProperty ReservedPropertyOf(std::uint64_t stemHash, LPCWSTR name);

// The words of the two conditions, which take no basis and hold one number.
struct ConditionTexts {
    LPCWSTR unwantedBasis;
    LPCWSTR notSet;
    LPCWSTR notScalar;
    LPCWSTR missingValue;
};
extern const ConditionTexts temperatureTexts;
extern const ConditionTexts pressureTexts;

// The words that reading and writing have in common.
extern const LPCWSTR fractionBasisText;
extern const LPCWSTR flowText;
extern const LPCWSTR totalFlowText;
extern const LPCWSTR overallPhaseFractionText;
