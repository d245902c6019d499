#include "reference/package/package_table.h"

namespace reference {

namespace {

using enum EquationOfState;

constexpr std::string_view naturalGasCompounds[] = {
    "methane",    "ethane",   "propane",  "n-butane",       "isobutane",        "n-pentane",
    "isopentane", "n-hexane", "nitrogen", "carbon dioxide", "hydrogen sulfide",
};

constexpr PackageDefinition packages[] = {
    {"Natural gas",
     "Methane to n-hexane with nitrogen, carbon dioxide and hydrogen sulfide, without water, by the Peng-Robinson "
     "equation",
     pengRobinson, naturalGasCompounds},
};

} // namespace

std::span<const PackageDefinition> packageTable() { return packages; }

const PackageDefinition &naturalGas() { return packages[0]; }

} // namespace reference
