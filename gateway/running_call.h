// One call of MATLAB on its way through the library. Packages can call back into MATLAB, and so a call may begin within
// another: it finds the shared lists and texts empty, and the outer one finds them as it left them, and its results
// stay in the basis in which it began.
#pragma once

#include "platform/floating_point.h"

#include <optional>

class RunningCall {
public:
    RunningCall();
    ~RunningCall();
    RunningCall(const RunningCall &) = delete;
    RunningCall &operator=(const RunningCall &) = delete;

    // To be called behind the command, whose words are still in LastError: lets go of the package that it worked with,
    // and with it of one that has been closed meanwhile.
    void releasePackage();

private:
    bool isInner;
    std::optional<InFloatingPointMode> mode;
};

// MATLAB leaves a call by a jump when it has no memory for an array. This lets go of what such a call left behind; to
// be called when no call is under way.
void ForgetAbandonedCalls();
