// The one entry point. It starts the process-wide state, checks the shape of the call, branches on
// the command code, and turns every failure into one mexErrMsgTxt.
#include "gateway/call/marshalling.h"
#include "gateway/command_table.h"
#include "gateway/lifecycle.h"
#include "gateway/running_call.h"
#include "gateway/state/global_text.h"
#include "gateway/state/narrow_text.h"
#include "platform/matlab/mex_export.h"

#include <string>

namespace {

Verdict runCommand(int nlhs, mxArray **plhs, int nrhs, const mxArray **prhs)
{
    if (nrhs < 1)
        return Verdict::refuse("Too few arguments for Verdanth");
    EnsureStarted();
    if (!IsRealDouble(prhs[0]) || mxGetNumberOfElements(prhs[0]) != 1)
        return Verdict::refuse("Expected scalar for first argument to Verdanth");
    const Command *command = FindCommand(mxGetScalar(prhs[0]));
    if (!command)
        return Verdict::refuse("Invalid function argument to Verdanth");
    if (nrhs != command->arguments)
        return Verdict::refuse("Invalid number of arguments for Verdanth");
    if (nlhs < command->fewestResults || nlhs > command->mostResults)
        return Verdict::refuse("Invalid number of output arguments for Verdanth");
    return command->body({command->code, plhs, prhs});
}

// What is raised, in storage of the process: mexErrMsgTxt does not return, and how it leaves is MATLAB's secret, so
// when it is called nothing of ours may be alive in any frame. Not local to a function: the lock that would guard its
// first use stays behind at unload.
std::string raised;

// The text to raise, or null.
const char *messageOf(Verdict verdict)
{
    if (verdict.isDone())
        return nullptr;
    if (verdict.literal())
        return verdict.literal();
    raised = NarrowText(LastError.c_str()).get();
    return raised.c_str();
}

// The text to raise when nothing of the call is left, or null.
const char *run(int nlhs, mxArray **plhs, int nrhs, const mxArray **prhs)
{
    RunningCall running;
    const Verdict verdict = runCommand(nlhs, plhs, nrhs, prhs);
    running.releasePackage();
    return messageOf(verdict);
}

} // namespace

extern "C" MEX_EXPORT void mexFunction(int nlhs, mxArray *plhs[], int nrhs, const mxArray *prhs[])
{
    if (const char *message = run(nlhs, plhs, nrhs, prhs))
        mexErrMsgTxt(message);
}
