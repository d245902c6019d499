// The parser that every property name goes through.
#pragma once

#include "properties/property_keys.h"
#include "properties/vocabulary.h"

#include <cstdint>

enum DerivativeKind : std::int32_t {
    NoDerivative = 0,
    TemperatureDerivative = 1, // "Dtemperature"
    PressureDerivative = 2,    // "Dpressure"
    MolesDerivative = 3,       // "Dmoles"
    MolFractionDerivative = 4, // "DmolFraction"
};

struct ParsedProperty {
    std::int32_t kind;        // a PropertyKind; the batch flash writes marks above 4 of its own
    const PropertyInfo *info; // the row of the base property, not owned
    LPCWSTR massUnit;
    LPCWSTR moleUnit;
    std::int32_t basisPower;
    std::int32_t dimensions; // of the value: a composition derivative has one more than its row
    std::int32_t mixable;
    std::int32_t specific;
    DerivativeKind derivative;
};

// Splits `name` at its first dot into base property and derivative suffix and judges both against
// `table`, which also chooses a word of the message. `key` is the lower-cased name in front of the
// dot, owned or borrowed; `name` is as the caller got it and may be null. False with the reason in
// `errorText`; `result` may then be partly filled. Allocates nothing but the message.
bool ParsePropertyName(ParsedProperty &result, const PropertyTable &table, const WSTRMapKey &key, LPCWSTR name,
                       WideString &errorText);

// Lower-cases the name, cuts the suffix off for the key and parses. Allocates no more than the other.
bool ParsePropertyName(ParsedProperty &result, const PropertyTable &table, LPCWSTR name, WideString &errorText);
