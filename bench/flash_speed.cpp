// Flashes at given temperature and pressure of a natural gas of ten compounds, all in the region of two
// phases: how many per second on one core, and that none of them allocates. Other flashes of the same gas
// beside it.
#include "bench/support/allocations.h"
#include "reference/engine/equilibrium/flash_tp.h"
#include "reference/engine/flash/flash.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <iterator>
#include <string_view>
#include <vector>

namespace {

using namespace reference;

const std::vector<std::string_view> compounds = {"methane",    "ethane",    "propane",  "isobutane", "n-butane",
                                                 "isopentane", "n-pentane", "n-hexane", "nitrogen",  "carbon dioxide"};
const std::vector<double> gas = {0.80, 0.07, 0.04, 0.01, 0.015, 0.005, 0.005, 0.005, 0.03, 0.02};

MixtureModel naturalGas(EquationOfState equation)
{
    std::vector<const CompoundData *> list;
    std::ranges::transform(compounds, std::back_inserter(list), findCompound);
    return MixtureModel::of(list, equation);
}

struct Condition {
    double temperature;
    double pressure;
};

// The conditions of a grid at which there are two phases.
std::vector<Condition> twoPhaseConditions(const MixtureModel &model)
{
    std::vector<Condition> conditions;
    for (double temperature = 150.0; temperature < 280.0; temperature += 5.0)
        for (double pressure = 1e5; pressure < 8e6; pressure *= 1.4) {
            FlashResult result;
            if (flashTP(model, temperature, pressure, gas, FlashPhases::vaporAndTwoLiquids, result) ==
                    FlashStatus::solved &&
                result.vaporPresent && result.liquidPresent)
                conditions.push_back({temperature, pressure});
        }
    return conditions;
}

void flashes(benchmark::State &state, EquationOfState equation)
{
    const MixtureModel model = naturalGas(equation);
    const std::vector<Condition> conditions = twoPhaseConditions(model);
    std::size_t next = 0;
    FlashResult result;
    const std::size_t before = AllocationCount();
    for (auto _ : state) {
        const Condition &at = conditions[next];
        next = next + 1 == conditions.size() ? 0 : next + 1;
        benchmark::DoNotOptimize(
            flashTP(model, at.temperature, at.pressure, gas, FlashPhases::vaporAndTwoLiquids, result));
        benchmark::DoNotOptimize(result);
    }
    state.counters["allocations"] = static_cast<double>(AllocationCount() - before);
    state.counters["conditions"] = static_cast<double>(conditions.size());
    state.counters["per_second"] = benchmark::Counter(1.0, benchmark::Counter::kIsIterationInvariantRate);
}

// The pressure, and what the gas has at the conditions of a flash.
void otherFlashes(benchmark::State &state, FlashVariable variable, double from, double to)
{
    const MixtureModel model = naturalGas(EquationOfState::pengRobinson);
    FlashResult result;
    FlashReason reason;
    double part = 0.0;
    const std::size_t before = AllocationCount();
    for (auto _ : state) {
        part = part < 0.95 ? part + 0.1 : 0.0;
        const FlashRequest request{{FlashVariable::pressure, 3e6}, {variable, from + part * (to - from)}};
        if (flash(model, request, gas, result, reason) != FlashStatus::solved)
            state.SkipWithError(reason.data());
    }
    state.counters["allocations"] = static_cast<double>(AllocationCount() - before);
    state.counters["per_second"] = benchmark::Counter(1.0, benchmark::Counter::kIsIterationInvariantRate);
}

BENCHMARK_CAPTURE(flashes, Peng_Robinson, EquationOfState::pengRobinson)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(flashes, Soave_Redlich_Kwong, EquationOfState::soaveRedlichKwong)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(flashes, ideal, EquationOfState::idealMixture)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(otherFlashes, pressure_enthalpy, FlashVariable::enthalpy, -12000.0, -2000.0)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(otherFlashes, pressure_fraction, FlashVariable::vaporFraction, 0.0, 1.0)
    ->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
