#include "gateway/command_table.h"

#include "commands/calculation_commands.h"
#include "gateway/report/report_commands.h"

#include <limits>

namespace {

constexpr Command commandTable[] = {
    {1, 1, 0, 1, ListManagersCommand},
    {2, 2, 0, 1, ListPackagesCommand},
    {3, 3, 0, 1, CreateCommand},
    {4, 2, 0, 0, ReleaseCommand},
    {5, 1, 0, 1, ListHandlesCommand},
    {6, 2, 0, 1, PackageNameCommand},
    {7, 2, 0, 1, CompoundIdsCommand},
    {8, 2, 0, 1, PhaseLabelsCommand},
    {9, 3, 0, 1, PhaseStateCommand},
    {10, 2, 0, 1, PropertyListCommand},
    {11, 2, 0, 1, PropertyListCommand},
    {12, 2, 0, 1, PropertyListCommand},
    {13, 2, 0, 1, PropertyListCommand},
    {14, 2, 0, 1, PropertyListCommand},
    {15, 2, 0, 1, PropertyListCommand},
    {16, 3, 0, 1, ConstantCommand},
    {17, 2, 0, 0, SetWarningsCommand},
    {18, 2, 0, 0, SetBasisCommand},
    {19, 2, 0, 1, PropertyUnitCommand},
    {20, 5, 0, 1, TDependentPropertyCommand},
    {21, 5, 0, 1, PDependentPropertyCommand},
    {22, 8, 0, 1, SinglePhasePropertyCommand},
    {23, 10, 0, 1, TwoPhasePropertyCommand},
    {24, 8, 5, 5, SingleFlashCommand},
    {25, 10, 1, 1, BatchFlashCommand},
    {26, 1, 0, 1, VersionCommand},
    {28, 1, 0, 0, HelpCommand},
};

} // namespace

const Command *FindCommand(double code)
{
    constexpr double least = std::numeric_limits<int>::min();
    constexpr double most = std::numeric_limits<int>::max();
    if (!(code >= least && code <= most)) // a NaN is in no range
        return nullptr;
    const int wholeCode = static_cast<int>(code); // toward zero: 3.9 is command 3
    for (const Command &command : commandTable)
        if (command.code == wholeCode)
            return &command;
    return nullptr;
}
