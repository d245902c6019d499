// Random phases for tests against theory.
#pragma once

#include "reference/engine/phase/phase_point.h"
#include "reference/engine/quantities/phase_calculation.h"
#include "tests/reference/engine/mixtures.h"

#include <functional>
#include <memory>

namespace reference {

struct RandomPhase {
    std::shared_ptr<const MixtureModel> model;
    double temperature;
    double pressure;
    std::vector<double> x;
    Root root;

    PhasePoint at(double T, double P, const std::vector<double> &fractions) const
    {
        return {*model, T, P, fractions, root};
    }
    PhasePoint point() const { return at(temperature, pressure, x); }
    // One mole in all with some more of a compound, as fractions.
    PhasePoint with(double moles, int compound) const
    {
        std::vector<double> fractions = x;
        fractions[static_cast<std::size_t>(compound)] += moles;
        for (double &fraction : fractions)
            fraction /= 1.0 + moles;
        return at(temperature, pressure, fractions);
    }
};

// Of 1 to 5 compounds, each making a hundredth at least, from 80 K to 700 K and from 1 kPa to 30 MPa.
inline RandomPhase randomPhase(EquationOfState equation, Root root, std::mt19937_64 &generator)
{
    std::uniform_real_distribution<double> uniform(0.0, 1.0);
    std::vector<const CompoundData *> all;
    for (const CompoundData &compound : compoundTable())
        all.push_back(&compound);
    std::ranges::shuffle(all, generator);
    all.resize(1 + generator() % 5);
    RandomPhase phase{.model = std::make_shared<MixtureModel>(MixtureModel::of(all, equation)),
                      .temperature = 80.0 + 620.0 * uniform(generator),
                      .pressure = std::exp(std::log(1e3) + std::log(3e4) * uniform(generator)),
                      .x = {},
                      .root = root};
    double sum = 0.0;
    for (std::size_t i = 0; i < all.size(); ++i) {
        phase.x.push_back(0.02 + uniform(generator));
        sum += phase.x.back();
    }
    for (double &fraction : phase.x)
        fraction /= sum;
    return phase;
}

// A number of random phases by every equation, as vapor and as liquid.
using PhaseAction = std::function<void(const RandomPhase &)>;
inline void forRandomPhases(EquationOfState equation, Root root, int count, unsigned seed, const PhaseAction &action)
{
    std::mt19937_64 generator(seed + 100 * static_cast<unsigned>(equation) + 10 * static_cast<unsigned>(root));
    for (int i = 0; i < count; ++i)
        action(randomPhase(equation, root, generator));
}
inline void forRandomPhases(int count, unsigned seed, const PhaseAction &action)
{
    for (const EquationOfState equation : equations)
        for (const Root root : {Root::vapor, Root::liquid})
            forRandomPhases(equation, root, count, seed, action);
}

inline std::vector<double> valuesOf(const PhasePoint &point, PhaseQuantity quantity,
                                    Differential differential = Differential::none)
{
    std::vector<double> values(static_cast<std::size_t>(valueCount(quantity, differential, point.model().size)));
    return calculate(point, quantity, differential, values) ? values : std::vector<double>();
}

inline double valueOf(const PhasePoint &point, PhaseQuantity quantity, Differential differential = Differential::none)
{
    return valuesOf(point, quantity, differential).at(0);
}

} // namespace reference
