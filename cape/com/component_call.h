// A call of a component. Around it two things stay as they are: the floating-point mode, because the runtimes of some
// compilers unmask exceptions for the whole thread, and the next comparison of ours with a NaN would end the process;
// and what the running call of MATLAB works with, because a component can call back into MATLAB, and that into us.
#pragma once

#include "platform/floating_point.h"

struct ComponentCallState {
    int depth = 0;     // calls of components that are under way, one within another
    int innerCall = 0; // the depth at which a call of MATLAB began within them; 0 when there is none
    void (*endInnerCall)() = nullptr;
};
extern ComponentCallState ComponentCalls;

template <class Call> auto CallComponent(Call call)
{
    struct Running {
        Running() { ++ComponentCalls.depth; }
        ~Running()
        {
            // A call of MATLAB that was left by a jump could not end itself.
            while (ComponentCalls.innerCall >= ComponentCalls.depth)
                ComponentCalls.endInnerCall();
            --ComponentCalls.depth;
        }
    };
    const Running running;
    const KeepFloatingPointMode mode;
    return call();
}
