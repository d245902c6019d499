#include "properties/chain_rule.h"

#include "cape/missing_value.h"
#include "tests/unit/support/sentinels.h"

#include <cmath>
#include <vector>

#include <gtest/gtest.h>

namespace {

const LPCWSTR missingWeight = OLESTR("missing molecular weight for one or more compounds in basis conversion");

class ConvertCompoundValuesTest : public testing::Test {
protected:
    bool convert(const std::vector<double> &molecularWeights, std::int32_t power, std::vector<double> &values,
                 std::int32_t stride = 1)
    {
        return ConvertCompoundValues(molecularWeights, power, values.data(), message, stride);
    }

    WideString message;
};

// 2 mol/m3 of 0.018 kg/mol and 3 mol/m3 of 0.040 kg/mol.
TEST_F(ConvertCompoundValuesTest, MultipliesEachValueByItsOwnMolarMass)
{
    std::vector<double> values = {2, 3};
    ASSERT_TRUE(convert({18, 40}, 1, values));
    EXPECT_DOUBLE_EQ(0.036, values[0]);
    EXPECT_DOUBLE_EQ(0.12, values[1]);
    EXPECT_TRUE(message.empty());
}

// 1800 J/mol in 0.018 kg/mol and 3 J/mol in 0.040 kg/mol.
TEST_F(ConvertCompoundValuesTest, DividesEachValueByItsOwnMolarMass)
{
    std::vector<double> values = {1800, 3};
    ASSERT_TRUE(convert({18, 40}, -1, values));
    EXPECT_DOUBLE_EQ(100000, values[0]);
    EXPECT_DOUBLE_EQ(75, values[1]);
}

TEST_F(ConvertCompoundValuesTest, StepsByTheStride)
{
    std::vector<double> values = {1000, 5, 5, 1000, 5, 5};
    ASSERT_TRUE(convert({18, 40}, 1, values, 3));
    EXPECT_DOUBLE_EQ(18, values[0]);
    EXPECT_DOUBLE_EQ(40, values[3]);
    for (const int k : {1, 2, 4, 5})
        EXPECT_EQ(5, values[k]);
}

TEST_F(ConvertCompoundValuesTest, LeavesMissingValuesAloneAndConvertsTheOthers)
{
    std::vector<double> values = {QuietNaN, 1000, undefinedValue, 1000};
    ASSERT_TRUE(convert({10, 20, 30, 40}, 1, values));
    EXPECT_TRUE(std::isnan(values[0]));
    EXPECT_DOUBLE_EQ(20, values[1]);
    EXPECT_EQ(undefinedValue, values[2]);
    EXPECT_DOUBLE_EQ(40, values[3]);
}

TEST_F(ConvertCompoundValuesTest, NeedsNoWeightForAMissingValue)
{
    std::vector<double> values = {QuietNaN, undefinedValue, 1000};
    ASSERT_TRUE(convert({QuietNaN, undefinedValue, 40}, 1, values));
    EXPECT_DOUBLE_EQ(40, values[2]);
}

TEST_F(ConvertCompoundValuesTest, StopsAtAMissingWeightWithTheValuesBeforeItConverted)
{
    for (const double missing : {QuietNaN, undefinedValue}) {
        std::vector<double> values = {1000, 1000, 1000};
        EXPECT_FALSE(convert({10, missing, 40}, 1, values));
        EXPECT_EQ(missingWeight, message);
        EXPECT_DOUBLE_EQ(10, values[0]);
        EXPECT_EQ(1000, values[1]);
        EXPECT_EQ(1000, values[2]);
    }
}

TEST_F(ConvertCompoundValuesTest, RefusesAnyOtherPowerAtTheFirstValueThatIsNotMissing)
{
    for (const std::int32_t power : {0, 2, -2}) {
        std::vector<double> values = {QuietNaN, 1000};
        EXPECT_FALSE(convert({10, 20}, power, values));
        EXPECT_EQ(OLESTR("invalid conversion order in basis conversion"), message);
        EXPECT_EQ(1000, values[1]);
    }
}

TEST_F(ConvertCompoundValuesTest, LooksAtTheWeightBeforeThePower)
{
    std::vector<double> values = {1000};
    EXPECT_FALSE(convert({QuietNaN}, 0, values));
    EXPECT_EQ(missingWeight, message);
}

TEST_F(ConvertCompoundValuesTest, SucceedsWithAnyPowerWhenAllValuesAreMissing)
{
    std::vector<double> values = {QuietNaN, undefinedValue};
    EXPECT_TRUE(convert({10, 20}, 0, values));
    EXPECT_TRUE(message.empty());
}

} // namespace
