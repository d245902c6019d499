#include "bench/support/library.h"

#include "bench/support/bench_package.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

extern "C" void mexFunction(int nlhs, mxArray *plhs[], int nrhs, const mxArray *prhs[]);

namespace {

std::int32_t openHandle = -1;

constexpr int mostResults = 5;

// The results are the caller's to destroy.
void callInto(mxArray **results, int code, int resultCount, const std::vector<mxArray *> &arguments)
{
    std::vector<const mxArray *> all = {Number(code)};
    all.insert(all.end(), arguments.begin(), arguments.end());
    if (!mexStandInCall(mexFunction, resultCount, results, static_cast<int>(all.size()), all.data(), mexLEAVE_UNWIND)) {
        std::fprintf(stderr, "Command %d failed: %s\n", code, mexStandInError());
        std::exit(EXIT_FAILURE);
    }
    for (const mxArray *argument : all)
        mxDestroyArray(const_cast<mxArray *>(argument));
}

} // namespace

mxArray *Number(double value) { return Matrix(1, 1, value); }

mxArray *Matrix(std::size_t rows, std::size_t columns, double value)
{
    mxArray *array = mxCreateDoubleMatrix_730(rows, columns, mxREAL);
    std::fill_n(mxGetPr(array), rows * columns, value);
    return array;
}

mxArray *Text(std::string_view ascii)
{
    const mwSize dimensions[] = {1, ascii.size()};
    mxArray *array = mxCreateCharArray_730(2, dimensions);
    std::copy(ascii.begin(), ascii.end(), mxGetChars(array));
    return array;
}

mxArray *Handle()
{
    const mwSize size = 1;
    mxArray *array = mxCreateNumericArray_730(1, &size, mxINT32_CLASS, mxREAL);
    *static_cast<std::int32_t *>(mxGetData(array)) = openHandle;
    return array;
}

void Call(int code, int resultCount, const std::vector<mxArray *> &arguments)
{
    mxArray *results[mostResults] = {};
    callInto(results, code, resultCount, arguments);
    for (mxArray *result : results)
        mxDestroyArray(result);
}

void Call(int code, int resultCount, std::initializer_list<mxArray *> arguments)
{
    Call(code, resultCount, std::vector<mxArray *>(arguments));
}

void OpenBenchPackage(int compounds)
{
    RegisterBenchPackage(compounds);
    if (openHandle >= 0)
        Call(4, 0, {Handle()});
    mxArray *results[mostResults] = {};
    callInto(results, 3, 1, {Text("Bench"), Text("")});
    openHandle = *static_cast<const std::int32_t *>(mxGetData(results[0]));
    mxDestroyArray(results[0]);
}
