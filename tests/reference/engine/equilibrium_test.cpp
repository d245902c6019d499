#include "reference/engine/equilibrium/equilibrium.h"

#include "reference/engine/flash/flash_reason.h"
#include "reference/engine/flash/quality_search.h"
#include "tests/reference/engine/mixtures.h"

#include <gtest/gtest.h>

using namespace reference;

namespace {

struct State {
    const char *name;
    std::vector<std::string_view> compounds;
    std::vector<double> z;
    double temperature;
    double pressure;
    int phases;
};

const State states[] = {
    {"vapor and liquid", {"methane", "propane", "n-pentane"}, {0.5, 0.3, 0.2}, 300.0, 20e5, 2},
    {"vapor and water", {"methane", "n-hexane", "water"}, {0.5, 0.2, 0.3}, 410.0, 20e5, 2},
    {"vapor and two liquids", {"methane", "n-hexane", "water"}, {0.5, 0.2, 0.3}, 300.0, 20e5, 3},
    {"two liquids", {"n-hexane", "water"}, {0.4, 0.6}, 300.0, 50e5, 2},
};

} // namespace

// The slopes of a mixture that stays in equilibrium, with the phases' amounts.
TEST(Equilibrium, HasTheSlopesThatItsNeighborsShow)
{
    for (const State &state : states) {
        const MixtureModel model = modelOf(state.compounds);
        const Feed feed{model, state.z.data(), FlashPhases::vaporAndTwoLiquids};
        const auto at = [&](double temperature, double pressure) {
            Equilibrium found;
            EXPECT_EQ(found.find(feed, temperature, pressure), FlashStatus::solved) << state.name;
            EXPECT_EQ(found.phases.phaseCount(), state.phases) << state.name;
            return found;
        };
        const double dT = 0.01;
        const double dP = 1e-4 * state.pressure;
        const Equilibrium here = at(state.temperature, state.pressure);
        const Equilibrium warmer = at(state.temperature + dT, state.pressure);
        const Equilibrium colder = at(state.temperature - dT, state.pressure);
        const Equilibrium higher = at(state.temperature, state.pressure + dP);
        const Equilibrium lower = at(state.temperature, state.pressure - dP);
        const auto expectSlopes = [&](auto value, double byT, double byP, double size, const char *what) {
            EXPECT_NEAR((value(warmer) - value(colder)) / (2.0 * dT), byT, 1e-5 * size / state.temperature)
                << what << " of " << state.name;
            EXPECT_NEAR((value(higher) - value(lower)) / (2.0 * dP), byP, 1e-5 * size / state.pressure)
                << what << " of " << state.name;
        };
        for (const FlashVariable variable : {FlashVariable::enthalpy, FlashVariable::entropy, FlashVariable::volume})
            expectSlopes([&](const Equilibrium &one) { return one.totals.value(variable); },
                         here.totals.byTemperature(variable), here.totals.byPressure(variable),
                         here.totals.byTemperature(variable) * state.temperature, flashVariableName(variable));
        for (const FlashVariable fraction : {FlashVariable::vaporFraction, FlashVariable::vaporMassFraction}) {
            const Equilibrium::Growth &growth =
                fraction == FlashVariable::vaporFraction ? here.vaporMoles : here.vaporMass;
            EXPECT_EQ(growth.byT > 0.0, here.phases.vaporPresent) << state.name;
            expectSlopes([&](const Equilibrium &one) { return vaporPart(model, one.phases, fraction); }, growth.byT,
                         growth.byP, 1.0, flashVariableName(fraction));
        }
    }
}
