#include "fuzz/mex/library.h"

#include "commands/command_scratch.h"
#include "fuzz/input.h"
#include "gateway/lifecycle.h"
#include "gateway/state/global_lists.h"
#include "gateway/state/global_text.h"
#include "gateway/state/settings.h"
#include "platform/keep_reachable.h"
#include "platform/matlab/standin.h"
#include "platform/native/seam.h"

#include <cstdlib>
#include <utility>
#include <vector>

namespace {

std::vector<BSTR> lentForGood;

} // namespace

// In the place of the platform's: the names that managers were given for good are freed behind an input.
void keepReachable(const void *block) { lentForGood.push_back(static_cast<BSTR>(const_cast<void *>(block))); }

namespace fuzz {

namespace {

int ignoreMessage(HWND, LPCWSTR, LPCWSTR, UINT) { return 1; }

// Lists and texts last from one call to the next. The search for leaks, which looks at what is allocated before an
// input and after it, is quick when there is none of them left.
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

void StartMatlab(Creator creator)
{
    seam::messageBox = ignoreMessage;
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    RegisterClasses(creator);
    EnsureStarted();
    mexStandInRunExit();
}

void StartLibrary()
{
    mexAtExit(OnMexExit);
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    GlobalSettings = {};
    std::srand(1);
}

void ExitLibrary()
{
    FUZZ_CHECK(mexStandInRunExit());
    forgetLists();
    mexStandInClearWarnings();
}

void FreeLentNames()
{
    for (const BSTR name : std::exchange(lentForGood, {}))
        SysFreeString(name);
}

} // namespace fuzz
