#include "client/command_names.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr CommandWords commands[] = {
    {1, "capeOpenManagerList", 0, false},
    {2, "capeOpenPackageList", 0, false},
    {3, "capeOpenCreate", 0, false},
    {4, "capeOpenRelease", 1, false},
    {5, "capeOpenHandleList", 0, false},
    {6, "capeOpenName", 1, false},
    {7, "capeOpenCompoundList", 1, false},
    {8, "capeOpenPhaseList", 1, false},
    {9, "capeOpenPhaseState", 1, false},
    {10, "capeOpenConstantPropList", 1, false},
    {11, "capeOpenTDependentPropList", 1, false},
    {12, "capeOpenPDependentPropList", 1, false},
    {13, "capeOpenSinglePhasePropList", 1, false},
    {14, "capeOpenTwoPhasePropList", 1, false},
    {15, "capeOpenFlashPropList", 1, false},
    {16, "capeOpenConstant", 1, false},
    {17, "capeOpenWarnings", 0, false},
    {18, "capeOpenBasis", 0, false},
    {19, "capeOpenPropUnit", 0, false},
    {20, "capeOpenTDependentProp", 2, true},
    {21, "capeOpenPDependentProp", 2, true},
    {22, "capeOpenSinglePhaseProp", 2, true},
    {23, "capeOpenTwoPhaseProp", 2, true},
    {24, "capeOpenFlash", 1, true},
    {25, "capeOpenMultiFlash", 1, true},
    {26, "capeOpenVersion", 0, false},
    {28, "capeOpenHelp", 0, false},
};

} // namespace

const CommandWords *WordsOf(int code)
{
    const auto *found = std::find_if(std::begin(commands), std::end(commands),
                                     [code](const CommandWords &command) { return command.code == code; });
    return found == std::end(commands) ? nullptr : found;
}

std::string WhereIn(int code)
{
    const CommandWords *command = WordsOf(code);
    if (!command)
        return "in command " + std::to_string(code);
    return std::string(command->calculates ? "while calculating " : "in ") + command->function;
}
