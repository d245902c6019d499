// The built library, as MATLAB loads, calls and clears it.
#pragma once

#include "host/array.h"

namespace host {

struct CallResult {
    bool returned = false;             // false: it raised, and `error` has the text
    std::string error;                 // empty when it returned
    std::vector<std::string> warnings; // those of this call, in order
    std::vector<Array> outputs;        // as many as asked for, at least one; unset ones hold no array

    const Array &operator[](std::size_t index) const { return outputs.at(index); }
};

// Calls mexFunction; an error leaves it in the way given.
CallResult Call(MexFunction function, int nlhs, const std::vector<Array> &arguments, MexLeave leave = mexLEAVE_UNWIND);

// Is loaded at once, by the name of its file.
class Library {
public:
    explicit Library(MexLeave errorsLeave = mexLEAVE_UNWIND, const WideString &file = OLESTR("Verdanth.mexw64"));
    ~Library(); // clears it
    Library(const Library &) = delete;
    Library &operator=(const Library &) = delete;

    bool loaded() const { return function != nullptr; }
    MexFunction mexFunction() const { return function; }

    CallResult call(int nlhs, const std::vector<Array> &arguments);

    // Runs the exit routine and gives up the library: what `clear mex` does. False when the
    // library had registered no routine. The next load, by whichever host, unloads it first.
    bool clear();
    void load(); // nothing happens when it is loaded

private:
    MexLeave leave;
    WideString name;
    HMODULE module = nullptr;
    MexFunction function = nullptr;
};

} // namespace host
