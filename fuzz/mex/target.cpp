// mexFunction: commands with arguments of every class and shape, against components that answer what the input says and
// act in the midst of their answers. After the exit routine nothing is left: no reference, no array, no memory.
#include "commands/command_scratch.h"
#include "fuzz/input.h"
#include "fuzz/mex/session.h"
#include "gateway/lifecycle.h"
#include "gateway/state/global_lists.h"
#include "gateway/state/global_text.h"
#include "gateway/state/settings.h"
#include "platform/keep_reachable.h"
#include "platform/native/seam.h"

#include <cstdlib>
#include <utility>
#include <vector>

namespace {

std::vector<BSTR> lentForGood;

} // namespace

// In the place of the platform's: the names that managers were given for good are freed behind an input.
void keepReachable(const void *block) { lentForGood.push_back(static_cast<BSTR>(const_cast<void *>(block))); }

namespace {

constexpr int mostCommands = 40;

int ignoreMessage(HWND, LPCWSTR, LPCWSTR, UINT) { return 1; }

// What lasts as long as MATLAB does. The library is not loaded anew for each input: that it starts, it is told.
void startMatlab()
{
    seam::messageBox = ignoreMessage;
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    fuzz::RegisterClasses();
    EnsureStarted();
    mexStandInRunExit();
}

void startLibrary()
{
    mexAtExit(OnMexExit);
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    GlobalSettings = {};
    std::srand(1);
}

// Lists and texts last from one call to the next. The search for leaks, which looks at what is allocated before an input
// and after it, is quick when there is none of them left.
void forgetLists()
{
    NameList = {};
    HandleList = {};
    ConstantValues = {};
    LastError = {};
    ScratchText = {};
    ResultArray.Reset(1);
    NameArray.Reset(1);
    CommandContainers &scratch = CommandScratch;
    scratch.propertyLookupKeys = {};
    scratch.parsedProperties = {};
    scratch.resultRows = {};
    scratch.resultColumns = {};
    scratch.resultData = {};
    scratch.phaseLabelArgument.take(nullptr);
    scratch.solutionTypeArgument.take(nullptr);
    scratch.phasePairArray.Reset(1);
    scratch.flashSpecification1.Reset(1);
    scratch.flashSpecification2.Reset(1);
    scratch.constraintSlot1 = {};
    scratch.constraintSlot2 = {};
    std::vector<Bstr>().swap(scratch.phaseLabels);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    startMatlab();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::size_t arraysBefore = mxStandInLiveArrays();
    fuzz::Input input(data, size);
    startLibrary();
    {
        fuzz::Session session(input, input.chance(128) ? mexLEAVE_JUMP : mexLEAVE_UNWIND);
        session.openPackage();
        for (int i = 0; i < mostCommands && !input.atEnd(); ++i)
            session.callCommand();
        if (input.chance(128))
            session.giveBackKept();
        FUZZ_CHECK(mexStandInRunExit());
    }
    forgetLists();
    for (const BSTR name : std::exchange(lentForGood, {}))
        SysFreeString(name);
    mexStandInClearWarnings();
    FUZZ_CHECK(mxStandInLiveArrays() == arraysBefore);
    return 0;
}
