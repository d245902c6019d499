// In the place of MATLAB's library of this name: whether the user has pressed Ctrl-C, as a test says.
#include <cstdint>

namespace {
std::int64_t questionsLeft = -1; // until the answer is yes; below 0 it is no
}

extern "C" __declspec(dllexport) bool utIsInterruptPending()
{
    if (questionsLeft > 0)
        --questionsLeft;
    return questionsLeft == 0;
}

extern "C" __declspec(dllexport) void interruptAfter(std::int64_t questions) { questionsLeft = questions; }
