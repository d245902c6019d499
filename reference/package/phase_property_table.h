// The single-phase properties that a package calculates, and their names.
#pragma once

#include "reference/engine/phase_properties.h"

#include "platform/platform.h"

#include <span>
#include <string_view>

namespace reference {

// What a property name asks for: the property, or its derivative at otherwise constant temperature,
// pressure and composition.
enum class Variation { value, byTemperature, byPressure };
inline constexpr std::string_view variationSuffixes[] = {"", ".Dtemperature", ".Dpressure"};

struct PhaseProperty {
    using Calculation = void (*)(const PhaseProperties &phase, int compounds, double *values);

    std::string_view name;
    bool molar;                  // given per mole; others have no basis
    bool perCompound;            // one value for each compound
    Calculation calculations[3]; // by Variation
};
std::span<const PhaseProperty> phaseProperties();

struct PropertyRequest {
    const PhaseProperty *property = nullptr; // null for a name that isn't known
    Variation variation = Variation::value;
};
PropertyRequest parsePropertyName(BSTR name);

} // namespace reference
