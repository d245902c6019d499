// Calling MEX functions: errors, warnings, the exit routine.
#include "platform/matlab/array.h"

#include <algorithm>
#include <csetjmp>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>
#include <utility>

namespace {

struct Raised {}; // what mexLEAVE_UNWIND throws

struct Call {
    Call *outer;
    MexLeave leave;
    std::jmp_buf start;
};

struct Arguments {
    MexFunction function;
    int nlhs;
    mxArray **plhs;
    int nrhs;
    const mxArray **prhs;
};

// A MEX function that writes beyond its outputs finds this many slots more.
constexpr std::size_t spareSlots = 16;

Call *current = nullptr;
std::string error;
std::vector<std::string> warnings;
void (*warningListener)() = nullptr;
void (*exitRoutine)() = nullptr;

[[noreturn]] void raise(const char *message)
{
    error = message ? message : "";
    if (!current) {
        std::fprintf(stderr, "MATLAB stand-in: error outside of a call: %s\n", error.c_str());
        std::abort();
    }
    if (current->leave == mexLEAVE_JUMP)
        std::longjmp(current->start, 1);
    throw Raised{};
}

// longjmp on Windows unwinds the frames it leaves, unless the buffer names no frame.
void forgetFrame([[maybe_unused]] std::jmp_buf &buffer)
{
#ifdef _WIN32
    reinterpret_cast<_JUMP_BUFFER *>(&buffer)->Frame = 0;
#endif
}

bool catchJump(Call &call, const Arguments &arguments)
{
    if (setjmp(call.start) != 0)
        return false;
    forgetFrame(call.start);
    arguments.function(arguments.nlhs, arguments.plhs, arguments.nrhs, arguments.prhs);
    return true;
}

// An exception of another's making that gets out of the MEX function is an error of its own.
bool run(Call &call, const Arguments &arguments)
{
    try {
        return catchJump(call, arguments);
    } catch (const Raised &) {
    } catch (const std::exception &exception) {
        error = std::string("Unexpected exception: ") + exception.what();
    } catch (...) {
        error = "Unexpected exception: unknown";
    }
    return false;
}

} // namespace

extern "C" {

void mexErrMsgTxt(const char *message) { raise(message); }

void mexWarnMsgTxt(const char *message)
{
    warnings.emplace_back(message);
    if (warningListener)
        warningListener();
}

int mexAtExit(void (*routine)())
{
    exitRoutine = routine;
    return 0;
}

bool mexStandInCall(MexFunction function, int nlhs, mxArray *plhs[], int nrhs, const mxArray *prhs[], MexLeave leave)
{
    const std::size_t outputs = static_cast<std::size_t>(std::max(nlhs, 1));
    std::vector<mxArray *> slots(outputs + spareSlots);
    Call call{current, leave, {}};
    current = &call;
    error.clear();
    mxStandInEnterCall(raise);
    const bool returned = run(call, {function, nlhs, slots.data(), nrhs, prhs});
    current = call.outer;
    if (!returned)
        std::fill(slots.begin(), slots.end(), nullptr);
    mxStandInLeaveCall(slots.data(), outputs);
    std::copy_n(slots.begin(), outputs, plhs);
    return returned;
}

const char *mexStandInError() { return error.c_str(); }

std::size_t mexStandInWarningCount() { return warnings.size(); }

const char *mexStandInWarning(std::size_t index) { return warnings.at(index).c_str(); }

void mexStandInClearWarnings() { warnings.clear(); }

void mexStandInOnWarning(void (*listener)()) { warningListener = listener; }

bool mexStandInRunExit()
{
    void (*routine)() = std::exchange(exitRoutine, nullptr);
    if (!routine)
        return false;
    routine();
    return true;
}
}
