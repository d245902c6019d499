// The properties of pure compounds that a package knows.
#pragma once

#include "reference/package/saturated_compound.h"

#include <span>
#include <string_view>

namespace reference {

// A constant is a number or a text; the other function is null. A number that is not known is NaN, a
// text that is not known is empty.
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
};

// A property of the compound alone that changes with one condition: its temperature (K), or its
// pressure (Pa). Not to be asked for outside of the range; NaN if it can't be had in it.
struct ConditionedProperty {
    std::string_view name;
    double (*value)(const PureCompound &compound, double condition);
    KnownRange (*range)(const CompoundData &compound);
};
struct ConditionedProperties {
    std::string_view condition; // its name
    std::string_view unit;
    std::span<const ConditionedProperty> rows;
};
const ConditionedProperties &temperatureDependentProperties();
const ConditionedProperties &pressureDependentProperties();

} // namespace reference
