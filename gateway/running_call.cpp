#include "gateway/running_call.h"

#include "cape/com/component_call.h"
#include "commands/command_scratch.h"
#include "gateway/state/global_lists.h"
#include "gateway/state/global_text.h"
#include "gateway/state/host_mode.h"
#include "gateway/state/settings.h"
#include "packages/package_table.h"

#include <memory>
#include <tuple>
#include <utility>

namespace {

// What the calls share and one that began within another must not touch.
auto sharedState()
{
    return std::tie(LastError, ScratchText, NameList, HandleList, ConstantValues, ResultArray, NameArray,
                    CommandScratch, PackageInUse, GlobalSettings.defaultBasis);
}

template <class... State> std::tuple<State...> emptyState(std::tuple<State &...>) { return {}; }

struct OuterCall {
    int depth; // of the component call in which the inner call began
    decltype(emptyState(sharedState())) state;
};

// Of the calls that wait for an inner one, the outermost first.
std::vector<std::unique_ptr<OuterCall>> outerCalls;

void exchangeStateWith(OuterCall &call)
{
    auto shared = sharedState();
    std::apply([&shared](auto &...kept) { std::tie(kept...).swap(shared); }, call.state);
}

void noteInnermost() { ComponentCalls.innerCall = outerCalls.empty() ? 0 : outerCalls.back()->depth; }

void endInnerCall()
{
    const std::unique_ptr<OuterCall> outer = std::move(outerCalls.back());
    outerCalls.pop_back();
    noteInnermost();
    exchangeStateWith(*outer); // what the inner call leaves goes with `outer`
}

void beginInnerCall()
{
    auto outer = std::make_unique<OuterCall>();
    outer->depth = ComponentCalls.depth;
    exchangeStateWith(*outerCalls.emplace_back(std::move(outer)));
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
    GlobalSettings.defaultBasis = GlobalSettings.chosenBasis;
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
