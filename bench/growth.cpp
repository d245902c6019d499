// How the cost of a calculation grows: in the number of conditions, 10 to 1,000,000, and in the
// number of compounds, 2 to 200. Linear growth shows as a constant cost per condition, and as a
// constant cost per value of the compositions. The work of the library itself must need no more
// memory for more conditions: only the arguments and results grow.
#include "bench/support/allocations.h"
#include "bench/support/library.h"

#include <benchmark/benchmark.h>

using namespace host;

namespace {

void calculate(std::size_t conditions, std::size_t compounds)
{
    Call(22, 1,
         {Scalar(3), Handle(), Text("volume enthalpy entropy"), Filled(conditions, 1, 300), Filled(conditions, 1, 1e5),
          Filled(conditions, compounds, 1.0 / static_cast<double>(compounds)), Text("Vapor")});
}

void conditionCount(benchmark::State &state)
{
    const auto conditions = static_cast<std::size_t>(state.range(0));
    OpenBenchPackage(2);
    calculate(1, 2);
    std::size_t before = 0;
    for (auto _ : state) {
        before = AllocationCount();
        calculate(conditions, 2);
    }
    state.counters["per_condition"] = benchmark::Counter(
        static_cast<double>(conditions), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
    state.counters["allocations"] = static_cast<double>(AllocationCount() - before);
}

void compoundCount(benchmark::State &state)
{
    constexpr std::size_t conditions = 1000;
    const auto compounds = static_cast<std::size_t>(state.range(0));
    OpenBenchPackage(static_cast<int>(compounds));
    calculate(1, compounds);
    for (auto _ : state)
        calculate(conditions, compounds);
    state.counters["per_condition"] = benchmark::Counter(
        static_cast<double>(conditions), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

BENCHMARK(conditionCount)->RangeMultiplier(10)->Range(10, 1000000)->Unit(benchmark::kMicrosecond);
BENCHMARK(compoundCount)->Arg(2)->Arg(20)->Arg(50)->Arg(100)->Arg(200)->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
