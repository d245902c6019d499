// The stand-in's array, and what its two libraries tell each other: libmx keeps the arrays and
// knows which of them a call has made, libmex begins and ends the calls and raises.
#pragma once

#include "platform/matlab/standin.h"

#include <vector>

struct mxArray {
    mxClassID classId = mxUNKNOWN_CLASS;
    std::vector<mwSize> dimensions; // at least two, no trailing ones behind the second
    std::size_t elementCount = 0;
    void *real = nullptr;      // null without elements; for a cell the pointers to its elements
    void *imaginary = nullptr; // null unless complex
    bool borrowed = false;     // the elements are the host's

    unsigned callDepth = 0; // of the call that owns it; 0 is the host
    bool inCell = false;    // a cell owns it
    mxArray *previous = nullptr;
    mxArray *next = nullptr;
};

extern "C" {
// Arrays belong to the new call from here on. `raise` ends it with an error and does not return.
void mxStandInEnterCall(void (*raise)(const char *message));

// Hands the arrays in `kept` (nulls allowed) to the caller and destroys the others of the call.
// What isn't the call's to give away, or stands there twice, is replaced by a copy.
void mxStandInLeaveCall(mxArray *kept[], std::size_t count);
}
