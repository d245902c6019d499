#include "reference/engine/cubic.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

using namespace reference;

namespace {

// The equation itself: Z = 1 / (1 - B/Z) - A Z / (Z^2 + 2 B Z - B^2), as the difference of its sides.
double mismatch(double A, double B, double Z) { return Z / (Z - B) - A * Z / (Z * Z + 2.0 * B * Z - B * B) - Z; }

} // namespace

TEST(SolveCompressibility, GivesOneForAThinGas)
{
    const CompressibilityRoots roots = solveCompressibility(1e-9, 1e-10);
    EXPECT_NEAR(roots.vapor, 1.0, 1e-8);
}

// Where the three roots meet: Omega_a, Omega_b and Zc of Peng and Robinson (1976), Zc = 0.307401.
TEST(SolveCompressibility, GivesTheCriticalFactorAtTheCriticalPoint)
{
    const CompressibilityRoots roots = solveCompressibility(0.457235528921, 0.0777960739039);
    EXPECT_NEAR(roots.vapor, 0.307401, 1e-4);
    EXPECT_NEAR(roots.liquid, 0.307401, 1e-4);
}

TEST(SolveCompressibility, GivesVapourAndLiquidRootsBetweenWhichTheEquationTurns)
{
    const double A = 0.1; // Tr about 0.7, at a low pressure
    const double B = 0.012;
    const CompressibilityRoots roots = solveCompressibility(A, B);
    ASSERT_TRUE(roots.distinct());
    EXPECT_GT(roots.vapor, 0.8);
    EXPECT_LT(roots.liquid, 0.03);
    EXPECT_GT(roots.liquid, B);
}

TEST(SolveCompressibility, SatisfiesTheEquationToTheLastDigitsOverTheWholePlane)
{
    std::mt19937_64 generator(4);
    std::uniform_real_distribution<double> exponent(-9.0, 1.5);
    std::uniform_real_distribution<double> ratio(0.3, 60.0);
    for (int i = 0; i < 20000; ++i) {
        const double B = std::pow(10.0, exponent(generator));
        const double A = B * ratio(generator);
        const CompressibilityRoots roots = solveCompressibility(A, B);
        for (const double Z : {roots.vapor, roots.liquid}) {
            ASSERT_GT(Z, B);
            // A root that is off by one part in 1e13 changes the repulsion by that times Z B / (Z - B)^2.
            const double tolerance = 1e-13 * (1.0 + Z) * (1.0 + Z * Z / ((Z - B) * (Z - B)) + A / Z);
            ASSERT_NEAR(mismatch(A, B, Z), 0.0, tolerance) << "A " << A << " B " << B << " Z " << Z;
        }
    }
}
