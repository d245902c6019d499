#include "reference/engine/equilibrium/rachford_rice.h"
#include "reference/engine/numerics/symmetric_solve.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace reference;

// Two compounds: z1 (K1 - 1) / (1 + v (K1 - 1)) + z2 (K2 - 1) / (1 + v (K2 - 1)) = 0 with K = 2, 1/2 and
// z = 1/2 each gives 1/2 / (1 + v) = 1/4 / (1 - v/2), so v = 1/2.
TEST(SolveRachfordRice, GivesTheAmountsOfASymmetricPair)
{
    const double z[] = {0.5, 0.5};
    const double K[] = {2.0, 0.5};
    PhaseAmounts amounts;
    ASSERT_TRUE(solveRachfordRice(2, z, K, amounts));
    EXPECT_NEAR(amounts.vapor, 0.5, 1e-15);
    EXPECT_NEAR(amounts.liquid, 0.5, 1e-15);
}

// The same equation is linear in v for two compounds: v = -(z1 e1 + z2 e2) / (e1 e2), e = K - 1.
TEST(SolveRachfordRice, KeepsTheDigitsOfASmallAmountOfEitherPhase)
{
    const double K[] = {4.0, 0.25};
    for (const double amount : {1e-3, 1e-9, 1e-14}) {
        // z1 3 - z2 0.75 = 2.25 v with z1 + z2 = 1
        const double bubble[] = {0.2 + 0.6 * amount, 0.8 - 0.6 * amount};
        PhaseAmounts amounts;
        ASSERT_TRUE(solveRachfordRice(2, bubble, K, amounts));
        EXPECT_NEAR(amounts.vapor, amount, 1e-15);
        const double dew[] = {0.8 - 0.6 * amount, 0.2 + 0.6 * amount};
        ASSERT_TRUE(solveRachfordRice(2, dew, K, amounts));
        EXPECT_NEAR(amounts.liquid, amount, 1e-15);
    }
}

TEST(SolveRachfordRice, HasNoSolutionOutsideOfTheTwoPhases)
{
    const double z[] = {0.5, 0.5};
    const double allVapor[] = {4.0, 0.9};
    const double allLiquid[] = {1.1, 0.1};
    PhaseAmounts amounts;
    EXPECT_FALSE(solveRachfordRice(2, z, allVapor, amounts));
    EXPECT_FALSE(solveRachfordRice(2, z, allLiquid, amounts));
}

TEST(SolveRachfordRice, SolvesForRatiosOfVeryDifferentSize)
{
    const double z[] = {0.3, 0.3, 0.4};
    const double K[] = {1e12, 1.5, 1e-12};
    PhaseAmounts amounts;
    ASSERT_TRUE(solveRachfordRice(3, z, K, amounts));
    double sum = 0.0;
    for (int i = 0; i < 3; ++i)
        sum += z[i] * (K[i] - 1.0) / (amounts.liquid + amounts.vapor * K[i]);
    EXPECT_NEAR(sum, 0.0, 1e-12);
}

// (4 1; 1 3) (1, 2) = (6, 7)
TEST(SolveDescent, SolvesAPositiveDefiniteSystem)
{
    PairTriangle matrix{2, {4.0, 1.0, 3.0}};
    CompoundArray right{6.0, 7.0};
    solveDescent(matrix, right.data());
    EXPECT_NEAR(right[0], 1.0, 1e-14);
    EXPECT_NEAR(right[1], 2.0, 1e-14);
}

// With minus the gradient on the right, a descent direction has a positive product with it.
TEST(SolveDescent, GivesADescentDirectionForAnIndefiniteMatrix)
{
    PairTriangle matrix{2, {1.0, 2.0, 1.0}};
    const CompoundArray minusGradient{1.0, -1.0};
    CompoundArray step = minusGradient;
    solveDescent(matrix, step.data());
    EXPECT_GT(step[0] * minusGradient[0] + step[1] * minusGradient[1], 0.0);
}
