// The properties of pure compounds that a package knows.
#pragma once

#include "reference/package/saturated_compound.h"

#include <span>
#include <string_view>

namespace reference {

// A constant is a number or a text; the other function is null. An unknown number is NaN, an unknown
// text is empty.
struct CompoundConstant {
    std::string_view name;
    double (*number)(const PureCompound &compound);
    std::string_view (*text)(const PureCompound &compound);
};
std::span<const CompoundConstant> compoundConstants();

// A range in which a property of a compound is known; both ends are NaN where there is none.
struct KnownRange {
    double lowest;
    double highest;

    bool contains(double value) const { return value >= lowest && value <= highest; }
};

// A property of the pure compound that depends on one condition: the temperature (K), or the pressure
// (Pa). Call it within the range only; NaN where it cannot be calculated there.
struct ConditionedProperty {
    std::string_view name;
    double (*value)(const PureCompound &compound, double condition);
    KnownRange (*range)(const CompoundData &compound);
};
struct ConditionedProperties {
    std::string_view condition; // name of the condition
    std::string_view unit;
    std::span<const ConditionedProperty> rows;
};
const ConditionedProperties &temperatureDependentProperties();
const ConditionedProperties &pressureDependentProperties();

} // namespace reference
