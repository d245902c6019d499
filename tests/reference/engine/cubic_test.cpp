#include "reference/engine/eos/cubic.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

using namespace reference;

namespace {

// Each equation as its authors wrote it, as the difference of its sides times v / (R T).
double pengRobinsonMismatch(double A, double B, double free)
{
    const double Z = free + B;
    return Z / free - A * Z / (Z * (Z + B) + B * (Z - B)) - Z;
}
double soaveMismatch(double A, double B, double free)
{
    const double Z = free + B;
    return Z / free - A / (Z + B) - Z;
}

struct Case {
    EquationOfState equation;
    double (*mismatch)(double A, double B, double free); // with Z - B
    double omegaA;                                       // as published, with more digits
    double omegaB;
    double criticalZ;
};
// Zc = 0.307401 of Peng and Robinson (1976) and 1/3 of Soave (1972).
const Case cases[] = {
    {EquationOfState::pengRobinson, pengRobinsonMismatch, 0.457235528921, 0.0777960739039, 0.307401},
    {EquationOfState::soaveRedlichKwong, soaveMismatch, 0.427480233540, 0.0866403499650, 0.333333},
};

} // namespace

TEST(SolveCompressibility, GivesOneForAThinGas)
{
    for (const Case &each : cases)
        EXPECT_NEAR(solveCompressibility(cubicConstants(each.equation), 1e-9, 1e-10).vapor, 1.0, 1e-8);
}

// Where the three roots meet.
TEST(SolveCompressibility, GivesTheCriticalFactorAtTheCriticalPoint)
{
    for (const Case &each : cases) {
        const CubicConstants &equation = cubicConstants(each.equation);
        EXPECT_NEAR(equation.omegaA, each.omegaA, 1e-12);
        EXPECT_NEAR(equation.omegaB, each.omegaB, 1e-13);
        EXPECT_NEAR(equation.criticalVolume, each.criticalZ / each.omegaB, 1e-5);
        const CompressibilityRoots roots = solveCompressibility(equation, each.omegaA, each.omegaB);
        EXPECT_NEAR(roots.vapor + each.omegaB, each.criticalZ, 1e-4);
        EXPECT_NEAR(roots.liquid + each.omegaB, each.criticalZ, 1e-4);
    }
}

TEST(SolveCompressibility, GivesVaporAndLiquidRootsBetweenWhichTheEquationTurns)
{
    const double A = 0.1; // Tr about 0.7, at a low pressure
    const double B = 0.012;
    for (const Case &each : cases) {
        const CompressibilityRoots roots = solveCompressibility(cubicConstants(each.equation), A, B);
        ASSERT_TRUE(roots.distinct());
        EXPECT_GT(roots.vapor, 0.8);
        EXPECT_LT(roots.liquid + B, 0.03);
        EXPECT_GT(roots.liquid, 0.0);
    }
}

TEST(SolveCompressibility, SatisfiesTheEquationToTheLastDigitsOverTheWholePlane)
{
    std::mt19937_64 generator(4);
    std::uniform_real_distribution<double> exponent(-9.0, 1.5);
    std::uniform_real_distribution<double> ratio(0.3, 60.0);
    for (int i = 0; i < 40000; ++i) {
        const Case &each = cases[i % 2];
        const double B = std::pow(10.0, exponent(generator));
        const double A = B * ratio(generator);
        const CompressibilityRoots roots = solveCompressibility(cubicConstants(each.equation), A, B);
        for (const double free : {roots.vapor, roots.liquid}) {
            ASSERT_GT(free, 0.0);
            // Relative to its largest term, the equation is met to rounding.
            const double Z = free + B;
            const double tolerance = 2e-14 * (Z / free + A / (Z + B) + Z);
            ASSERT_NEAR(each.mismatch(A, B, free), 0.0, tolerance) << "A " << A << " B " << B << " Z - B " << free;
        }
    }
}
