// Every kind of call that the library makes of the operating system, COM, the C++ runtime and MATLAB and that can fail
// there, with the ways in which it does.
#pragma once

#include "platform/platform.h"
#include "tests/mex/support/failing_call.h"

#include <string>
#include <vector>

namespace support {

// What becomes of the command whose call fails.
enum class Effect {
    ends,     // it ends with words, or its answer is whole
    shortens, // it may give less, without words, and so does each command until the library is loaded anew
    alters,   // its answer may be another, once
};

struct WayToFail {
    std::string name;
    std::string command; // a row: it makes such calls
    Effect effect;
    HRESULT result;                 // that a package passes on whose call of the library is what failed
    std::vector<std::string> words; // all that a command may end with by it, but for what it says of that result

    // While what it gives lives, `calls` says which of the library's calls of this kind fail. The library must be
    // loaded all that time.
    Lead lead;
};

const std::vector<WayToFail> &WaysToFail();

} // namespace support
