#include "tests/mex/failures/command_rows.h"

#include "tests/mex/failures/surroundings.h"

#include <algorithm>
#include <stdexcept>

namespace support {

namespace {

using Arguments = std::vector<Array>;

// Most commands: the code and the handle.
template <int code> Arguments ofHandle(const Array &handle) { return {Scalar(code), handle}; }

template <int code> Arguments alone(const Array &) { return {Scalar(code)}; }

Array twoTemperatures() { return Column({300, 350}); }
Array twoPressures() { return Column({1e5, 2e5}); }
Array composition() { return Row({0.5, 0.5}); }

} // namespace

WideString UnnamedPackage() { return ClassIdText(ComponentWorld::classIdOf(mostTestClasses)); }

const std::vector<CommandRow> &CommandRows()
{
    static const std::vector<CommandRow> rows = {
        {"ListManagers", 1, nullptr, alone<1>, scansFirst},
        {"ListPackages", 1, nullptr,
         [](const Array &) {
             return Arguments{Scalar(2), Text("Manager")};
         },
         scans},
        {"ListPackagesOfAPackage", 1, nullptr,
         [](const Array &) {
             return Arguments{Scalar(2), Text("Alone")};
         },
         scans},
        {"Create", 1, nullptr,
         [](const Array &) {
             return Arguments{Scalar(3), Text("Alone"), Text("")};
         },
         opens | scansFirst},
        {"CreateThroughManager", 1, nullptr,
         [](const Array &) {
             return Arguments{Scalar(3), Text("Manager"), Text("Inner")};
         },
         opens | scans},
        {"CreateThroughRelay", 1, nullptr,
         [](const Array &) {
             return Arguments{Scalar(3), Text("Old"), Text("")};
         },
         opens | scans},
        {"CreateUnnamedThroughRelay", 1, nullptr,
         [](const Array &) {
             return Arguments{Scalar(3), Text(UnnamedPackage()), Text("")};
         },
         opens | scans},
        {"Release", 0, "Alone", ofHandle<4>, closes},
        {"ListHandles", 1, "Alone", alone<5>},
        {"PackageName", 1, "Alone", ofHandle<6>},
        {"CompoundIds", 1, "Alone", ofHandle<7>},
        {"PhaseLabels", 1, "Alone", ofHandle<8>},
        {"PhaseState", 1, "Alone",
         [](const Array &handle) {
             return Arguments{Scalar(9), handle, Text("liquid")};
         }},
        {"ConstantProperties", 1, "Alone", ofHandle<10>},
        {"TDependentProperties", 1, "Alone", ofHandle<11>},
        {"PDependentProperties", 1, "Alone", ofHandle<12>},
        {"SinglePhaseProperties", 1, "Alone", ofHandle<13>},
        {"TwoPhaseProperties", 1, "Alone", ofHandle<14>},
        {"FlashProperties", 1, "Alone", ofHandle<15>},
        {"ConstantNumbers", 1, "Alone",
         [](const Array &handle) {
             return Arguments{Scalar(16), handle, Text("molecularWeight")};
         },
         inMassBasis},
        {"ConstantTexts", 1, "Alone",
         [](const Array &handle) {
             return Arguments{Scalar(16), handle, Text("casRegistryNumber")};
         }},
        {"SetWarnings", 0, nullptr,
         [](const Array &) {
             return Arguments{Scalar(17), Logical(true)};
         }},
        {"SetBasis", 0, nullptr,
         [](const Array &) {
             return Arguments{Scalar(18), Text("mole")};
         }},
        {"PropertyUnit", 1, nullptr,
         [](const Array &) {
             return Arguments{Scalar(19), Text("idealGasEnthalpy.Dtemperature")};
         }},
        {"TDependentProperty", 1, "Alone",
         [](const Array &handle) {
             return Arguments{Scalar(20), Scalar(2), handle, Text("vaporPressure idealGasHeatCapacity"),
                              twoTemperatures()};
         },
         inMassBasis},
        {"PDependentProperty", 1, "Alone",
         [](const Array &handle) {
             return Arguments{Scalar(21), Scalar(1), handle, Text("boilingPointAtPressure"), twoPressures()};
         }},
        {"SinglePhaseProperty", 1, "Alone",
         [](const Array &handle) {
             return Arguments{
                 Scalar(22),        Scalar(3),      handle,        Text("volume fugacityCoefficient enthalpy"),
                 twoTemperatures(), twoPressures(), composition(), Text("Vapor")};
         }},
        {"SinglePhasePropertyInMassBasis", 1, "Alone",
         [](const Array &handle) {
             return Arguments{Scalar(22),  Scalar(2),   handle,        Text("volume enthalpy.Dmolfraction"),
                              Scalar(300), Scalar(1e5), composition(), Text("vapor")};
         },
         inMassBasis},
        {"TwoPhaseProperty", 1, "Alone",
         [](const Array &handle) {
             return Arguments{
                 Scalar(23),        Scalar(3),     handle,        Text("surfaceTension kvalue surfaceTension.Dmoles"),
                 twoTemperatures(), Scalar(1e5),   composition(), composition(),
                 Text("Vapor"),     Text("Liquid")};
         }},
        {"Flash", 5, "Alone",
         [](const Array &handle) {
             return Arguments{Scalar(24),  handle,           composition(), Text("Temperature"),
                              Scalar(300), Text("Pressure"), Scalar(1e5),   Text("Unspecified")};
         }},
        {"FlashInMassBasis", 5, "Alone",
         [](const Array &handle) {
             return Arguments{Scalar(24),  handle,           composition(), Text("vaporFraction"),
                              Scalar(0.5), Text("enthalpy"), Scalar(-1e3),  Text("Unspecified")};
         },
         inMassBasis},
        {"BatchFlash", 1, "Alone",
         [](const Array &handle) {
             return Arguments{Scalar(25),        handle,
                              composition(),     Text("Temperature"),
                              twoTemperatures(), Text("Pressure"),
                              Scalar(1e5),       Text("Unspecified"),
                              Scalar(4),         Texts({"Temperature", "Pressure", "vaporFraction", "enthalpy"})};
         },
         inMassBasis | goesOn},
        {"Version", 1, nullptr, alone<26>},
        {"Help", 0, nullptr, alone<28>},
    };
    return rows;
}

namespace {

auto findCommand(std::string_view name)
{
    const auto found = std::find_if(CommandRows().begin(), CommandRows().end(),
                                    [&](const CommandRow &row) { return row.name == name; });
    if (found == CommandRows().end())
        throw std::invalid_argument("no command is called " + std::string(name));
    return found;
}

} // namespace

const CommandRow &RowOf(std::string_view name) { return *findCommand(name); }

std::vector<CommandRow> RowsBetween(std::string_view first, std::string_view behind)
{
    return {findCommand(first), behind.empty() ? CommandRows().end() : findCommand(behind)};
}

} // namespace support
