#include "cape/missing_value.h"

#include <bit>
#include <cstdint>
#include <limits>

#include <gtest/gtest.h>

namespace {

double doubleOfBits(std::uint64_t bits) { return std::bit_cast<double>(bits); }

TEST(IsMissing, IsTrueForEveryNaN)
{
    EXPECT_TRUE(IsMissing(QuietNaN));
    EXPECT_TRUE(IsMissing(doubleOfBits(0xFFF8000000000000)));
    EXPECT_TRUE(IsMissing(doubleOfBits(0x7FF0000000000001)));
    EXPECT_TRUE(IsMissing(doubleOfBits(0x7FFFFFFFFFFFFFFF)));
}

TEST(IsMissing, IsTrueForExactlyMinusTheLargestDouble)
{
    EXPECT_TRUE(IsMissing(-1.7976931348623157e308));
    EXPECT_TRUE(IsMissing(doubleOfBits(0xFFEFFFFFFFFFFFFF)));
}

TEST(IsMissing, IsFalseForTheNeighboursOfMinusTheLargestDouble)
{
    EXPECT_FALSE(IsMissing(doubleOfBits(0xFFEFFFFFFFFFFFFE)));
    EXPECT_FALSE(IsMissing(-std::numeric_limits<double>::infinity()));
}

TEST(IsMissing, IsFalseForOrdinaryValues)
{
    for (const double value : {0.0, -0.0, 1.0, -32767.0, 1.7976931348623157e308, 4.9406564584124654e-324,
                               std::numeric_limits<double>::infinity()})
        EXPECT_FALSE(IsMissing(value));
}

TEST(QuietNaN, HasTheBitsOfMatlabsOwn)
{
    EXPECT_EQ(std::uint64_t{0x7FF8000000000000}, std::bit_cast<std::uint64_t>(QuietNaN));
}

} // namespace
