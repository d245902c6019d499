// The handle argument, identical wherever a handle is taken.
#pragma once

#include "gateway/call/verdict.h"
#include "packages/package_table.h"
#include "platform/matlab/matlab.h"

// The record of the package that an int32 scalar names.
inline Verdict ReadHandle(const mxArray *array, std::int32_t &handle)
{
    if (!mxIsInt32(array) || mxGetNumberOfElements(array) != 1)
        return Verdict::refuse("Invalid property package handle");
    handle = *static_cast<const std::int32_t *>(mxGetData(array));
    return Verdict::done();
}

inline Verdict ReadPackage(const mxArray *array, OpenPackage *&package)
{
    std::int32_t handle = 0;
    if (Verdict verdict = ReadHandle(array, handle); !verdict.isDone())
        return verdict;
    package = UsePackage(handle);
    return package ? Verdict::done() : Verdict::refuse("Invalid property package handle");
}
