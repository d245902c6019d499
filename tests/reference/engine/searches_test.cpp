#include "reference/engine/numerics/linear_solve.h"
#include "reference/engine/numerics/root_search.h"

#include <gtest/gtest.h>

using namespace reference;

namespace {

// A function of one variable given as a formula, NaN where it has no value; it counts how often it is asked.
template <class Formula, class Slope> struct Curve {
    Formula formula;
    Slope slope;
    int asked = 0;
    double last = 0.0;

    Probe probe(double at)
    {
        ++asked;
        last = at;
        Probe result;
        result.at = at;
        result.residual = formula(at);
        result.known = std::isfinite(result.residual);
        result.met = std::fabs(result.residual) < 1e-12;
        result.slope = slope(at);
        return result;
    }
    bool cross(const Probe &, const Probe &) { return false; }
};

template <class Formula, class Slope> Curve(Formula, Slope) -> Curve<Formula, Slope>;

} // namespace

// (0 2; 3 4) (5, 6) = (12, 39): the first pivot is zero.
TEST(Elimination, ExchangesRowsWhereAPivotIsZero)
{
    SquareMatrix matrix;
    matrix.size = 2;
    matrix.at(0, 0) = 0.0;
    matrix.at(0, 1) = 2.0;
    matrix.at(1, 0) = 3.0;
    matrix.at(1, 1) = 4.0;
    Elimination elimination;
    ASSERT_TRUE(elimination.factor(matrix));
    UnknownArray right{12.0, 39.0};
    elimination.solve(right);
    EXPECT_NEAR(right[0], 5.0, 1e-14);
    EXPECT_NEAR(right[1], 6.0, 1e-14);
}

TEST(Elimination, FindsASingularMatrix)
{
    SquareMatrix matrix;
    matrix.size = 2;
    matrix.at(0, 0) = 1.0;
    matrix.at(0, 1) = 2.0;
    matrix.at(1, 0) = 2.0;
    matrix.at(1, 1) = 4.0;
    Elimination elimination;
    EXPECT_FALSE(elimination.factor(matrix));
}

TEST(RootSearch, GoesToTheZeroByNewtonsMethod)
{
    Curve curve{[](double x) { return x * x * x - 8.0; }, [](double x) { return 3.0 * x * x; }};
    RootSearch search(curve, 0.0, 100.0);
    EXPECT_EQ(search.from(5.0, 1.0), SearchStatus::found);
    EXPECT_NEAR(curve.last, 2.0, 1e-12);
    EXPECT_LT(curve.asked, 15);
}

// The slope is that of another function: the bracket must do.
TEST(RootSearch, FindsTheZeroWithSlopesThatMislead)
{
    Curve curve{[](double x) { return std::atan(x - 1.0 / 3.0); }, [](double) { return 50.0; }};
    RootSearch search(curve, -2.0, 2.0);
    EXPECT_EQ(search.scan(7), SearchStatus::found);
    EXPECT_NEAR(curve.last, 1.0 / 3.0, 1e-12);
}

TEST(RootSearch, StopsAtTheEndOfTheRange)
{
    Curve curve{[](double x) { return x + 5.0; }, [](double) { return 1.0; }};
    RootSearch search(curve, 0.0, 10.0);
    EXPECT_EQ(search.from(3.0, 1.0), SearchStatus::notReached);
    EXPECT_TRUE(search.endedFarOff());
    EXPECT_EQ(search.scan(10), SearchStatus::notReached);
    EXPECT_TRUE(search.isHopeless());
}

// Both zeros, 4.0 and 4.2, lie between two neighbors of the scan.
TEST(RootSearch, FindsTwoZerosBetweenTwoProbes)
{
    Curve curve{[](double x) { return (x - 4.0) * (x - 4.2); }, [](double x) { return 2.0 * x - 8.2; }};
    RootSearch search(curve, 0.0, 9.0);
    EXPECT_EQ(search.scan(3), SearchStatus::found);
    EXPECT_NEAR(curve.last, 4.0, 1e-10);
}

// The same without slopes, as states have none on a jump.
TEST(RootSearch, FindsTwoZerosBetweenProbesWithoutSlopes)
{
    Curve curve{[](double x) { return (x - 4.0) * (x - 4.2); }, [](double) { return std::nan(""); }};
    RootSearch search(curve, 0.0, 9.0);
    EXPECT_EQ(search.scan(9), SearchStatus::found);
    EXPECT_NEAR(std::fabs(curve.last - 4.1), 0.1, 1e-10);
}

TEST(RootSearch, TellsAJumpFromAZero)
{
    Curve curve{[](double x) { return x < 1.3 ? -1.0 : 1.0; }, [](double) { return 0.0; }};
    RootSearch search(curve, 0.0, 5.0);
    EXPECT_EQ(search.scan(5), SearchStatus::jumps);
}

// There are values from 2.95 on only, and the zero is at 3.
TEST(RootSearch, LooksUpToTheEdgeOfAGap)
{
    Curve curve{[](double x) { return x < 2.95 ? std::nan("") : x - 3.0; }, [](double) { return 1.0; }};
    RootSearch search(curve, 0.0, 8.0);
    EXPECT_EQ(search.scan(4), SearchStatus::found);
    EXPECT_NEAR(curve.last, 3.0, 1e-12);
}

TEST(RootSearch, SeesThatThereAreNoValues)
{
    Curve curve{[](double) { return std::nan(""); }, [](double) { return 1.0; }};
    RootSearch search(curve, 0.0, 8.0);
    EXPECT_EQ(search.scan(4), SearchStatus::notReached);
    EXPECT_FALSE(search.sawValue());
    EXPECT_TRUE(search.isHopeless());
}
