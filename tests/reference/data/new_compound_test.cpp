// The engine with the rows that add_compound.py adds to the tables, and nothing else changed.
#include "reference/engine/flash/flash.h"
#include "reference/engine/quantities/phase_calculation.h"
#include "tests/reference/engine/mixtures.h"

#include <gtest/gtest.h>

using namespace reference;

namespace {

constexpr std::string_view added = "3-methylheptane";

FlashResult solved(const MixtureModel &model, const FlashRequest &request, const std::vector<double> &z)
{
    FlashResult result{};
    FlashReason reason{};
    EXPECT_EQ(flash(model, request, z, result, reason), FlashStatus::solved) << reason.data();
    return result;
}

} // namespace

TEST(NewCompound, StandsInTheTable)
{
    const CompoundData *compound = findCompound(added);
    ASSERT_NE(compound, nullptr);
    EXPECT_EQ(compound->formula, "C8H18");
    EXPECT_EQ(compound->casNumber, "589-81-1");
}

// Its boiling point is the one in its row, 398.794 K, as nearly as the equations of state have boiling points.
TEST(NewCompound, BoilsInAFlash)
{
    for (const EquationOfState equation : equations) {
        const FlashRequest boiling{{FlashVariable::pressure, 101325.0}, {FlashVariable::vaporFraction, 0.5}};
        EXPECT_NEAR(solved(modelOf({added}, equation), boiling, {1.0}).temperature, 398.794, 1.5);
    }
}

TEST(NewCompound, SplitsWithOthersAsItsModelDoes)
{
    const std::vector<double> z = {0.4, 0.3, 0.3};
    const FlashRequest request{{FlashVariable::temperature, 300.0}, {FlashVariable::pressure, 2e6}};
    for (const EquationOfState equation : equations) {
        const FlashResult known = solved(modelOf({"methane", "n-octane", "carbon dioxide"}, equation), request, z);
        const FlashResult result = solved(modelOf({"methane", added, "carbon dioxide"}, equation), request, z);
        ASSERT_TRUE(result.vaporPresent && result.liquidPresent);
        EXPECT_EQ(result.vaporFraction, known.vaporFraction);
        for (int i = 0; i < 3; ++i) {
            EXPECT_EQ(result.vapor[i], known.vapor[i]);
            EXPECT_EQ(result.liquid[i], known.liquid[i]);
        }
    }
}

// That of its model, 0.508 mPa s in the CRC Handbook.
TEST(NewCompound, HasTheViscosityOfItsLiquid)
{
    const MixtureModel model = modelOf({added});
    const PhasePoint liquid(model, 298.15, 101325.0, std::vector{1.0}, Root::liquid);
    double viscosity = 0.0;
    ASSERT_TRUE(calculate(liquid, PhaseQuantity::viscosity, Differential::none, {&viscosity, 1}));
    EXPECT_NEAR(viscosity, 0.508e-3, 0.01 * 0.508e-3);
}
