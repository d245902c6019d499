// Mixtures for tests of the engine.
#pragma once

#include "reference/engine/phase/mixture_model.h"

#include <algorithm>
#include <cmath>
#include <random>
#include <string_view>
#include <vector>

namespace reference {

inline constexpr EquationOfState equations[] = {EquationOfState::pengRobinson, EquationOfState::soaveRedlichKwong,
                                                EquationOfState::idealMixture};

inline const CompoundData &named(std::string_view id) { return *findCompound(id); }

inline MixtureModel modelOf(const std::vector<std::string_view> &ids,
                            EquationOfState equation = EquationOfState::pengRobinson)
{
    std::vector<const CompoundData *> list;
    std::ranges::transform(ids, std::back_inserter(list), findCompound);
    return MixtureModel::of(list, equation);
}

// What the package of natural gas has.
inline const std::vector<std::string_view> naturalGasCompounds = {
    "methane",    "ethane",   "propane",  "n-butane",       "isobutane",        "n-pentane",
    "isopentane", "n-hexane", "nitrogen", "carbon dioxide", "hydrogen sulfide",
};
inline std::vector<const CompoundData *> naturalGasList()
{
    std::vector<const CompoundData *> list;
    std::ranges::transform(naturalGasCompounds, std::back_inserter(list), findCompound);
    return list;
}

// A pipeline gas in the demo's composition: its compounds, and their mole fractions.
inline const std::vector<std::string_view> pipelineGas = {"methane",   "ethane",   "propane",       "n-butane",
                                                          "n-pentane", "nitrogen", "carbon dioxide"};
inline const std::vector<double> pipelineFractions = {0.80, 0.08, 0.05, 0.02, 0.01, 0.02, 0.02};

// Random mole fractions of which some are zero and some tiny.
inline std::vector<double> randomFractions(std::mt19937_64 &generator, int count)
{
    std::uniform_real_distribution<double> uniform(0.0, 1.0);
    std::vector<double> fractions(static_cast<std::size_t>(count));
    double sum = 0.0;
    while (sum == 0.0) {
        for (double &fraction : fractions) {
            const double kind = uniform(generator);
            fraction = kind < 0.3 ? 0.0 : -std::log(1.0 - uniform(generator)) * (kind > 0.9 ? 1e-8 : 1.0);
            sum += fraction;
        }
    }
    for (double &fraction : fractions)
        fraction /= sum;
    return fractions;
}

} // namespace reference
