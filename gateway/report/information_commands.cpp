// Commands 5 to 9: what is open, and what an open package holds.
#include "cape/same_name.h"
#include "gateway/call/marshalling.h"
#include "gateway/report/report_commands.h"
#include "gateway/state/global_lists.h"
#include "packages/handle_argument.h"

#include <algorithm>

Verdict ListHandlesCommand(const CommandCall &call)
{
    ListPackageHandles();
    const mwSize count = HandleList.size();
    const mwSize dimensions[] = {count, count == 0 ? mwSize{0} : mwSize{1}};
    call.results[0] = mxCreateNumericArray_730(2, dimensions, mxINT32_CLASS, mxREAL);
    std::copy(HandleList.begin(), HandleList.end(), static_cast<std::int32_t *>(mxGetData(call.results[0])));
    return Verdict::done();
}

Verdict PackageNameCommand(const CommandCall &call)
{
    OpenPackage *package = nullptr;
    if (Verdict verdict = ReadPackage(call.arguments[1], package); !verdict.isDone())
        return verdict;
    PutRowString(package->name, &call.results[0]);
    return Verdict::done();
}

Verdict CompoundIdsCommand(const CommandCall &call)
{
    OpenPackage *package = nullptr;
    if (Verdict verdict = ReadPackage(call.arguments[1], package); !verdict.isDone())
        return verdict;
    if (!EnsureCompounds(*package))
        return Verdict::failed();
    PutStringCell(package->compoundIds, &call.results[0]);
    return Verdict::done();
}

Verdict PhaseLabelsCommand(const CommandCall &call)
{
    OpenPackage *package = nullptr;
    if (Verdict verdict = ReadPackage(call.arguments[1], package); !verdict.isDone())
        return verdict;
    if (!EnsurePhases(*package))
        return Verdict::failed();
    PutStringCell(package->phaseLabels, &call.results[0]);
    return Verdict::done();
}

namespace {

// The state of aggregation of the phase that the argument names.
Verdict findPhaseState(OpenPackage &package, const mxArray *phase, const WideString *&state)
{
    StringArg label;
    if (Verdict verdict = label.read(phase, "Expected string value for phase ID"); !verdict.isDone())
        return verdict;
    if (!EnsurePhases(package))
        return Verdict::failed();
    for (std::size_t p = 0; p < package.phaseLabels.size(); ++p) {
        if (SameName(package.phaseLabels[p].c_str(), label.get())) {
            state = &package.phaseStatesOfAggregation[p];
            return Verdict::done();
        }
    }
    return Verdict::refuse("Undefined phase");
}

} // namespace

Verdict PhaseStateCommand(const CommandCall &call)
{
    OpenPackage *package = nullptr;
    if (Verdict verdict = ReadPackage(call.arguments[1], package); !verdict.isDone())
        return verdict;
    const WideString *state = nullptr;
    if (Verdict verdict = findPhaseState(*package, call.arguments[2], state); !verdict.isDone())
        return verdict;
    PutRowString(*state, &call.results[0]);
    return Verdict::done();
}
