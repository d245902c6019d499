#include "host/library.h"

#include "platform/procedure.h"

#include <algorithm>
#include <type_traits>
#include <utility>

namespace host {

namespace {

// The library that was cleared last. It is unloaded only when it is to be loaded afresh, so that
// at the end of the process the leak checker finds its data and its names.
HMODULE cleared = nullptr;

} // namespace

CallResult Call(MexFunction function, int nlhs, const std::vector<Array> &arguments, MexLeave leave)
{
    std::vector<const mxArray *> inputs;
    inputs.reserve(arguments.size());
    for (const Array &argument : arguments)
        inputs.push_back(argument.get());
    std::vector<mxArray *> outputs(static_cast<std::size_t>(std::max(nlhs, 1)));

    CallResult result;
    mexStandInClearWarnings();
    result.returned =
        mexStandInCall(function, nlhs, outputs.data(), static_cast<int>(inputs.size()), inputs.data(), leave);
    result.error = mexStandInError();
    for (std::size_t i = 0; i < mexStandInWarningCount(); ++i)
        result.warnings.emplace_back(mexStandInWarning(i));
    result.outputs.reserve(outputs.size());
    for (mxArray *output : outputs)
        result.outputs.push_back(output ? Array(output) : Array());
    return result;
}

Library::Library(MexLeave errorsLeave, const WideString &file) : leave(errorsLeave), name(file) { load(); }

Library::~Library() { clear(); }

void Library::load()
{
    if (module)
        return;
    if (cleared)
        FreeLibrary(std::exchange(cleared, nullptr));
    module = LoadLibraryW(name.c_str());
    if (module)
        function = findProcedure<std::remove_pointer_t<MexFunction>>(module, "mexFunction");
}

bool Library::clear()
{
    const bool ran = mexStandInRunExit();
    function = nullptr;
    if (module)
        cleared = std::exchange(module, nullptr);
    return ran;
}

CallResult Library::call(int nlhs, const std::vector<Array> &arguments)
{
    return Call(function, nlhs, arguments, leave);
}

} // namespace host
