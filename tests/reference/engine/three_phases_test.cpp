#include "reference/engine/equilibrium/flash_tp.h"
#include "tests/reference/engine/feed_families.h"
#include "tests/reference/engine/flash_check.h"
#include "tests/reference/engine/mixtures.h"
#include "tests/reference/engine/phase_judge.h"

#include <gtest/gtest.h>

using namespace reference;

namespace {

using Variable = FlashVariable;

// From a state's values back to a state that has them. At a given temperature the same value may belong to another
// state, so only the values are compared; their Gibbs energy tells that the phases are the stable ones.
void expectRoundTrip(const MixtureModel &model, const std::vector<double> &z, const FlashResult &state, Variable first,
                     Variable second)
{
    FlashRequest request{{first, valueOf(model, z, state, first)}, {second, valueOf(model, z, state, second)}};
    FlashResult result;
    FlashReason reason{};
    const FlashCase problem{model, z, request};
    ASSERT_EQ(flash(model, request, z, result, reason), FlashStatus::solved)
        << reason.data() << "; " << describe(problem);
    EXPECT_EQ(faultOf(problem, result), "") << describe(problem);
}

class ThreePhasePairs : public testing::TestWithParam<std::pair<Variable, Variable>> {};

} // namespace

// Wet hydrocarbons in three phases, and two liquids without a vapor.
TEST_P(ThreePhasePairs, GoRoundThroughThreePhases)
{
    const auto &[first, second] = GetParam();
    const FeedFamily *wet = nullptr;
    for (const FeedFamily &family : feedFamilies())
        if (std::string_view(family.name) == "water")
            wet = &family;
    ASSERT_TRUE(wet);
    int three = 0;
    for (std::uint64_t seed = 1; three < 12; ++seed) {
        ASSERT_LT(seed, 1000U);
        const FeedCase feed = wet->make(seed);
        FlashResult state;
        if (flashTP(*feed.model, feed.temperature, feed.pressure, feed.z, FlashPhases::vaporAndTwoLiquids, state) !=
                FlashStatus::solved ||
            state.phaseCount() < 3)
            continue;
        ++three;
        expectRoundTrip(*feed.model, feed.z, state, first, second);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Pairs, ThreePhasePairs,
    testing::Values(
        std::pair{Variable::temperature, Variable::pressure}, std::pair{Variable::temperature, Variable::enthalpy},
        std::pair{Variable::temperature, Variable::volume}, std::pair{Variable::temperature, Variable::vaporFraction},
        std::pair{Variable::temperature, Variable::helmholtzEnergy}, std::pair{Variable::pressure, Variable::enthalpy},
        std::pair{Variable::pressure, Variable::entropy}, std::pair{Variable::pressure, Variable::volume},
        std::pair{Variable::pressure, Variable::internalEnergy}, std::pair{Variable::pressure, Variable::vaporFraction},
        std::pair{Variable::pressure, Variable::vaporMassFraction},
        std::pair{Variable::vaporFraction, Variable::enthalpy}, std::pair{Variable::enthalpy, Variable::entropy},
        std::pair{Variable::volume, Variable::internalEnergy}, std::pair{Variable::entropy, Variable::volume}));

// A vapor fraction has more than one line of states where dense phases, too, are a vapor and two liquids. The one of
// boiling can lie at nearly one pressure, at temperatures far apart, and one of dense phases at nearly one temperature.
TEST(ThreePhases, OfOneVaporFractionAreFoundOnEachLine)
{
    struct Case {
        std::vector<std::string_view> compounds;
        EquationOfState equation;
        std::vector<double> z;
        double temperature, pressure;
    };
    const std::vector<Case> cases{
        {{"methane", "carbon dioxide", "hydrogen sulfide"},
         EquationOfState::pengRobinson,
         {0.6993, 0.1725, 0.1282},
         150.6,
         4.43e6},
        {{"methane", "n-hexane", "isopentane", "hydrogen sulfide", "carbon dioxide", "n-pentane", "propane"},
         EquationOfState::soaveRedlichKwong,
         {0.68, 0.06, 0.09, 0.04, 0.06, 0.01, 0.06},
         112.7,
         6.1e6},
        {{"ethanol", "water", "1-butanol", "methane", "n-hexane", "1-propanol"},
         EquationOfState::soaveRedlichKwong,
         {0.2986, 0.1522, 0.1117, 0.0841, 0.1469, 0.2065},
         405.2,
         5.96e6},
        {{"hydrogen sulfide", "carbon dioxide", "methane", "ethane", "propane", "n-butane"},
         EquationOfState::pengRobinson,
         {0.2192, 0.1644, 0.0447, 0.2625, 0.1412, 0.168},
         137.317,
         4.2345e5}};
    for (const Case &given : cases) {
        const MixtureModel model = modelOf(given.compounds, given.equation);
        FlashResult state;
        ASSERT_EQ(flashTP(model, given.temperature, given.pressure, given.z, FlashPhases::vaporAndTwoLiquids, state),
                  FlashStatus::solved);
        ASSERT_EQ(state.phaseCount(), 3) << given.temperature;
        expectRoundTrip(model, given.z, state, Variable::vaporFraction, Variable::enthalpy);
        expectRoundTrip(model, given.z, state, Variable::vaporFraction, Variable::volume);
        expectRoundTrip(model, given.z, state, Variable::vaporMassFraction, Variable::entropy);
    }
}

// Two compounds in three phases have one temperature at a pressure, as a pure compound has that boils: between the
// states beside it the amounts alone change.
TEST(ThreePhases, OfTwoCompoundsHaveARangeOfEnthalpiesAtOneTemperature)
{
    const MixtureModel model = modelOf({"n-hexane", "water"});
    const std::vector<double> z = {0.4, 0.6};
    const auto at = [&](double enthalpy) {
        FlashResult result{};
        FlashReason reason{};
        const FlashRequest request{{Variable::pressure, 101325.0}, {Variable::enthalpy, enthalpy}};
        EXPECT_EQ(flash(model, request, z, result, reason), FlashStatus::solved) << reason.data();
        EXPECT_EQ(faultOf({model, z, request}, result), "");
        return result;
    };
    const FlashResult first = at(-30000.0);
    const FlashResult second = at(-25000.0);
    EXPECT_EQ(first.phaseCount(), 3);
    EXPECT_EQ(second.phaseCount(), 3);
    EXPECT_NEAR(first.temperature, second.temperature, 1e-9);
    EXPECT_GT(second.vaporFraction, first.vaporFraction + 0.1);
    // Water and n-hexane boil together near 334.8 K (Horsley, Azeotropic Data III, 1973: 61.6 Celsius).
    EXPECT_NEAR(first.temperature, 334.8, 2.0);
}

// Where a flash at the same conditions finds two liquids, there is no vapor of which something could be a fraction.
TEST(VaporFractions, AreNotThoseOfOneOfTwoLiquids)
{
    const MixtureModel model = modelOf({"water", "n-decane"});
    const std::vector<double> z = {0.7994, 0.2006};
    constexpr double temperature = 628.527;
    FlashResult liquids;
    ASSERT_EQ(flashTP(model, temperature, 2.8976e7, z, FlashPhases::vaporAndTwoLiquids, liquids), FlashStatus::solved);
    ASSERT_TRUE(!liquids.vaporPresent && liquids.phaseCount() == 2);
    const FlashRequest request{
        {Variable::temperature, temperature}, {Variable::vaporFraction, 0.5895}, SolutionType::retrograde};
    FlashResult result{};
    FlashReason reason{};
    EXPECT_EQ(flash(model, request, z, result, reason), FlashStatus::noSolution) << result.pressure;
}

// Where a phase is about to split by itself, phases that are nearly one have equal fugacities, too; but they would go
// further apart.
TEST(VaporFractions, AreThoseOfTheFlashAtTheSameTemperatureAndPressure)
{
    const MixtureModel model =
        modelOf({"methane", "ethane", "propane", "n-butane", "n-pentane", "nitrogen", "carbon dioxide"});
    const std::vector<double> z = {0.8, 0.08, 0.05, 0.02, 0.01, 0.02, 0.02};
    int found = 0;
    for (double temperature = 236.0; temperature < 270.0; temperature += 1.0) // beyond the critical point
        for (const double fraction : {0.3, 0.5, 0.7, 0.8, 0.9, 0.95})
            for (const SolutionType type : {SolutionType::normal, SolutionType::retrograde}) {
                const FlashRequest request{
                    {Variable::temperature, temperature}, {Variable::vaporFraction, fraction}, type};
                FlashResult result;
                FlashReason reason{};
                if (flash(model, request, z, result, reason) != FlashStatus::solved)
                    continue;
                ++found;
                FlashResult there;
                ASSERT_EQ(flashTP(model, temperature, result.pressure, z, request.phases, there), FlashStatus::solved);
                EXPECT_NEAR(there.vaporFraction, fraction, 1e-3) << temperature << " K, " << result.pressure << " Pa";
            }
    EXPECT_GT(found, 100);
}

// Carbon dioxide with hydrocarbons and water: where the vapor vanishes at 97.4 bar the liquid beside the water is so
// thin that it is called vapor from there on.
TEST(ThreePhases, HaveBubblePointsWhereTheLiquidIsCalledVaporBeyond)
{
    const MixtureModel model = modelOf({"water", "ethane", "n-octane", "n-hexane", "nitrogen", "carbon dioxide"});
    const std::vector<double> z = {0.28, 0.18, 0.026, 0.03, 0.049, 0.435};
    constexpr double temperature = 309.7;
    double last = 0.0;
    for (const double fraction : {0.05, 0.003, 0.0}) {
        const FlashRequest request{{Variable::temperature, temperature}, {Variable::vaporFraction, fraction}};
        FlashResult result{};
        FlashReason reason{};
        ASSERT_EQ(flash(model, request, z, result, reason), FlashStatus::solved) << fraction << ' ' << reason.data();
        EXPECT_EQ(faultOf({model, z, request}, result), "") << fraction;
        EXPECT_EQ(result.phaseCount(), 3) << fraction;
        EXPECT_GT(result.pressure, last);
        last = result.pressure;
    }
    // Flashes show the boundary there.
    FlashResult beside;
    for (const double factor : {1.0 - 1e-5, 1.0 + 1e-5}) {
        ASSERT_EQ(flashTP(model, temperature, factor * last, z, FlashPhases::vaporAndTwoLiquids, beside),
                  FlashStatus::solved);
        EXPECT_EQ(beside.phaseCount(), factor < 1.0 ? 3 : 2);
    }
}

namespace {

// Where two liquids begin to boil: all three phases are there, and flashes beside show the boundary.
FlashResult expectTwoLiquidsToBoil(const MixtureModel &model, const std::vector<double> &z, Variable fraction,
                                   const FlashSpecification &other)
{
    const FlashRequest request{other, {fraction, 0.0}};
    const FlashCase problem{model, z, request};
    FlashResult result{};
    FlashReason reason{};
    EXPECT_EQ(flash(model, request, z, result, reason), FlashStatus::solved) << reason.data() << describe(problem);
    if (testing::Test::HasFailure())
        return result;
    EXPECT_EQ(faultOf(problem, result), "") << describe(problem);
    EXPECT_EQ(result.phaseCount(), 3) << describe(problem);
    EXPECT_EQ(result.vaporFraction, 0.0);
    FlashResult beside;
    for (const double factor : {1.0 - 1e-6, 1.0 + 1e-6}) {
        EXPECT_EQ(flashTP(model, factor * result.temperature, result.pressure, z, request.phases, beside),
                  FlashStatus::solved);
        EXPECT_EQ(beside.vaporPresent, factor > 1.0) << describe(problem);
    }
    return result;
}

} // namespace

// Nitrogen with more n-undecane than it dissolves: what it does not is a liquid of its own, whose Gibbs energy is
// nothing to that of the whole.
TEST(BubblePoints, HaveTheLiquidOfATrace)
{
    const MixtureModel model = modelOf({"nitrogen", "n-undecane"}, EquationOfState::soaveRedlichKwong);
    const std::vector<double> z = {1.0 - 1.124939520535506e-9, 1.124939520535506e-9};
    for (const Variable fraction : {Variable::vaporFraction, Variable::vaporMassFraction})
        for (const FlashSpecification &other :
             {FlashSpecification{Variable::temperature, 62.4}, FlashSpecification{Variable::pressure, 10520.55},
              FlashSpecification{Variable::entropy, -124.90571947715119}}) {
            const FlashResult result = expectTwoLiquidsToBoil(model, z, fraction, other);
            const JudgedState colder = judge(model, result.temperature * (1.0 - 1e-5), result.pressure, z);
            ASSERT_EQ(colder.phases.size(), 2U);
            const double judged = std::min(colder.phases[0].amount, colder.phases[1].amount);
            EXPECT_NEAR(std::min(result.liquidFraction, result.liquid2Fraction), judged, 1e-3 * judged);
        }
}

// Two compounds are in three phases at one temperature of a pressure: all of a liquid becomes vapor there.
TEST(BubblePoints, AreThereWhereALiquidOfTwoCompoundsBoilsAtOnce)
{
    const MixtureModel model = modelOf({"1-propanol", "carbon monoxide"});
    const std::vector<double> z = {0.3743, 0.6257};
    expectTwoLiquidsToBoil(model, z, Variable::vaporFraction, {Variable::temperature, 105.0});
    const FlashResult result = expectTwoLiquidsToBoil(model, z, Variable::vaporFraction, {Variable::pressure, 7.8e5});
    for (const Variable variable : {Variable::enthalpy, Variable::entropy, Variable::internalEnergy}) {
        const FlashSpecification held{variable, valueOf(model, z, result, variable)};
        const FlashResult again = expectTwoLiquidsToBoil(model, z, Variable::vaporFraction, held);
        EXPECT_NEAR(again.temperature, result.temperature, 1e-8 * result.temperature);
    }
}

// With traces the three phases have a range of 1e-5 K, and all of boiling is within four: steps from outside go across.
TEST(BubblePoints, AreFoundBetweenALiquidAndAVaporOfAllTheFeed)
{
    const MixtureModel model = modelOf({"n-butane", "cyclohexane", "xenon", "ammonia"});
    const std::vector<double> z = {0.046043268350812211, 6.7692844593845599e-09, 1.7920950666459912e-08,
                                   0.95395670695895263};
    expectTwoLiquidsToBoil(model, z, Variable::vaporFraction, {Variable::pressure, 323173.40523405437});
}
