// What MATLAB calls in the place of the library. How an error leaves a call is MATLAB's secret, and so it is with what
// is raised for want of memory: nothing of ours is alive then but what belongs to the process.
#include "client/matlab/arrays.h"
#include "client/matlab/isolated_side.h"
#include "platform/matlab/matlab.h"
#include "platform/matlab/mex_export.h"
#include "platform/windows/code_page.h"

#include <algorithm>
#include <exception>

namespace {

constexpr std::basic_string_view<WCHAR> questionOfBackEnd = L"back end"; // in the place of a command's code
constexpr char outOfMemory[] = "Out of memory.";
constexpr char stopped[] = "Stopped by Ctrl-C";

IsolatedSide library;
bool isRegistered = false; // the exit routine
ArgumentValues arguments;
WideString answer; // to the question
std::vector<std::string> warnings;
std::string raised;

// As MATLAB reads what it is told.
std::string inCodePage(const std::string &text) { return Narrow(CP_THREAD_ACP, Widen(CP_UTF8, text.c_str()).c_str()); }

void unload()
{
    arguments.forget();
    library.unload();
    isRegistered = false;
}

bool asksForBackEnd(const std::vector<wire::Value> &values)
{
    return values.size() == 1 && values[0].type == wire::Class::Char &&
           questionOfBackEnd ==
               std::basic_string_view(static_cast<const WCHAR *>(values[0].real), ElementCount(values[0]));
}

// Null, or the text to raise.
const char *call(int outputs, const std::vector<wire::Value> &values)
{
    answer.clear();
    warnings.clear();
    bool worked = false;
    if (asksForBackEnd(values)) {
        library.release();
        worked = library.start();
        if (worked)
            answer = Widen(CP_UTF8, library.description().c_str());
    } else {
        worked = library.call(outputs, values);
        for (const std::string &warning : library.warnings())
            warnings.push_back(inCodePage(warning));
    }
    if (worked)
        return nullptr;
    if (library.stopped())
        return stopped;
    raised = inCodePage(library.error());
    return raised.c_str();
}

const char *run(int nlhs, int nrhs, const mxArray **prhs)
{
    try {
        return call(nlhs, arguments.take(nrhs, prhs));
    } catch (const std::exception &) { // there is no other reason, and the library is in the middle of nothing
        return outOfMemory;
    }
}

void putAnswer(mxArray **slot)
{
    const mwSize row[] = {1, answer.size()};
    *slot = mxCreateCharArray_730(2, row);
    std::copy(answer.begin(), answer.end(), mxGetChars(*slot));
}

void putResults(int nlhs, mxArray **plhs)
{
    if (!answer.empty())
        return putAnswer(plhs);
    const std::vector<wire::Value> &results = library.results();
    const std::size_t wanted = static_cast<std::size_t>(std::max(nlhs, 1));
    for (std::size_t i = 0; i < results.size() && i < wanted; ++i)
        if (results[i].type != wire::Class::Missing)
            plhs[i] = ArrayOf(results[i]);
}

} // namespace

extern "C" MEX_EXPORT void mexFunction(int nlhs, mxArray *plhs[], int nrhs, const mxArray *prhs[])
{
    if (!isRegistered)
        mexAtExit(unload);
    isRegistered = true;
    const char *message = run(nlhs, nrhs, prhs);
    for (std::size_t i = 0; i < warnings.size(); ++i)
        mexWarnMsgTxt(warnings[i].c_str());
    if (message)
        mexErrMsgTxt(message);
    putResults(nlhs, plhs);
    library.release();
}
