// The packages that the library has.
#pragma once

#include "reference/engine/eos/equation_of_state.h"

#include <span>
#include <string_view>

namespace reference {

struct PackageDefinition {
    std::string_view name;
    std::string_view description;
    EquationOfState equation;
    std::span<const std::string_view> compounds; // ids in the compound table; empty for all of them
};

std::span<const PackageDefinition> packageTable();

// The package that can be created without a manager.
const PackageDefinition &naturalGas();

} // namespace reference
