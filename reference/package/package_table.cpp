#include "reference/package/package_table.h"

#include "reference/engine/phase/local_compositions.h"

#include <iterator>

namespace reference {

namespace {

using enum EquationOfState;

constexpr std::string_view naturalGasCompounds[] = {
    "methane",    "ethane",   "propane",  "n-butane",       "isobutane",        "n-pentane",
    "isopentane", "n-hexane", "nitrogen", "carbon dioxide", "hydrogen sulfide",
};

constexpr std::string_view airCompounds[] = {"nitrogen", "oxygen", "argon",   "carbon dioxide",
                                             "neon",     "helium", "krypton", "xenon"};

constexpr std::string_view refineryGasCompounds[] = {
    "hydrogen",  "nitrogen",  "carbon monoxide", "carbon dioxide", "hydrogen sulfide",
    "methane",   "ethane",    "ethylene",        "propane",        "propylene",
    "n-butane",  "isobutane", "1-butene",        "cis-2-butene",   "trans-2-butene",
    "isobutene", "n-pentane", "isopentane",      "n-hexane",       "carbonyl sulfide",
};

constexpr std::string_view aromaticsCompounds[] = {
    "benzene",     "toluene",           "ethylbenzene", "o-xylene",  "m-xylene", "p-xylene",
    "cyclohexane", "methylcyclohexane", "n-hexane",     "n-heptane", "n-octane",
};

constexpr std::string_view refrigerantsCompounds[] = {
    "R-22",     "R-23",        "R-32",    "R-125",     "R-134a",  "R-143a",         "R-152a",
    "R-1234yf", "R-1234ze(E)", "propane", "isobutane", "ammonia", "carbon dioxide", "dimethyl ether",
};

constexpr std::string_view alcoholCompounds[] = {"water",      "methanol",   "ethanol",
                                                 "1-propanol", "2-propanol", "1-butanol"};
static_assert(std::size(alcoholCompounds) <= maximumNrtlCompounds);

constexpr std::string_view wetGasCompounds[] = {
    "methane",   "ethane",   "propane",   "isobutane",      "n-butane",         "isopentane",
    "n-pentane", "n-hexane", "n-heptane", "n-octane",       "n-nonane",         "n-decane",
    "benzene",   "toluene",  "nitrogen",  "carbon dioxide", "hydrogen sulfide", "water",
};

constexpr PackageDefinition packages[] = {
    {"Natural gas",
     "Methane to n-hexane with nitrogen, carbon dioxide and hydrogen sulfide, without water, by the Peng-Robinson "
     "equation",
     pengRobinson, naturalGasCompounds},
    {"Air", "Nitrogen, oxygen and argon with the traces in air, by the Peng-Robinson equation", pengRobinson,
     airCompounds},
    {"Refinery gas",
     "Hydrogen, carbon monoxide and light alkanes and alkenes with acid gases, by the Soave-Redlich-Kwong equation",
     soaveRedlichKwong, refineryGasCompounds},
    {"Aromatics", "Benzene to the xylenes with the alkanes that boil between them, by the Peng-Robinson equation",
     pengRobinson, aromaticsCompounds},
    {"Refrigerants", "Fluorinated and natural refrigerants by the Peng-Robinson equation", pengRobinson,
     refrigerantsCompounds},
    {"Water and light alcohols",
     "Water and the alcohols up to 1-butanol at low pressure, by activity coefficients of NRTL and an ideal vapor; "
     "the propanols without water",
     nrtl, alcoholCompounds},
    {"Wet gas and hydrocarbons",
     "Methane to n-decane, benzene and toluene with nitrogen, acid gases and water, in up to three phases, by the "
     "Peng-Robinson equation",
     pengRobinson, wetGasCompounds},
    {"All compounds (Peng-Robinson)", "Every compound of the library, by the Peng-Robinson equation", pengRobinson, {}},
    {"All compounds (Soave-Redlich-Kwong)",
     "Every compound of the library, by the Soave-Redlich-Kwong equation",
     soaveRedlichKwong,
     {}},
};

} // namespace

std::span<const PackageDefinition> packageTable() { return packages; }

const PackageDefinition &naturalGas() { return packages[0]; }

} // namespace reference
