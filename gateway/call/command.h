// One call of mexFunction as a command sees it.
#pragma once

#include "gateway/call/verdict.h"
#include "platform/matlab/matlab.h"

// Argument 0 is the command code; counts are checked before a command runs.
struct CommandCall {
    int code; // commands that share a procedure find their row by it
    mxArray **results;
    const mxArray **arguments;
};

using CommandBody = Verdict (*)(const CommandCall &call);
