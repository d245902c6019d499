#include "host/value_call.h"

#include <algorithm>

namespace host {

bool ValueCall::run(MexFunction function, int outputs, const std::vector<wire::Value> &arguments)
{
    clear();
    given.reserve(arguments.size());
    for (const wire::Value &argument : arguments)
        given.push_back(ArrayOf(argument));
    if (std::count(given.begin(), given.end(), nullptr) != 0) {
        words = "Out of memory.";
        return false;
    }
    returned.assign(static_cast<std::size_t>(std::max(outputs, 1)), nullptr);
    const bool worked = mexStandInCall(function, outputs, returned.data(), static_cast<int>(given.size()),
                                       const_cast<const mxArray **>(given.data()), mexLEAVE_UNWIND);
    if (!worked)
        words = mexStandInError();
    for (std::size_t i = 0; i < mexStandInWarningCount(); ++i)
        warned.emplace_back(mexStandInWarning(i));
    mexStandInClearWarnings();
    if (worked)
        for (const mxArray *array : returned)
            values.push_back(ValueOf(array));
    return worked;
}

void ValueCall::release()
{
    values.clear();
    for (std::vector<mxArray *> *arrays : {&given, &returned}) {
        for (mxArray *array : *arrays)
            mxDestroyArray(array);
        arrays->clear();
    }
}

void ValueCall::clear()
{
    release();
    warned.clear();
    words.clear();
}

} // namespace host
