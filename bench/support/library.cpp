#include "bench/support/library.h"

#include "bench/support/bench_package.h"
#include "host/command.h"

extern "C" void mexFunction(int nlhs, mxArray *plhs[], int nrhs, const mxArray *prhs[]);

namespace {
host::Array openHandle;
}

const host::Array &Handle() { return openHandle; }

void Call(int code, int resultCount, const std::vector<host::Array> &arguments)
{
    host::Command(mexFunction, code, resultCount, arguments);
}

void OpenBenchPackage(int compounds)
{
    RegisterBenchPackage(compounds);
    if (openHandle)
        Call(4, 0, {openHandle});
    openHandle = host::Command(mexFunction, 3, 1, {host::Text("Bench"), host::Text("")}).front();
}
