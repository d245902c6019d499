#include "tests/reference/engine/phase_sweep.h"

#include "reference/engine/equilibrium/flash_tp.h"
#include "reference/engine/flash/flash.h"
#include "reference/engine/phase/phase_evaluation.h"
#include "tests/reference/engine/campaign.h"
#include "tests/reference/engine/flash_check.h"
#include "tests/reference/engine/mixtures.h"
#include "tests/reference/engine/phase_judge.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace reference;

namespace {

// bench/flash_sweep.cpp runs a hundred thousand.
constexpr int feedsOfAQuarter = 56; // of each family
class PhaseSweepOf : public testing::TestWithParam<std::size_t> {};

FlashResult stateOf(const MixtureModel &model, double temperature, double pressure, const std::vector<double> &z)
{
    FlashResult result;
    EXPECT_EQ(flashTP(model, temperature, pressure, z, FlashPhases::vaporAndTwoLiquids, result), FlashStatus::solved);
    return result;
}

} // namespace

TEST_P(PhaseSweepOf, FindsTheStableStates)
{
    const FeedFamily &family = feedFamilies()[GetParam()];
    const PhaseSweep sweep = sweepPhases(family, 1 + firstQuarter * feedsOfAQuarter, quarters * feedsOfAQuarter);
    for (const std::string &fault : sweep.faults)
        ADD_FAILURE() << family.name << ": " << fault;
    EXPECT_EQ(sweep.count.feeds, quarters * feedsOfAQuarter);
    EXPECT_EQ(sweep.count.judgeWorse, 0);
    EXPECT_GT(sweep.count.byPhases[1], 5 * quarters);
    EXPECT_GT(sweep.count.byPhases[2], 5 * quarters);
}

INSTANTIATE_TEST_SUITE_P(Families, PhaseSweepOf, testing::Range<std::size_t>(0, feedFamilies().size()));

// Water that condenses from a gas, of which Wilson's ratios see nothing.
TEST(StablePhases, HaveTheWaterBesideAHotGas)
{
    const MixtureModel model = modelOf({"methane", "n-hexane", "water"});
    const std::vector<double> z = {0.5, 0.2, 0.3};
    const FlashResult result = stateOf(model, 410.0, 20e5, z);
    EXPECT_TRUE(result.vaporPresent && result.liquidPresent && !result.liquid2Present);
    EXPECT_GT(result.liquid[2], 0.99);
    const JudgedState judged = judge(model, 410.0, 20e5, z);
    ASSERT_EQ(judged.phases.size(), 2U);
    EXPECT_NEAR(result.vaporFraction, std::max(judged.phases[0].amount, judged.phases[1].amount), 1e-6);
}

TEST(StablePhases, AreThreeWhereWaterAndHexaneCondense)
{
    const MixtureModel model = modelOf({"methane", "n-hexane", "water"});
    const FlashResult result = stateOf(model, 300.0, 10e5, {0.5, 0.2, 0.3});
    ASSERT_TRUE(result.vaporPresent && result.liquidPresent && result.liquid2Present);
    EXPECT_GT(result.liquid[1], 0.9);   // the hydrocarbons
    EXPECT_GT(result.liquid2[2], 0.99); // the water
    EXPECT_GT(result.vapor[0], 0.9);
    EXPECT_DOUBLE_EQ(result.vaporFraction + result.liquidFraction + result.liquid2Fraction, 1.0);
}

// At a pressure at which nothing boils the two liquids are there alone.
TEST(StablePhases, AreTwoLiquidsUnderPressure)
{
    const MixtureModel model = modelOf({"n-hexane", "water"});
    const FlashResult result = stateOf(model, 300.0, 50e5, {0.4, 0.6});
    ASSERT_TRUE(!result.vaporPresent && result.liquidPresent && result.liquid2Present);
    EXPECT_GT(result.liquid[0], 0.9);
    EXPECT_GT(result.liquid2[1], 0.99);
}

// The denser of two liquids without water is the second one.
TEST(StablePhases, NameTheDenserLiquidSecond)
{
    const MixtureModel model = modelOf({"methane", "hydrogen sulfide"});
    const FlashResult result = stateOf(model, 180.0, 60e5, {0.5, 0.5});
    ASSERT_TRUE(result.liquidPresent && result.liquid2Present);
    EXPECT_GT(result.liquid[0], 0.5);
    EXPECT_GT(result.liquid2[1], 0.5);
}

TEST(StablePhases, AreThoseThatAreAllowed)
{
    const MixtureModel model = modelOf({"methane", "n-hexane", "water"});
    const std::vector<double> z = {0.1, 0.5, 0.4};
    const auto at = [&](FlashPhases phases) {
        FlashResult result;
        EXPECT_EQ(flashTP(model, 300.0, 10e5, z, phases, result), FlashStatus::solved);
        return result;
    };
    ASSERT_EQ(at(FlashPhases::vaporAndTwoLiquids).phaseCount(), 3);
    const FlashResult one = at(FlashPhases::vaporAndLiquid);
    EXPECT_TRUE(one.vaporPresent && one.liquidPresent && !one.liquid2Present);
    const FlashResult liquids = at(FlashPhases::twoLiquids);
    EXPECT_TRUE(!liquids.vaporPresent && liquids.liquidPresent && liquids.liquid2Present);
    const FlashResult vapor = at(FlashPhases::vaporOnly);
    EXPECT_TRUE(vapor.vaporPresent && vapor.phaseCount() == 1);
    const FlashResult liquid = at(FlashPhases::liquidOnly);
    EXPECT_TRUE(liquid.liquidPresent && liquid.phaseCount() == 1);
    FlashResult none; // so much methane that the hydrocarbons have no liquid
    EXPECT_EQ(flashTP(model, 300.0, 10e5, std::vector{0.5, 0.2, 0.3}, FlashPhases::twoLiquids, none),
              FlashStatus::otherPhases);
}

// Two liquids where only one may be: the less dense one has the vapor's name, unless its equation has a vapor, too:
// then there is that, which is not stable.
TEST(StablePhases, HaveALiquidStandForTheVaporWhereOneLiquidIsAllowed)
{
    const MixtureModel model = modelOf({"n-hexane", "water"});
    const std::vector<double> z = {0.4, 0.6};
    FlashResult result;
    ASSERT_EQ(flashTP(model, 300.0, 50e5, z, FlashPhases::vaporAndLiquid, result), FlashStatus::solved);
    ASSERT_TRUE(result.vaporPresent && result.liquidPresent);
    EXPECT_GT(result.vapor[0], 0.9);
    EXPECT_GT(result.liquid[1], 0.99);
    ASSERT_EQ(flashTP(model, 300.0, 2e5, z, FlashPhases::vaporAndLiquid, result), FlashStatus::solved);
    ASSERT_TRUE(result.vaporPresent && result.liquidPresent);
    constexpr double pressureOfWater = 3.54e3;                                        // at 300 K, Pa
    EXPECT_NEAR(result.vapor[1], pressureOfWater / 2e5, 0.3 * pressureOfWater / 2e5); // a liquid has a thirtieth
}

// Where no vapor is allowed none of several phases is one by its density: that would be another flash's answer by a
// false name.
TEST(StablePhases, AreNoGasWhereOnlyLiquidsAreAllowed)
{
    int several = 0;
    int refused = 0;
    for (const FeedFamily &family : feedFamilies())
        for (std::uint64_t seed = 1; seed < 60; ++seed) {
            const FeedCase feed = family.make(seed);
            FlashResult result;
            if (flashTP(*feed.model, feed.temperature, feed.pressure, feed.z, FlashPhases::twoLiquids, result) !=
                FlashStatus::solved) {
                ++refused;
                continue;
            }
            EXPECT_FALSE(result.vaporPresent);
            several += result.phaseCount() == 2 ? 1 : 0;
            const Isotherm isotherm(*feed.model, feed.temperature);
            for (const CompoundArray *x : {&result.liquid, &result.liquid2}) {
                if (result.phaseCount() < 2)
                    break;
                PhaseState state;
                evaluatePhase(*feed.model, isotherm, feed.pressure, x->data(), Root::liquid, state);
                EXPECT_TRUE(state.severalRoots ||
                            state.Z < cubicConstants(feed.model->equation).criticalVolume * state.B)
                    << family.name << ' ' << seed << ": " << state.Z;
            }
        }
    EXPECT_GT(several, 50);
    EXPECT_GT(refused, 0);
}

// Feeds on which a sweep of a hundred thousand has stumbled.
TEST(StablePhases, AreFoundWhereThatIsHard)
{
    const struct {
        const char *family;
        std::uint64_t seed;
        int phases;
    } cases[] = {
        {"traces", 50002701, 3},      // so little of a phase that its amount has few digits
        {"traces", 50002832, 3},      //
        {"sour, cold", 130010510, 3}, // the first trial leads back
        {"alcohols", 90009541, 2},    // a vapor beside a liquid that is near to its critical point, but dense
    };
    for (const auto &each : cases) {
        const auto family = std::ranges::find(feedFamilies(), std::string(each.family), &FeedFamily::name);
        const PhaseSweep sweep = sweepPhases(*family, each.seed, 1);
        EXPECT_EQ(sweep.count.byPhases[each.phases], 1) << each.family << ' ' << each.seed;
        for (const std::string &fault : sweep.faults)
            ADD_FAILURE() << fault;
    }
}

// Phases that no start near a pure compound leads to, nor Wilson's ratios.
TEST(StablePhases, AreFoundWhereFewStartsLead)
{
    constexpr auto pengRobinson = EquationOfState::pengRobinson;
    constexpr auto soave = EquationOfState::soaveRedlichKwong;
    const struct {
        EquationOfState equation;
        double temperature, pressure;
        std::vector<std::string_view> compounds;
        std::vector<double> z;
        int phases;
    } cases[] = {
        // a vapor with more water than Wilson's ratios say
        {pengRobinson, 470.0, 27e5, {"water", "n-hexane"}, {0.12, 0.88}, 2},
        {soave, 470.0, 29e5, {"water", "n-hexane"}, {0.12, 0.88}, 2},
        {pengRobinson, 500.0, 34e5, {"water", "toluene"}, {0.12, 0.88}, 2},
        {pengRobinson, 510.0, 46.5e5, {"water", "benzene"}, {0.15, 0.85}, 2},
        // two liquids instead of a vapor and a liquid, and instead of one
        {pengRobinson, 125.0, 31.1e5, {"nitrogen", "ethane"}, {0.6, 0.4}, 2},
        {pengRobinson, 125.0, 30.7e5, {"nitrogen", "ethane"}, {0.6, 0.4}, 2},
        {pengRobinson, 132.72, 28.75e5, {"carbon monoxide", "propane", "methane"}, {0.437, 0.369, 0.194}, 2},
        {pengRobinson, 130.953, 3402412.0, {"ethane", "nitrogen", "methane"}, {0.31691, 0.47129, 0.2118}, 2},
        // water and ammonia, which each would take up more of the other, or water that would of ammonia
        {pengRobinson, 260.0, 20e5, {"water", "ammonia", "n-hexane"}, {0.005, 0.4, 0.595}, 2},
        {pengRobinson, 356.364, 2451031.0, {"water", "ammonia", "1-propanol"}, {0.1981, 0.6074, 0.1945}, 2},
        {pengRobinson,
         394.173,
         7943038.0,
         {"water", "ammonia", "n-decane", "argon", "methane"},
         {0.04718, 0.69517, 0.05631, 0.11483, 0.08651},
         3},
        // a liquid of hydrocarbons that holds much water
        {soave, 539.409, 85.795e5, {"hydrogen", "n-undecane", "water"}, {0.16, 0.094, 0.746}, 3},
        // a vapor that is about to split by itself, beside water
        {pengRobinson, 358.69, 5142331.0, {"water", "propylene", "carbon dioxide"}, {0.25858, 0.64717, 0.09425}, 3},
    };
    for (const auto &each : cases) {
        const MixtureModel model = modelOf(each.compounds, each.equation);
        const FlashResult result = stateOf(model, each.temperature, each.pressure, each.z);
        const JudgedState judged = judge(model, each.temperature, each.pressure, each.z);
        EXPECT_EQ(result.phaseCount(), each.phases) << each.temperature;
        EXPECT_LT(gibbsOf(model, result) - judged.gibbs, 1e-9) << each.temperature;
    }
}

// Where a phase is nearly another one its amount has few digits, and few trial phases lead there. The amounts expected
// are the judge's.
TEST(StablePhases, AreFoundWhereOneBeginsToPart)
{
    const struct {
        EquationOfState equation;
        std::vector<std::string_view> compounds;
        std::vector<double> z;
        double temperature, pressure;
        int phases;
        double least, tolerance; // amount
    } cases[] = {
        {EquationOfState::soaveRedlichKwong,
         {"water", "n-hexane", "methane", "benzene"},
         {0.11780486648700969, 0.12727119513123261, 0.75484661355724225, 7.7324824515426983e-05},
         172.56500724242659,
         8448351.7768543772,
         3,
         9.72e-5,
         1e-5},
        {EquationOfState::pengRobinson,
         {"methane", "isopentane"},
         {0.99764015290579833, 0.0023598470942016174},
         193.53749936522109,
         4904116.7399321981,
         2,
         0.192247,
         1e-5},
        {EquationOfState::soaveRedlichKwong,
         {"ethane", "methane", "nitrogen"},
         {0.018250712265656562, 0.033466021419935467, 0.94828326631440807},
         130.5173638067848,
         3590181.3752536704,
         3,
         0.00128156,
         1e-6},
    };
    for (const auto &each : cases) {
        const MixtureModel model = modelOf(each.compounds, each.equation);
        const FlashResult result = stateOf(model, each.temperature, each.pressure, each.z);
        ASSERT_EQ(result.phaseCount(), each.phases) << each.temperature;
        double least = 1.0;
        for (const auto &[present, amount] : {std::pair(result.vaporPresent, result.vaporFraction),
                                              std::pair(result.liquidPresent, result.liquidFraction),
                                              std::pair(result.liquid2Present, result.liquid2Fraction)})
            least = present ? std::min(least, amount) : least;
        EXPECT_NEAR(least, each.least, each.tolerance) << each.temperature;
    }
}

// Ice-cold water beside hydrocarbons of which it takes up next to nothing: the fractions there are as small as numbers
// can be.
TEST(StablePhases, AreFoundWithTheSmallestFractions)
{
    const MixtureModel model = modelOf({"water", "n-undecane", "n-pentane", "R-32", "isobutane"});
    const std::vector<double> z = {0.49194224918352492, 0.34250481141208572, 0.025581891913077318,
                                   2.2450469292995616e-09, 0.13997104524626525};
    constexpr double temperature = 80.752169;
    constexpr double pressure = 21627.131821;
    const FlashResult result = stateOf(model, temperature, pressure, z);
    ASSERT_TRUE(!result.vaporPresent && result.liquidPresent && result.liquid2Present);
    EXPECT_LT(result.liquid2[1], 1e-250);
    EXPECT_EQ(
        faultOf({model, z, {{FlashVariable::temperature, temperature}, {FlashVariable::pressure, pressure}}}, result),
        "");
    const JudgedState judged = judge(model, temperature, pressure, z);
    ASSERT_EQ(judged.phases.size(), 2U);
    EXPECT_NEAR(result.liquidFraction, judged.phases[0].amount, 1e-9);
    EXPECT_NEAR(result.liquid[1], judged.phases[0].x[1], 1e-9);
}

// A vapor and three liquids, one of which is a small amount of what lies between the water and the alcohols.
TEST(StablePhases, AreRefusedWhereTheyAreFour)
{
    const MixtureModel model = modelOf({"methanol", "methane", "n-hexane", "water", "ethanol", "acetone"});
    const std::vector<double> z = {0.1178709784227758,  0.14624779314239983, 0.11289359348813231,
                                   0.34054827682191441, 0.2054100942262852,  0.077029263898492323};
    constexpr double temperature = 432.58870917105526;
    constexpr double pressure = 4342791.9728567665;
    EXPECT_EQ(judge(model, temperature, pressure, z).phases.size(), 4U);
    const FlashRequest request{{FlashVariable::temperature, temperature}, {FlashVariable::pressure, pressure}};
    FlashResult result;
    FlashReason reason{};
    EXPECT_EQ(flash(model, request, z, result, reason), FlashStatus::otherPhases);
    EXPECT_STREQ(reason.data(),
                 "At 432.589 K and 4.34279e+06 Pa other phases are stable than the ones that the flash may use");
}

TEST(FeedFamilies, HaveFeedsNextToABoundaryOfPhases)
{
    const auto boundaries = std::ranges::find(feedFamilies(), std::string("boundaries"), &FeedFamily::name);
    int beside = 0;
    for (std::uint64_t seed = 1; seed <= 100; ++seed) {
        const FeedCase feed = boundaries->make(seed);
        const auto phasesAt = [&](double pressure) {
            FlashResult result;
            const FlashStatus status =
                flashTP(*feed.model, feed.temperature, pressure, feed.z, FlashPhases::vaporAndTwoLiquids, result);
            return status == FlashStatus::solved ? result.phaseCount() : 0;
        };
        beside += phasesAt(0.98 * feed.pressure) != phasesAt(1.02 * feed.pressure) ? 1 : 0;
    }
    EXPECT_GE(beside, 80);
}
