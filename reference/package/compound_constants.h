// The properties of pure compounds that a package knows.
#pragma once

#include "reference/engine/compound_data.h"

#include <span>
#include <string_view>

namespace reference {

// A constant is a number or a text; the other function is null. A number that a compound doesn't
// have is NaN.
struct CompoundConstant {
    std::string_view name;
    double (*number)(const CompoundData &compound);
    std::string_view (*text)(const CompoundData &compound);
};
std::span<const CompoundConstant> compoundConstants();

struct TemperatureDependentProperty {
    std::string_view name;
    double (*value)(const CompoundData &compound, double kelvin);
};
std::span<const TemperatureDependentProperty> temperatureDependentProperties();

} // namespace reference
