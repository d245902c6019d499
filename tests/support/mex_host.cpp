#include "tests/support/mex_host.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <utility>

namespace support {

namespace {

// The library that was cleared last. It is unloaded only when it is to be loaded afresh, so that
// at the end of the process the leak checker finds its data and its names.
HMODULE cleared = nullptr;

} // namespace

MexLeave LeaveOfThisRun()
{
    const char *choice = std::getenv("VERDANTH_TEST_LEAVE");
    if (!choice || std::strcmp(choice, "unwind") == 0)
        return mexLEAVE_UNWIND;
    if (std::strcmp(choice, "jump") == 0)
        return mexLEAVE_JUMP;
    std::fprintf(stderr, "VERDANTH_TEST_LEAVE is neither unwind nor jump\n");
    std::exit(2);
}

MexHost::MexHost() { load(); }

MexHost::~MexHost() { clear(); }

void MexHost::load()
{
    if (module)
        return;
    if (cleared)
        FreeLibrary(std::exchange(cleared, nullptr));
    module = LoadLibraryW(OLESTR("Verdanth.mexw64"));
    if (module)
        function = reinterpret_cast<MexFunction>(reinterpret_cast<void *>(GetProcAddress(module, "mexFunction")));
}

bool MexHost::clear()
{
    const bool ran = mexStandInRunExit();
    function = nullptr;
    if (module)
        cleared = std::exchange(module, nullptr);
    return ran;
}

CallResult MexHost::call(int nlhs, const std::vector<Array> &arguments)
{
    std::vector<const mxArray *> inputs;
    for (const Array &argument : arguments)
        inputs.push_back(argument.get());
    std::vector<mxArray *> outputs(nlhs > 1 ? nlhs : 1);

    CallResult result;
    mexStandInClearWarnings();
    result.returned = mexStandInCall(function, nlhs, outputs.data(), static_cast<int>(inputs.size()), inputs.data(),
                                     LeaveOfThisRun());
    result.error = mexStandInError();
    for (std::size_t i = 0; i < mexStandInWarningCount(); ++i)
        result.warnings.emplace_back(mexStandInWarning(i));
    for (mxArray *output : outputs)
        result.outputs.push_back(output ? Array(output) : Array());
    return result;
}

} // namespace support
