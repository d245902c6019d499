// What one flash may cost, and what is said when that is spent.
#include "reference/engine/flash/fraction_trace.h"
#include "tests/reference/engine/campaign.h"
#include "tests/reference/engine/flash_check.h"
#include "tests/reference/engine/mixtures.h"

#include <gtest/gtest.h>

#include <ctime>
#include <regex>

using namespace reference;

namespace {

const std::vector<std::string_view> wetGas = {"methane",        "ethane",           "propane",  "isobutane", "n-butane",
                                              "isopentane",     "n-pentane",        "n-hexane", "n-heptane", "n-octane",
                                              "n-nonane",       "n-decane",         "benzene",  "toluene",   "nitrogen",
                                              "carbon dioxide", "hydrogen sulfide", "water"};

std::vector<double> equalFractions(int count)
{
    return std::vector<double>(static_cast<std::size_t>(count), 1.0 / count);
}

// Of a vapor far above its dew point.
double superheatedEnthalpy(const MixtureModel &model, const std::vector<double> &z)
{
    FlashResult vapor;
    const FlashRequest request{{FlashVariable::temperature, 573.4}, {FlashVariable::pressure, 107858.0}};
    FlashReason reason{};
    EXPECT_EQ(flash(model, request, z, vapor, reason), FlashStatus::solved) << reason.data();
    EXPECT_FALSE(vapor.liquidPresent);
    return valueOf(model, z, vapor, FlashVariable::enthalpy);
}

} // namespace

TEST(FlashBudget, IsSpentByFewerFlashesOfMoreCompounds)
{
    const auto flashesOf = [](int compounds, FlashStatus status) {
        FlashBudget budget(compounds);
        while (!budget.isSpent())
            budget.charge(status);
        return budget.flashes();
    };
    EXPECT_GT(flashesOf(10, FlashStatus::solved), 1000);
    EXPECT_GT(flashesOf(62, FlashStatus::solved), 100);
    EXPECT_LT(flashesOf(62, FlashStatus::solved), flashesOf(20, FlashStatus::solved) / 5);
    // What finds no phases has searched the longest.
    EXPECT_LT(flashesOf(20, FlashStatus::otherPhases), flashesOf(20, FlashStatus::solved));
    EXPECT_LT(flashesOf(20, FlashStatus::notConverged), flashesOf(20, FlashStatus::otherPhases));
}

TEST(FlashBudget, LeavesNoFlashesWhenItIsSpent)
{
    const MixtureModel model = modelOf({"methane", "propane"});
    const std::vector<double> z = {0.5, 0.5};
    FlashBudget budget(model.size);
    const Feed feed{model, z.data(), FlashPhases::vaporAndTwoLiquids, &budget};
    FlashResult result;
    Equilibrium equilibrium;
    const FlashSpecification temperature{FlashVariable::temperature, 250.0};
    EXPECT_EQ(flashAt(feed, temperature, 1e6, result), FlashStatus::solved);
    EXPECT_EQ(equilibrium.find(feed, 250.0, 1e6), FlashStatus::solved);
    EXPECT_EQ(budget.flashes(), 2);
    while (!budget.isSpent())
        budget.charge(FlashStatus::notConverged);
    const int spent = budget.flashes();
    EXPECT_EQ(flashAt(feed, temperature, 1e6, result), FlashStatus::notConverged);
    EXPECT_EQ(equilibrium.find(feed, 250.0, 1e6), FlashStatus::notConverged);
    EXPECT_EQ(budget.flashes(), spent);
}

TEST(FlashBudget, KnowsBelowWhichTemperatureNoPhasesAreFound)
{
    const auto coldestOf = [](const std::vector<std::string_view> &compounds) {
        const MixtureModel model = modelOf(compounds);
        const std::vector<double> z = equalFractions(model.size);
        FlashBudget budget(model.size);
        const double coldest = coldestWithPhases({model, z.data(), FlashPhases::vaporAndTwoLiquids, &budget});
        const int flashes = budget.flashes();
        EXPECT_EQ(coldestWithPhases({model, z.data(), FlashPhases::vaporAndTwoLiquids, &budget}), coldest);
        EXPECT_EQ(budget.flashes(), flashes); // once
        return coldest;
    };
    EXPECT_EQ(coldestOf({"propane"}), lowestFlashTemperature);
    const double coldest = coldestOf(wetGas);
    EXPECT_GT(coldest, 40.0);
    EXPECT_LT(coldest, 200.0);
}

// All places that a search of 18 compounds can look at take 10 s to 24 s.
TEST(FlashBudget, RefusesAFractionOfWhatIsSuperheatedInShortTime)
{
    const MixtureModel model = modelOf(wetGas);
    const std::vector<double> z = equalFractions(model.size);
    const double enthalpy = superheatedEnthalpy(model, z);
    constexpr double limit = quarters == 4 ? 2.0 : 8.0; // with sanitizers
    for (const double fraction : {0.0, 0.5, 1.0}) {
        FlashResult result;
        FlashReason reason{};
        const std::clock_t start = std::clock();
        const FlashRequest request{{FlashVariable::vaporFraction, fraction}, {FlashVariable::enthalpy, enthalpy}};
        EXPECT_NE(flash(model, request, z, result, reason), FlashStatus::solved);
        const double seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
        EXPECT_LT(seconds, limit) << fraction;
        EXPECT_EQ(std::string(reason.data()).find("No state with the vapor fraction "), 0u) << reason.data();
    }
}

TEST(FlashBudget, IsTheReasonWhereASearchWasGivenUp)
{
    std::vector<const CompoundData *> all;
    for (const CompoundData &compound : compoundTable())
        all.push_back(&compound);
    const MixtureModel model = MixtureModel::of(all, EquationOfState::pengRobinson);
    const std::vector<double> z = equalFractions(model.size);
    const FlashRequest request{{FlashVariable::vaporFraction, 0.5},
                               {FlashVariable::enthalpy, superheatedEnthalpy(model, z)}};
    FlashResult result;
    FlashReason reason{};
    EXPECT_EQ(flash(model, request, z, result, reason), FlashStatus::notConverged);
    const std::regex words("No state with the vapor fraction 0\\.5 and the enthalpy [0-9.]+ J/mol was found by "
                           "[0-9]+ flashes at temperatures and pressures");
    EXPECT_TRUE(std::regex_match(reason.data(), words)) << reason.data();
}

// From a pressure of its own choice, and through the kinks where a second liquid comes and goes.
TEST(FractionTrace, LeadsToThreePhases)
{
    const MixtureModel model = modelOf({"methane", "n-hexane", "water"});
    const std::vector<double> z = {0.5, 0.2, 0.3};
    const Feed feed{model, z.data(), FlashPhases::vaporAndTwoLiquids};
    for (const double pressure : {2e4, 20e5, 60e5}) {
        Equilibrium state;
        ASSERT_EQ(state.find(feed, 300.0, pressure), FlashStatus::solved);
        ASSERT_EQ(state.phases.phaseCount(), 3 - (pressure < 1e5));
        for (const FlashVariable fraction : {FlashVariable::vaporFraction, FlashVariable::vaporMassFraction})
            for (const FlashVariable other : {FlashVariable::enthalpy, FlashVariable::entropy, FlashVariable::volume}) {
                const FlashRequest request{{fraction, valueOf(model, z, state.phases, fraction)},
                                           {other, valueOf(model, z, state.phases, other)}};
                FlashResult result;
                ASSERT_TRUE(findOnFractionTrace(feed, request.first, request.second, result))
                    << pressure << ' ' << flashVariableName(other);
                EXPECT_EQ(faultOf({model, z, request}, result), "") << pressure << ' ' << flashVariableName(other);
            }
    }
}

TEST(FractionTrace, EndsWithoutAStateWhereThereIsNone)
{
    const MixtureModel model = modelOf({"methane", "n-hexane", "water"});
    const std::vector<double> z = {0.5, 0.2, 0.3};
    FlashBudget budget(model.size);
    const Feed feed{model, z.data(), FlashPhases::vaporAndTwoLiquids, &budget};
    FlashResult result;
    EXPECT_FALSE(
        findOnFractionTrace(feed, {FlashVariable::vaporFraction, 0.5}, {FlashVariable::enthalpy, 1e5}, result));
    EXPECT_FALSE(budget.isSpent());
}
