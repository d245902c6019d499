#include "bench/support/limits.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>

int RunMeasurements(int argc, char **argv, const bool &isAbove, const char *words)
{
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    if (isAbove)
        std::fprintf(stderr, "%s\n", words);
    return isAbove ? EXIT_FAILURE : EXIT_SUCCESS;
}
