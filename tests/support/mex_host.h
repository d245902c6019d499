// The built library in tests.
#pragma once

#include "host/library.h"
#include "tests/support/matlab_array.h"

namespace support {

using host::CallResult;

// How errors leave a call in this process: the environment variable VERDANTH_TEST_LEAVE says
// "unwind" or "jump"; unset it is unwind, and anything else ends the process.
MexLeave LeaveOfThisRun();

// The library, or what is called in its place: the file that VERDANTH_TEST_LIBRARY names.
WideString FileOfThisRun();

class MexHost : public host::Library {
public:
    MexHost() : Library(LeaveOfThisRun(), FileOfThisRun()) {}
};

} // namespace support
