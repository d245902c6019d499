// What the engine of the reference packages takes for the fugacity coefficients of a natural gas of
// ten compounds: given what depends on temperature alone, with it, and for all their derivatives.
#include "bench/support/allocations.h"
#include "reference/engine/phase/phase_evaluation.h"
#include "reference/engine/phase/phase_state.h"

#include <benchmark/benchmark.h>

#include <random>

using namespace reference;

namespace {

constexpr int compounds = 10;

MixtureModel naturalGas(EquationOfState equation)
{
    std::vector<const CompoundData *> list;
    for (const char *id : {"methane", "ethane", "propane", "n-butane", "isobutane", "n-pentane", "isopentane",
                           "n-hexane", "nitrogen", "carbon dioxide"})
        list.push_back(findCompound(id));
    return MixtureModel::of(list, equation);
}

// Gases, dense gases and liquids, so that no branch is always taken.
struct Conditions {
    double temperature;
    double pressure;
    std::array<double, compounds> x;
    Root root;
};
std::vector<Conditions> conditions()
{
    std::mt19937_64 generator(1);
    std::uniform_real_distribution<double> uniform(0.0, 1.0);
    std::vector<Conditions> list(256);
    for (Conditions &each : list) {
        each.temperature = 180.0 + 220.0 * uniform(generator);
        each.pressure = std::exp(std::log(1e5) + std::log(200.0) * uniform(generator));
        each.root = uniform(generator) < 0.5 ? Root::vapor : Root::liquid;
        double sum = 0.0;
        for (double &fraction : each.x)
            sum += fraction = uniform(generator);
        for (double &fraction : each.x)
            fraction /= sum;
    }
    return list;
}

enum class Extent { givenTemperature, withTemperature, withDerivatives };

void fugacityCoefficients(benchmark::State &state, EquationOfState equation, Extent extent)
{
    const MixtureModel model = naturalGas(equation);
    const std::vector<Conditions> list = conditions();
    std::vector<Isotherm> isotherms;
    isotherms.reserve(list.size());
    for (const Conditions &each : list)
        isotherms.emplace_back(model, each.temperature);
    PhaseState phase;
    PhaseSlopes slopes;
    PairArray byMoles;
    std::size_t k = 0;
    std::size_t allocated = 0;
    for (auto _ : state) {
        const std::size_t before = AllocationCount();
        k = (k + 1) % list.size();
        const Conditions &each = list[k];
        if (extent == Extent::givenTemperature) {
            evaluatePhase(model, isotherms[k], each.pressure, each.x.data(), each.root, phase);
        } else {
            const Isotherm isotherm(model, each.temperature);
            evaluatePhase(model, isotherm, each.pressure, each.x.data(), each.root, phase);
            if (extent == Extent::withDerivatives) {
                evaluateSlopes(model, isotherm, each.x.data(), phase, slopes);
                lnPhiByMoles(model, isotherm, phase, byMoles);
                benchmark::DoNotOptimize(slopes.lnPhiByT[0] + byMoles[0]);
            }
        }
        benchmark::DoNotOptimize(phase.lnPhi[0]);
        allocated += AllocationCount() - before;
    }
    state.SetItemsProcessed(state.iterations());
    state.counters["allocations"] = static_cast<double>(allocated);
}

BENCHMARK_CAPTURE(fugacityCoefficients, PengRobinson, EquationOfState::pengRobinson, Extent::givenTemperature);
BENCHMARK_CAPTURE(fugacityCoefficients, PengRobinson_isotherm, EquationOfState::pengRobinson, Extent::withTemperature);
BENCHMARK_CAPTURE(fugacityCoefficients, PengRobinson_isotherm_derivatives, EquationOfState::pengRobinson,
                  Extent::withDerivatives);
BENCHMARK_CAPTURE(fugacityCoefficients, SoaveRedlichKwong, EquationOfState::soaveRedlichKwong,
                  Extent::givenTemperature);
BENCHMARK_CAPTURE(fugacityCoefficients, idealMixture, EquationOfState::idealMixture, Extent::givenTemperature);
BENCHMARK_CAPTURE(fugacityCoefficients, idealMixture_isotherm, EquationOfState::idealMixture, Extent::withTemperature);

} // namespace

BENCHMARK_MAIN();
