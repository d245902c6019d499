// The packages that the library has.
#pragma once

#include <span>
#include <string_view>

namespace reference {

struct PackageDefinition {
    std::string_view name;
    std::string_view description;
    std::span<const std::string_view> compounds; // ids of the compound table, at most maximumCompounds
};

std::span<const PackageDefinition> packageTable();

const PackageDefinition &naturalGas();

} // namespace reference
