#include "reference/engine/equilibrium/flash_tp.h"
#include "reference/engine/flash/flash.h"
#include "reference/engine/phase/phase_evaluation.h"
#include "reference/engine/phase/phase_state.h"
#include "tests/reference/engine/mixtures.h"

#include <gtest/gtest.h>

#include <numeric>

using namespace reference;

namespace {

FlashResult flash(const MixtureModel &model, double temperature, double pressure, const std::vector<double> &z)
{
    FlashResult result;
    EXPECT_EQ(flashTP(model, temperature, pressure, z, FlashPhases::vaporAndLiquid, result), FlashStatus::solved)
        << "at " << temperature << " K, " << pressure << " Pa";
    return result;
}

bool twoPhases(const FlashResult &result) { return result.vaporPresent && result.liquidPresent; }

PhaseState phaseOf(const MixtureModel &model, double temperature, double pressure, const double *x, Root root)
{
    PhaseState state;
    evaluatePhase(model, Isotherm(model, temperature), pressure, x, root, state);
    return state;
}

// Sum of x_i (ln x_i + ln phi_i): the Gibbs energy over R T, less what is the same for all splits.
double gibbs(int n, const double *x, const PhaseState &state)
{
    double sum = 0.0;
    for (int i = 0; i < n; ++i)
        if (x[i] > 0.0)
            sum += x[i] * (std::log(x[i]) + state.lnPhi[i]);
    return sum;
}

void expectEquilibrium(const MixtureModel &model, double temperature, double pressure, const std::vector<double> &z,
                       const FlashResult &result)
{
    SCOPED_TRACE(testing::Message() << temperature << " K, " << pressure << " Pa");
    const PhaseState vapor = phaseOf(model, temperature, pressure, result.vapor.data(), Root::vapor);
    const PhaseState liquid = phaseOf(model, temperature, pressure, result.liquid.data(), Root::liquid);
    EXPECT_NEAR(result.vaporFraction + result.liquidFraction, 1.0, 1e-15);
    EXPECT_NEAR(std::accumulate(result.vapor.begin(), result.vapor.begin() + model.size, 0.0), 1.0, 1e-12);
    EXPECT_NEAR(std::accumulate(result.liquid.begin(), result.liquid.begin() + model.size, 0.0), 1.0, 1e-12);
    for (int i = 0; i < model.size; ++i) {
        const double balance = result.vaporFraction * result.vapor[i] + result.liquidFraction * result.liquid[i] - z[i];
        EXPECT_NEAR(balance, 0.0, 1e-12);
        if (z[i] == 0.0) {
            EXPECT_EQ(result.vapor[i], 0.0);
            EXPECT_EQ(result.liquid[i], 0.0);
            continue;
        }
        EXPECT_NEAR(std::log(result.vapor[i]) + vapor.lnPhi[i], std::log(result.liquid[i]) + liquid.lnPhi[i], 1e-9);
    }
    const double two = result.vaporFraction * gibbs(model.size, result.vapor.data(), vapor) +
                       result.liquidFraction * gibbs(model.size, result.liquid.data(), liquid);
    const double one = gibbs(model.size, z.data(), phaseOf(model, temperature, pressure, z.data(), Root::stable));
    EXPECT_LT(two, one);
}

// The lowest tangent plane distance that substitution finds from many compositions: below zero if a
// phase of this kind would split off.
double lowestDistance(const MixtureModel &model, double temperature, double pressure, const std::vector<double> &z,
                      Root root)
{
    const int n = model.size;
    const PhaseState feed = phaseOf(model, temperature, pressure, z.data(), Root::stable);
    double lowest = 0.0;
    for (int start = 0; start < n; ++start) {
        std::vector<double> W = z;
        for (double &amount : W)
            amount *= 0.02;
        W[start] = z[start] > 0.0 ? 1.0 : 0.0;
        for (int step = 0; step < 30; ++step) {
            const double total = std::accumulate(W.begin(), W.end(), 0.0);
            std::vector<double> w = W;
            for (double &fraction : w)
                fraction /= total;
            const PhaseState trial = phaseOf(model, temperature, pressure, w.data(), root);
            double distance = 1.0;
            for (int i = 0; i < n; ++i) {
                if (z[i] <= 0.0)
                    continue;
                const double potential = std::log(z[i]) + feed.lnPhi[i];
                distance += W[i] * (std::log(W[i]) + trial.lnPhi[i] - potential - 1.0);
                W[i] = std::exp(potential - trial.lnPhi[i]);
            }
            if (trial.Z / trial.B > 2.0 || root == Root::liquid) // a vapor, not a second liquid
                lowest = std::min(lowest, distance);
        }
    }
    return lowest;
}

} // namespace

// Between the dew and bubble points of a natural gas. The heavier a compound, the more it is in the
// liquid; methane's ratio at these conditions is near 2 (convergence-pressure charts, DePriester 1953,
// give 2.0 to 2.3).
TEST(FlashTP, SplitsThePipelineGasPlausibly)
{
    const MixtureModel model = modelOf(pipelineGas);
    const FlashResult result = flash(model, 220.0, 40e5, pipelineFractions);
    ASSERT_TRUE(twoPhases(result));
    expectEquilibrium(model, 220.0, 40e5, pipelineFractions, result);
    EXPECT_GT(result.vaporFraction, 0.7);
    EXPECT_LT(result.vaporFraction, 0.9);
    double K[7];
    for (int i = 0; i < 7; ++i)
        K[i] = result.vapor[i] / result.liquid[i];
    EXPECT_NEAR(K[0], 2.0, 0.3);
    for (int i = 0; i < 4; ++i)
        EXPECT_GT(K[i], 2.0 * K[i + 1]) << pipelineGas[i];
    EXPECT_GT(K[5], K[0]); // nitrogen is the lightest
    EXPECT_LT(K[6], K[0]); // carbon dioxide lies between methane and ethane
    EXPECT_GT(K[6], K[1]);
}

// Successive substitution to the end from given ratios is the textbook's way to the same place.
TEST(FlashTP, FindsWhatPlainSubstitutionFinds)
{
    const MixtureModel model = modelOf({"methane", "propane"});
    const std::vector<double> z = {0.6, 0.4};
    const double T = 260.0;
    const double P = 3e6;
    const FlashResult result = flash(model, T, P, z);
    ASSERT_TRUE(twoPhases(result));
    double K[] = {5.0, 0.2};
    double v = 0.0;
    for (int step = 0; step < 500; ++step) {
        v = -(z[0] * (K[0] - 1.0) + z[1] * (K[1] - 1.0)) / ((K[0] - 1.0) * (K[1] - 1.0));
        double x[2];
        double y[2];
        for (int i = 0; i < 2; ++i) {
            x[i] = z[i] / (1.0 + v * (K[i] - 1.0));
            y[i] = K[i] * x[i];
        }
        const PhaseState vapor = phaseOf(model, T, P, y, Root::vapor);
        const PhaseState liquid = phaseOf(model, T, P, x, Root::liquid);
        for (int i = 0; i < 2; ++i)
            K[i] = std::exp(liquid.lnPhi[i] - vapor.lnPhi[i]);
    }
    EXPECT_NEAR(result.vaporFraction, v, 1e-10);
    EXPECT_NEAR(result.vapor[0] / result.liquid[0], K[0], 1e-9);
    EXPECT_NEAR(result.vapor[1] / result.liquid[1], K[1], 1e-9);
}

TEST(FlashTP, NamesASinglePhaseByItsKind)
{
    const MixtureModel model = modelOf(pipelineGas);
    const FlashResult gas = flash(model, 300.0, 40e5, pipelineFractions);
    EXPECT_TRUE(gas.vaporPresent);
    EXPECT_FALSE(gas.liquidPresent);
    EXPECT_EQ(gas.vaporFraction, 1.0);
    EXPECT_EQ(gas.liquidFraction, 0.0);
    EXPECT_EQ(gas.vapor[0], 0.80);
    const FlashResult liquid = flash(model, 120.0, 40e5, pipelineFractions);
    EXPECT_FALSE(liquid.vaporPresent);
    EXPECT_TRUE(liquid.liquidPresent);
    EXPECT_EQ(liquid.vaporFraction, 0.0);
    EXPECT_EQ(liquid.liquidFraction, 1.0);
    EXPECT_EQ(liquid.liquid[0], 0.80);
    // Far above the critical temperature a dense fluid is still called a gas.
    EXPECT_TRUE(flash(model, 320.0, 500e5, pipelineFractions).vaporPresent);
}

// NIST WebBook: propane boils at 300 K and 0.9978 MPa.
TEST(FlashTP, GivesAPureCompoundOnePhase)
{
    const MixtureModel model = modelOf({"propane"});
    const FlashResult gas = flash(model, 300.0, 0.9e6, {1.0});
    EXPECT_TRUE(gas.vaporPresent && !gas.liquidPresent);
    const FlashResult liquid = flash(model, 300.0, 1.1e6, {1.0});
    EXPECT_TRUE(!liquid.vaporPresent && liquid.liquidPresent);
    const FlashResult compressed = flash(model, 300.0, 100e6, {1.0}); // one root
    EXPECT_TRUE(!compressed.vaporPresent && compressed.liquidPresent);
}

TEST(FlashTP, TakesAPureCompoundAmongAbsentOnes)
{
    const FlashResult result = flash(modelOf(pipelineGas), 300.0, 1.1e6, {0.0, 0.0, 1.0, 0.0, 0.0, 0.0, 0.0});
    ASSERT_TRUE(result.liquidPresent && !result.vaporPresent);
    EXPECT_EQ(result.liquid[2], 1.0);
    EXPECT_EQ(result.liquid[0], 0.0);
}

TEST(FlashTP, IsNotChangedByAbsentCompounds)
{
    const FlashResult few = flash(modelOf({"methane", "propane"}), 260.0, 3e6, {0.6, 0.4});
    const FlashResult many = flash(modelOf(pipelineGas), 260.0, 3e6, {0.6, 0.0, 0.4, 0.0, 0.0, 0.0, 0.0});
    ASSERT_TRUE(twoPhases(few) && twoPhases(many));
    EXPECT_NEAR(few.vaporFraction, many.vaporFraction, 1e-13);
    EXPECT_NEAR(few.vapor[1], many.vapor[2], 1e-13);
    EXPECT_NEAR(few.liquid[1], many.liquid[2], 1e-13);
    for (const int absent : {1, 3, 4, 5, 6}) {
        EXPECT_EQ(many.vapor[absent], 0.0);
        EXPECT_EQ(many.liquid[absent], 0.0);
    }
}

TEST(FlashTP, GivesTwoThousandRandomFeedsTheirPhases)
{
    const MixtureModel model = modelOf(naturalGasCompounds);
    std::mt19937_64 generator(2000);
    std::uniform_real_distribution<double> uniform(0.0, 1.0);
    int split = 0;
    for (int i = 0; i < 2000; ++i) {
        const std::vector<double> z = randomFractions(generator, model.size);
        const double T = 120.0 + 380.0 * uniform(generator);
        const double P = 1e4 * std::pow(2000.0, uniform(generator));
        const FlashResult result = flash(model, T, P, z);
        if (twoPhases(result)) {
            ++split;
            expectEquilibrium(model, T, P, z, result);
            continue;
        }
        // One phase must be stable against the other kind, where the feed has both.
        const PhaseState feed = phaseOf(model, T, P, z.data(), Root::stable);
        for (const Root root : {Root::vapor, Root::liquid}) {
            if (feed.severalRoots ? feed.vaporRoot == (root == Root::vapor) : root == Root::liquid)
                continue;
            EXPECT_GT(lowestDistance(model, T, P, z, root), -1e-7) << T << " K, " << P << " Pa";
        }
    }
    EXPECT_GT(split, 500); // or the range would not be worth the name
}

// Along an isotherm through the two-phase region the amount of vapor falls from 1 to 0 without gaps.
TEST(FlashTP, GoesFromDewToBubblePointWithoutAGap)
{
    const MixtureModel model = modelOf({"methane", "n-butane"});
    const std::vector<double> z = {0.5, 0.5};
    double last = 1.0;
    bool ended = false;
    for (double P = 1e5; P < 2e7; P *= 1.01) {
        const FlashResult result = flash(model, 300.0, P, z);
        EXPECT_FALSE(ended && result.vaporPresent) << P;
        EXPECT_LE(result.vaporFraction, last + 1e-12) << P;
        EXPECT_LT(last - result.vaporFraction, 0.05) << P;
        last = result.vaporFraction;
        ended = !result.vaporPresent;
    }
    EXPECT_TRUE(ended);
}

// The critical region of this mixture is crossed in small steps; every flash must converge.
TEST(FlashTP, ConvergesAroundACriticalPoint)
{
    const MixtureModel model = modelOf({"methane", "ethane"});
    int split = 0;
    for (double T = 240.0; T < 262.0; T += 0.5)
        for (double P = 6.0e6; P < 7.2e6; P += 0.5e5) {
            const std::vector<double> z = {0.5, 0.5};
            const FlashResult result = flash(model, T, P, z);
            if (!twoPhases(result))
                continue;
            ++split;
            expectEquilibrium(model, T, P, z, result);
        }
    EXPECT_GT(split, 50);
}

TEST(FlashTP, KeepsTheDigitsOfTraces)
{
    const MixtureModel model = modelOf({"methane", "propane", "n-hexane"});
    const std::vector<double> z = {0.6, 0.4 - 1e-14, 1e-14};
    const FlashResult result = flash(model, 240.0, 2e6, z);
    ASSERT_TRUE(twoPhases(result));
    expectEquilibrium(model, 240.0, 2e6, z, result);
}

TEST(FlashTP, TakesTheLargestMixture)
{
    std::vector<const CompoundData *> list;
    while (list.size() < maximumCompounds)
        list.push_back(&compoundTable()[list.size() % compoundTable().size()]);
    const MixtureModel model = MixtureModel::of(list);
    const std::vector<double> z(maximumCompounds, 1.0 / maximumCompounds);
    const FlashResult result = flash(model, 300.0, 2e6, z);
    ASSERT_TRUE(twoPhases(result));
    expectEquilibrium(model, 300.0, 2e6, z, result);
}
