#include "reference/engine/equilibrium/stability.h"
#include "tests/reference/engine/mixtures.h"

#include <gtest/gtest.h>

using namespace reference;

namespace {

// Propane boils at 300 K and 0.9978 MPa, n-butane at 0.2576 MPa (NIST WebBook). A liquid of both in
// equal parts boils, by Raoult's law, near the mean of 0.63 MPa, and a gas condenses near the harmonic
// mean of 0.41 MPa.
bool splits(double pressure, Root root)
{
    const MixtureModel model = modelOf({"propane", "n-butane"});
    const double z[] = {0.5, 0.5};
    const FlashProblem problem(model, 300.0, pressure, z);
    PhaseSplit feed;
    feed.setOnePhase(problem);
    StabilityTest test(problem, feed);
    TrialPhase trial;
    if (!test.findNext(trial))
        return false;
    EXPECT_LT(trial.distance, 0.0);
    EXPECT_EQ(trial.root, root);
    // Propane is the more volatile one.
    EXPECT_EQ(trial.lnW[0] > trial.lnW[1], root == Root::vapor);
    return true;
}

} // namespace

// Wilson's estimate is made to give the boiling pressure: at the critical point exactly, and for n-butane
// at its normal boiling point of 272.66 K within a few percent one atmosphere.
TEST(WilsonLogRatio, IsZeroWhereAPureCompoundBoils)
{
    const CompoundTerms butane = modelOf({"n-butane"}).compounds[0];
    EXPECT_NEAR(wilsonLogRatio(butane, 425.125, 3.796e6), 0.0, 1e-14);
    EXPECT_NEAR(wilsonLogRatio(butane, 272.66, 101325.0), 0.0, 0.03);
}

TEST(Stability, FindsTheVaporOfALiquidBelowItsBubblePressure)
{
    EXPECT_TRUE(splits(0.56e6, Root::vapor));
    EXPECT_FALSE(splits(0.70e6, Root::vapor));
}

TEST(Stability, FindsTheLiquidOfAGasAboveItsDewPressure)
{
    EXPECT_TRUE(splits(0.45e6, Root::liquid));
    EXPECT_FALSE(splits(0.37e6, Root::liquid));
}
