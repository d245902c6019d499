#include "gateway/running_call.h"

#include "cape/com/component_call.h"
#include "commands/command_scratch.h"
#include "gateway/state/global_lists.h"
#include "gateway/state/global_text.h"
#include "gateway/state/host_mode.h"
#include "packages/package_table.h"

#include <memory>
#include <utility>

namespace {

struct SharedState {
    int depth; // of the component call in which the inner call began
    WideString lastError;
    WideString scratchText;
    std::vector<WideString> nameList;
    std::vector<std::int32_t> handleList;
    std::vector<double> constantValues;
    VariantArray resultArray;
    VariantArray nameArray;
    CommandContainers commandScratch;
    std::shared_ptr<OpenPackage> packageInUse;
};

// Of the calls that wait for an inner one, the outermost first.
std::vector<std::unique_ptr<SharedState>> outerCalls;

void exchangeWith(SharedState &state)
{
    std::swap(LastError, state.lastError);
    std::swap(ScratchText, state.scratchText);
    std::swap(NameList, state.nameList);
    std::swap(HandleList, state.handleList);
    std::swap(ConstantValues, state.constantValues);
    std::swap(ResultArray, state.resultArray);
    std::swap(NameArray, state.nameArray);
    std::swap(CommandScratch, state.commandScratch);
    std::swap(PackageInUse, state.packageInUse);
}

void noteInnermost() { ComponentCalls.innerCall = outerCalls.empty() ? 0 : outerCalls.back()->depth; }

void endInnerCall()
{
    const std::unique_ptr<SharedState> outer = std::move(outerCalls.back());
    outerCalls.pop_back();
    noteInnermost();
    exchangeWith(*outer); // what the inner call leaves goes with `outer`
}

void beginInnerCall()
{
    auto outer = std::make_unique<SharedState>();
    outer->depth = ComponentCalls.depth;
    exchangeWith(*outerCalls.emplace_back(std::move(outer)));
    noteInnermost();
    ComponentCalls.endInnerCall = endInnerCall;
}

} // namespace

RunningCall::RunningCall() : isInner(ComponentCalls.depth > 0)
{
    if (isInner) {
        beginInnerCall();
    } else {
        ForgetAbandonedCalls();
        HostFloatingPointMode = FloatingPointMode::current();
    }
    mode.emplace(HostFloatingPointMode);
}

RunningCall::~RunningCall()
{
    PackageInUse.reset();
    if (isInner)
        endInnerCall();
}

void RunningCall::releasePackage()
{
    PackageInUse.reset();
    if (isInner)
        ResultArray.Reset(1); // it may hold objects of the package
}

void ForgetAbandonedCalls()
{
    while (!outerCalls.empty())
        endInnerCall();
    PackageInUse.reset();
}
