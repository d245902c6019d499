// Plays MATLAB towards the built library, which it loads by name as MATLAB does.
#pragma once

#include "platform/matlab/standin.h"
#include "tests/support/matlab_array.h"

#include <string>
#include <vector>

namespace support {

struct CallResult {
    bool returned = false;             // false: it raised, and `error` has the text
    std::string error;                 // empty when it returned
    std::vector<std::string> warnings; // those of this call, in order
    std::vector<Array> outputs;        // as many as asked for, at least one; unset ones hold no array

    const Array &operator[](std::size_t index) const { return outputs.at(index); }
};

// How errors leave a call in this process: the environment variable VERDANTH_TEST_LEAVE says
// "unwind" or "jump"; unset it is unwind, and anything else ends the process.
MexLeave LeaveOfThisRun();

class MexHost {
public:
    MexHost(); // loads the library
    ~MexHost();
    MexHost(const MexHost &) = delete;
    MexHost &operator=(const MexHost &) = delete;

    bool loaded() const { return function != nullptr; }

    CallResult call(int nlhs, const std::vector<Array> &arguments);

    // Runs the exit routine and gives up the library: what `clear mex` does. False when the
    // library had registered no routine. The next load, by whichever host, unloads it first.
    bool clear();
    void load(); // nothing happens when it is loaded

private:
    HMODULE module = nullptr;
    MexFunction function = nullptr;
};

} // namespace support
