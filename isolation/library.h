// The library that the process plays MATLAB for.
#pragma once

#include "platform/matlab/standin.h"
#include "platform/platform.h"

#include <string>

class IsolatedLibrary {
public:
    // The library's function, which is loaded with its message boxes turned into warnings. Null when it can't be; then
    // `error` is why, in UTF-8.
    MexFunction load(std::string &error);

    void unload(); // runs its exit routine; the next load() begins anew

private:
    HMODULE module = nullptr;
    MexFunction function = nullptr;
};
