// The most memory that a command has in use beside its arguments, for each byte of its result: a million rows, a
// mixture of 500 compounds, a hundred thousand names. The program fails above its limit.
#include "bench/support/library.h"
#include "bench/support/limits.h"

#include <benchmark/benchmark.h>

#include <malloc.h>

#include <cstdlib>
#include <fstream>
#include <string>

using namespace host;

namespace {

bool failed = false;

// A line of /proc/self/status, in bytes.
double statusOf(const std::string &name)
{
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        if (word != name + ":")
            continue;
        double kilobytes = 0;
        status >> kilobytes;
        return kilobytes * 1024;
    }
    std::abort();
}

// From here on the peak is counted anew.
void resetPeak() { std::ofstream("/proc/self/clear_refs") << "5"; }

void measure(benchmark::State &state, int compounds, int code, const std::vector<Array> &arguments, double resultBytes,
             double limit)
{
    OpenBenchPackage(compounds);
    double most = 0;
    for (auto _ : state) {
        std::vector<Array> call = arguments;
        call.insert(call.begin() + (code == 25 ? 0 : 1), Handle());
        malloc_trim(0); // what is free in the heap would hide what a command needs
        resetPeak();
        const double before = statusOf("VmRSS");
        Call(code, 1, call);
        most = std::max(most, statusOf("VmHWM") - before);
    }
    state.counters["result_MB"] = resultBytes / 1e6;
    state.counters["peak_bytes_per_result_byte"] = most / resultBytes;
    state.counters["limit"] = limit;
    failed = failed || most / resultBytes > limit;
}

constexpr std::size_t rows = 1'000'000;
constexpr std::size_t compounds = 500;
constexpr std::size_t fewerRows = 100'000;
constexpr std::size_t names = 100'000;
constexpr double number = sizeof(double);

std::string repeated(const std::string &name, std::size_t count)
{
    std::string text;
    for (std::size_t i = 0; i < count; ++i)
        text += name + " ";
    return text;
}

void singlePhaseRows(benchmark::State &state)
{
    measure(state, 2, 22,
            {Scalar(3), Text("volume enthalpy entropy"), Filled(rows, 1, 300), Filled(rows, 1, 1e5),
             Filled(rows, 2, 0.5), Text("Vapor")},
            3 * rows * number, 1.1);
}

void batchRows(benchmark::State &state)
{
    measure(state, 2, 25,
            {Filled(rows, 2, 0.5), Text("Temperature"), Filled(rows, 1, 300), Text("Pressure"), Filled(rows, 1, 1e5),
             Text("Unspecified"), Scalar(3), Text("volume enthalpy entropy")},
            3 * rows * number, 1.1);
}

// Beside the result there is the material's store of a value for each name and row at a time.
void compoundsOfAMixture(benchmark::State &state)
{
    measure(state, compounds, 22,
            {Scalar(3), Text("volume enthalpy entropy"), Filled(fewerRows, 1, 300), Filled(1, 1, 1e5),
             Filled(1, compounds, 1.0 / compounds), Text("Vapor")},
            3 * fewerRows * number, 3);
}

// A name of a result takes more than its number: the matrix, the texts of the name for us and for the package.
void namesOfAList(benchmark::State &state)
{
    measure(state, 2, 22,
            {Scalar(names), Text(repeated("volume", names)), Filled(1, 1, 300), Filled(1, 1, 1e5), Filled(1, 2, 0.5),
             Text("Vapor")},
            names * number, 100);
}

BENCHMARK(singlePhaseRows)->Unit(benchmark::kMillisecond)->Iterations(2);
BENCHMARK(batchRows)->Unit(benchmark::kMillisecond)->Iterations(2);
BENCHMARK(compoundsOfAMixture)->Unit(benchmark::kMillisecond)->Iterations(2);
BENCHMARK(namesOfAList)->Unit(benchmark::kMillisecond)->Iterations(2);

} // namespace

int main(int argc, char **argv)
{
    return RunMeasurements(argc, argv, failed, "A command has more memory in use than its limit.");
}
