// Cost of one condition in commands 22, 23 and 25, against a floor: a plain loop that calls the
// same package through the same COM contract with a material of fields and a flat array.
// The program fails when a command's ratio to the floor is above its limit, or when it allocates
// memory of its own for a condition.
#include "bench/support/allocations.h"
#include "bench/support/bench_package.h"
#include "bench/support/floor_material.h"
#include "bench/support/library.h"
#include "bench/support/limits.h"
#include "cape/com/bstr.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <ctime>
#include <functional>
#include <vector>

using namespace host;

namespace {

constexpr std::size_t conditions = 100000;
constexpr int compounds = 2;
bool failed = false;

// Processor time: what else the machine does must not decide about a ratio.
double secondsOf(const std::function<void()> &work)
{
    const std::clock_t start = std::clock();
    work();
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

// --- the floors ---

class Names {
public:
    explicit Names(std::initializer_list<LPCWSTR> texts)
    {
        VariantInit(&array);
        array.parray = SafeArrayCreateVector(VT_BSTR, 0, static_cast<ULONG>(texts.size()));
        array.vt = VT_ARRAY | VT_BSTR;
        LONG i = 0;
        for (LPCWSTR text : texts) {
            SafeArrayPutElement(array.parray, &i, Bstr(text).get());
            ++i;
        }
    }
    Names(const Names &) = delete;
    Names &operator=(const Names &) = delete;
    ~Names() { VariantClear(&array); }
    VARIANT array;
};

// Sets the conditions, calls the package and copies what it stored, once for each condition.
template <class Calculate> void floorLoop(std::size_t results, Calculate calculate)
{
    FloorMaterial material(compounds);
    auto *package = new BenchPackage(compounds);
    package->AddRef();
    package->SetMaterial(static_cast<ICapeThermoMaterial *>(&material));
    const std::vector<double> given(conditions * (compounds + 2), 0.5);
    std::vector<double> result(conditions * results);
    for (std::size_t c = 0; c < conditions; ++c) {
        material.temperature = given[c];
        material.pressure = given[conditions + c];
        for (std::size_t i = 0; i < compounds; ++i)
            material.composition[i] = given[(2 + i) * conditions + c];
        material.storedCount = 0;
        calculate(*package);
        for (std::size_t i = 0; i < results; ++i)
            result[c + i * conditions] = material.stored[i];
    }
    benchmark::DoNotOptimize(result.data());
    package->UnsetMaterial();
    package->Release();
}

void floorSinglePhase()
{
    const Names names({OLESTR("volume"), OLESTR("enthalpy"), OLESTR("entropy")});
    const Bstr label(OLESTR("Vapor"));
    floorLoop(3, [&](BenchPackage &package) { package.CalcSinglePhaseProp(names.array, label.get()); });
}

void floorTwoPhase()
{
    const Names names(
        {OLESTR("surfaceTension"), OLESTR("surfaceTension.Dtemperature"), OLESTR("surfaceTension.Dpressure")});
    const Names labels({OLESTR("Vapor"), OLESTR("Liquid")});
    floorLoop(3, [&](BenchPackage &package) { package.CalcTwoPhaseProp(names.array, labels.array); });
}

void floorBatch()
{
    const Names names({OLESTR("volume"), OLESTR("enthalpy"), OLESTR("entropy")});
    const Names specification({OLESTR("Temperature"), nullptr, OLESTR("Overall")});
    const Bstr label(OLESTR("Vapor"));
    const Bstr type(OLESTR("Unspecified"));
    floorLoop(3, [&](BenchPackage &package) {
        package.CalcEquilibrium(specification.array, specification.array, type.get());
        package.CalcSinglePhaseProp(names.array, label.get());
    });
}

// --- the commands ---

void singlePhase(std::size_t n)
{
    Call(22, 1,
         {Scalar(3), Handle(), Text("volume enthalpy entropy"), Filled(n, 1, 300), Filled(n, 1, 1e5),
          Filled(n, compounds, 0.5), Text("Vapor")});
}

void twoPhase(std::size_t n)
{
    Call(23, 1,
         {Scalar(3), Handle(), Text("surfaceTension surfaceTension.Dtemperature surfaceTension.Dpressure"),
          Filled(n, 1, 300), Filled(n, 1, 1e5), Filled(n, compounds, 0.5), Filled(n, compounds, 0.5), Text("Vapor"),
          Text("Liquid")});
}

void batch(std::size_t n)
{
    Call(25, 1,
         {Handle(), Filled(n, compounds, 0.5), Text("Temperature"), Filled(n, 1, 300), Text("Pressure"),
          Filled(n, 1, 1e5), Text("Unspecified"), Scalar(3), Text("volume enthalpy entropy")});
}

std::size_t allocationsOf(void (*command)(std::size_t), std::size_t n)
{
    const std::size_t before = AllocationCount();
    command(n);
    return AllocationCount() - before;
}

void measure(benchmark::State &state, void (*command)(std::size_t), void (*floor)(), const char *basis, double limit)
{
    OpenBenchPackage(compounds);
    Call(18, 0, {Text(basis)});
    command(10); // loads what is loaded once
    const std::size_t few = allocationsOf(command, 1000);
    const std::size_t many = allocationsOf(command, 2000);
    const double perCondition = (static_cast<double>(many) - static_cast<double>(few)) / 1000;

    double bestFloor = 1e9;
    double best = 1e9;
    for (auto _ : state) {
        bestFloor = std::min(bestFloor, secondsOf(floor));
        const double seconds = secondsOf([&] { command(conditions); });
        best = std::min(best, seconds);
        state.SetIterationTime(seconds);
    }
    state.counters["ns_per_condition"] = best / conditions * 1e9;
    state.counters["floor_ns"] = bestFloor / conditions * 1e9;
    state.counters["ratio"] = best / bestFloor;
    state.counters["limit"] = limit;
    state.counters["allocations"] = perCondition;
    failed = failed || best / bestFloor > limit || perCondition > 0;
}

#define MEASURE(name, command, floor, basis, limit)                                                                    \
    BENCHMARK_CAPTURE(measure, name, command, floor, basis, limit)                                                     \
        ->Unit(benchmark::kMillisecond)                                                                                \
        ->UseManualTime()                                                                                              \
        ->Iterations(10)

constexpr double sameBasisLimit = 1.45;
constexpr double conversionLimit = 1.55;

MEASURE(command_22_three_scalars, singlePhase, floorSinglePhase, "mole", sameBasisLimit);
MEASURE(command_22_converted, singlePhase, floorSinglePhase, "mass", conversionLimit);
MEASURE(command_23_three_scalars, twoPhase, floorTwoPhase, "mole", sameBasisLimit);
MEASURE(command_25_three_scalars, batch, floorBatch, "mole", sameBasisLimit);
MEASURE(command_25_converted, batch, floorBatch, "mass", conversionLimit);

} // namespace

int main(int argc, char **argv)
{
    return RunMeasurements(argc, argv, failed, "A command is above its limit, or allocates for each condition.");
}
