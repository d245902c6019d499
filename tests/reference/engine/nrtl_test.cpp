// Liquids by activity coefficients.
#include "reference/engine/eos/gas_constant.h"
#include "reference/engine/equilibrium/flash_tp.h"
#include "reference/engine/flash/flash.h"
#include "reference/engine/phase/phase_point.h"
#include "tests/reference/engine/flash_check.h"
#include "tests/reference/engine/mixtures.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

using namespace reference;

namespace {

MixtureModel nrtlOf(const std::vector<std::string_view> &ids) { return modelOf(ids, EquationOfState::nrtl); }

const std::vector<std::string_view> ofThePackage = {"water",      "methanol",   "ethanol",
                                                    "1-propanol", "2-propanol", "1-butanol"};
const std::vector<double> blend = {0.3, 0.2, 0.2, 0.1, 0.05, 0.15};

struct Binary {
    double tau12, tau21, G12, G21;
};

// The equation as the literature has it for two compounds.
std::array<double, 2> binaryLogActivities(const Binary &pair, double x1)
{
    const double x2 = 1.0 - x1;
    const auto one = [&](double x, double other, double tau, double G, double otherTau, double otherG) {
        return other * other *
               (tau * std::pow(G / (x + other * G), 2) + otherTau * otherG / std::pow(other + x * otherG, 2));
    };
    return {one(x1, x2, pair.tau21, pair.G21, pair.tau12, pair.G12),
            one(x2, x1, pair.tau12, pair.G12, pair.tau21, pair.G21)};
}

FlashResult solved(const MixtureModel &model, const FlashRequest &request, const std::vector<double> &z)
{
    FlashResult result{};
    FlashReason reason{};
    EXPECT_EQ(flash(model, request, z, result, reason), FlashStatus::solved) << reason.data();
    return result;
}

FlashResult bubblePoint(const MixtureModel &model, double pressure, const std::vector<double> &z)
{
    return solved(model, {{FlashVariable::pressure, pressure}, {FlashVariable::vaporFraction, 0.0}}, z);
}

} // namespace

TEST(Nrtl, GivesTheActivityCoefficientsOfTwoCompounds)
{
    const MixtureModel model = nrtlOf({"ethanol", "water"});
    const double T = 340.0;
    const double alpha = 0.2937;
    const double tau12 = -29.1667 / T;
    const double tau21 = 624.8676 / T;
    const Binary pair{tau12, tau21, std::exp(-alpha * tau12), std::exp(-alpha * tau21)};
    const Isotherm isotherm(model, T);
    for (const double x1 : {0.0, 0.1, 0.5, 0.9, 1.0}) {
        const std::array<double, 2> x = {x1, 1.0 - x1};
        CompoundArray found;
        isotherm.local.logActivityCoefficients(x.data(), found);
        const auto expected = binaryLogActivities(pair, x1);
        EXPECT_NEAR(found[0], expected[0], 1e-13) << x1;
        EXPECT_NEAR(found[1], expected[1], 1e-13) << x1;
    }
}

TEST(Nrtl, TakesAPairWithoutParametersForAnIdealOne)
{
    const MixtureModel model = nrtlOf({"water", "2-propanol"});
    const std::array<double, 2> x = {0.4, 0.6};
    CompoundArray found;
    Isotherm(model, 340.0).local.logActivityCoefficients(x.data(), found);
    EXPECT_EQ(found[0], 0.0);
    EXPECT_EQ(found[1], 0.0);
}

TEST(Nrtl, HasTheDerivativesThatDifferencesGive)
{
    const MixtureModel model = nrtlOf(ofThePackage);
    const double T = 345.0;
    const double P = 2e5;
    const auto liquidAt = [&](double kelvin, const std::vector<double> &x) {
        return PhasePoint(model, kelvin, P, x, Root::liquid);
    };
    const PhasePoint at = liquidAt(T, blend);
    PairArray byMoles;
    PhaseSlopes slopes;
    at.lnPhiByComposition(byMoles);
    at.lnPhiSlopes(slopes);
    constexpr double h = 1e-4;
    const PhasePoint hot = liquidAt(T + h, blend);
    const PhasePoint cold = liquidAt(T - h, blend);
    for (int j = 0; j < model.size; ++j) {
        EXPECT_NEAR(slopes.lnPhiByT[j], (hot.state().lnPhi[j] - cold.state().lnPhi[j]) / (2.0 * h), 1e-8);
        const auto withMore = [&](double amount) {
            std::vector<double> x = blend;
            x[static_cast<std::size_t>(j)] += amount;
            for (double &fraction : x)
                fraction /= 1.0 + amount;
            return liquidAt(T, x);
        };
        const PhasePoint more = withMore(1e-6);
        const PhasePoint less = withMore(-1e-6);
        for (int i = 0; i < model.size; ++i) {
            EXPECT_NEAR(byMoles[i + model.size * j], (more.state().lnPhi[i] - less.state().lnPhi[i]) / 2e-6, 1e-8);
            EXPECT_NEAR(byMoles[i + model.size * j], byMoles[j + model.size * i], 1e-14);
        }
    }
}

// Enthalpy, entropy and heat capacity follow from ln phi at all temperatures, so do their slopes.
TEST(Nrtl, HasPropertiesThatFollowFromTheFugacities)
{
    const MixtureModel model = nrtlOf(ofThePackage);
    const double T = 345.0;
    constexpr double h = 1e-3;
    const auto bulkAt = [&](double kelvin, Differential differential) {
        return PhasePoint(model, kelvin, 2e5, blend, Root::liquid).bulk({differential}, true);
    };
    const Bulk at = bulkAt(T, Differential::byTemperature);
    const Bulk hot = bulkAt(T + h, Differential::none);
    const Bulk cold = bulkAt(T - h, Differential::none);
    const auto difference = [&](Dual Residual::*member) {
        return ((hot.residual.*member).value - (cold.residual.*member).value) / (2.0 * h);
    };
    const PhasePoint point(model, T, 2e5, blend, Root::liquid);
    double gibbs = 0.0;
    for (int i = 0; i < model.size; ++i)
        gibbs += blend[static_cast<std::size_t>(i)] * point.state().lnPhi[i];
    EXPECT_NEAR(at.residual.gibbs(at.T).value, gasConstant * T * gibbs, 1e-8);
    EXPECT_NEAR(at.residual.heatCapacityP.value, difference(&Residual::enthalpy), 1e-5);
    EXPECT_NEAR(at.residual.enthalpy.slope, at.residual.heatCapacityP.value, 1e-9);
    EXPECT_NEAR(at.residual.entropy.slope, at.residual.heatCapacityP.value / T, 1e-10);
    EXPECT_NEAR(at.residual.heatCapacityP.slope, difference(&Residual::heatCapacityP), 1e-6);
    CompoundArray logActivities;
    Isotherm(model, T).local.logActivityCoefficients(blend.data(), logActivities);
    double excess = 0.0;
    for (int i = 0; i < model.size; ++i)
        excess += blend[static_cast<std::size_t>(i)] * logActivities[i];
    EXPECT_NEAR((at.pureEnthalpyDifference - at.T * at.pureEntropyDifference).value, gasConstant * T * excess, 1e-8);
}

// It lies at 351.3 K and 0.894 of ethanol at 101325 Pa. There the lines of vapor and liquid are so close that 1 % of a
// fugacity moves it by 0.012: parameters that were fitted to the whole lines, with an ideal vapor, come no nearer.
TEST(Nrtl, HasTheAzeotropeOfEthanolAndWater)
{
    const MixtureModel model = nrtlOf({"ethanol", "water"});
    const auto surplus = [&](double x) { return bubblePoint(model, 101325.0, {x, 1.0 - x}).vapor[0] - x; };
    double poor = 0.7;
    double rich = 0.99;
    ASSERT_GT(surplus(poor), 0.0);
    ASSERT_LT(surplus(rich), 0.0);
    while (rich - poor > 1e-6)
        (surplus(0.5 * (poor + rich)) > 0.0 ? poor : rich) = 0.5 * (poor + rich);
    EXPECT_NEAR(poor, 0.894, 0.015);
    EXPECT_NEAR(bubblePoint(model, 101325.0, {poor, 1.0 - poor}).temperature, 351.3, 0.3);
}

TEST(Nrtl, SplitsButanolAndWaterIntoTwoLiquids)
{
    const MixtureModel model = nrtlOf({"1-butanol", "water"});
    const FlashResult result =
        solved(model, {{FlashVariable::temperature, 340.0}, {FlashVariable::pressure, 101325.0}}, {0.2, 0.8});
    EXPECT_FALSE(result.vaporPresent);
    ASSERT_TRUE(result.liquidPresent && result.liquid2Present);
    EXPECT_GT(result.liquid2[1], 0.95);
    EXPECT_LT(result.liquid[1], 0.7);
}

// The volume of such a liquid, and with it the Helmholtz energy, do not depend on the pressure.
TEST(Nrtl, LeavesThePressureOfALiquidOpen)
{
    const MixtureModel model = nrtlOf({"ethanol", "water"});
    const std::vector<double> z = {0.3, 0.7};
    const auto statusOf = [&](FlashVariable first, FlashVariable second, double temperature, double pressure) {
        FlashResult state;
        EXPECT_EQ(flashTP(model, temperature, pressure, z, FlashPhases::vaporAndTwoLiquids, state),
                  FlashStatus::solved);
        EXPECT_EQ(state.vaporPresent && state.liquidPresent, temperature > 350.0); // it boils
        const FlashRequest request{{first, valueOf(model, z, state, first)},
                                   {second, valueOf(model, z, state, second)}};
        FlashResult result;
        FlashReason reason{};
        const FlashStatus status = flash(model, request, z, result, reason);
        EXPECT_EQ(status == FlashStatus::undetermined,
                  std::string(reason.data()).find("at any pressure") != std::string::npos)
            << reason.data();
        return status;
    };
    for (const double pressure : {1e5, 20e5}) {
        EXPECT_EQ(statusOf(FlashVariable::temperature, FlashVariable::volume, 300.0, pressure),
                  FlashStatus::undetermined);
        EXPECT_EQ(statusOf(FlashVariable::temperature, FlashVariable::helmholtzEnergy, 300.0, pressure),
                  FlashStatus::undetermined);
        EXPECT_EQ(statusOf(FlashVariable::volume, FlashVariable::helmholtzEnergy, 300.0, pressure),
                  FlashStatus::undetermined);
        EXPECT_EQ(statusOf(FlashVariable::pressure, FlashVariable::volume, 300.0, pressure), FlashStatus::solved);
        EXPECT_EQ(statusOf(FlashVariable::temperature, FlashVariable::gibbsEnergy, 300.0, pressure),
                  FlashStatus::solved);
        EXPECT_EQ(statusOf(FlashVariable::temperature, FlashVariable::entropy, 300.0, pressure), FlashStatus::solved);
    }
    EXPECT_EQ(statusOf(FlashVariable::temperature, FlashVariable::volume, 358.0, 1.013e5), FlashStatus::solved);
}
