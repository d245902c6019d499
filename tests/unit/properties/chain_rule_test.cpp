#include "properties/chain_rule.h"

#include "cape/missing_value.h"
#include "tests/unit/support/allocation_watch.h"
#include "tests/unit/support/sentinels.h"

#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace {

// The compounds of a mixture, and room to convert in.
struct Compounds {
    explicit Compounds(std::vector<double> molecularWeights)
        : weights(std::move(molecularWeights)), scratch(weights.size() * weights.size())
    {
    }
    MixtureComposition with(const double *fractions, std::int32_t basis)
    {
        return {weights, fractions, basis, scratch.data()};
    }

    std::vector<double> weights; // g/mol
    std::vector<double> scratch;
};

// Half each of 10 and 40 g/mol: M = 0.025 kg/mol. The same mixture has the mass fractions
// 0.2 and 0.8.
class ChainRule : public testing::Test {
protected:
    ChainRule() : test({10, 40}) {}

    bool convert(std::vector<double> &values, std::int32_t power, double baseValue = 0)
    {
        return ChainRuleConvert(test.with(moleFractions, 0), values.data(), values.data(),
                                static_cast<std::uint32_t>(values.size()), power, message, 1, baseValue);
    }

    Compounds test;
    const double moleFractions[2] = {0.5, 0.5};
    const double massFractions[2] = {0.2, 0.8};
    WideString message;
};

TEST(ConversionPower, IsZeroWhenTheBasesAgreeOrThePropertyHasNone)
{
    for (const std::int32_t basisPower : {-1, 0, 1}) {
        EXPECT_EQ(0, ConversionPower(basisPower, false, false));
        EXPECT_EQ(0, ConversionPower(basisPower, true, true));
    }
    EXPECT_EQ(0, ConversionPower(0, false, true));
    EXPECT_EQ(0, ConversionPower(0, true, false));
}

TEST(ConversionPower, IsThePropertysOwnTowardsMassAndItsNegativeTowardsMole)
{
    EXPECT_EQ(1, ConversionPower(1, false, true));
    EXPECT_EQ(-1, ConversionPower(-1, false, true));
    EXPECT_EQ(-1, ConversionPower(1, true, false));
    EXPECT_EQ(1, ConversionPower(-1, true, false));
}

// In the order that the operations are told in: the same numbers everywhere.
TEST(ChainRuleConvert, IsTheSameToTheBit)
{
    const double weights[] = {16.04, 30.07, 44.1};
    Compounds test({weights[0], weights[1], weights[2]});
    const double composition[] = {0.1, 0.7, 0.3};
    const double source[] = {1.1, -2.3, 1e-7};
    const double base = 0.37;
    double sum = 0;
    for (int i = 0; i < 3; ++i)
        sum += weights[i] * composition[i];
    const double mass = sum * 0.001;
    WideString message;
    double target[3];
    ASSERT_TRUE(ChainRuleConvert(test.with(composition, 0), source, target, 3, 1, message, 1, base));
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(target[i], mass * source[i] + weights[i] * base * 0.001);
    ASSERT_TRUE(ChainRuleConvert(test.with(composition, 0), source, target, 3, -1, message, 1, base));
    const double factor = 1 / mass;
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(target[i], factor * source[i] - weights[i] * base * 0.001 * factor * factor);
}

// 1000 mol/m3 of 0.018 kg/mol each.
TEST(ChainRuleConvert, TurnsAPureDensityToKilograms)
{
    Compounds test({18});
    const double composition[] = {1};
    const double source = 1000;
    double target = untouched;
    WideString message;
    ASSERT_TRUE(ChainRuleConvert(test.with(composition, 0), &source, &target, 1, 1, message, 1, 0));
    EXPECT_DOUBLE_EQ(18, target);
    EXPECT_EQ(1000, source);
    EXPECT_TRUE(message.empty());
}

// 1800 J/mol in 0.018 kg/mol.
TEST(ChainRuleConvert, TurnsAPureEnthalpyToKilograms)
{
    Compounds test({18});
    const double composition[] = {1};
    double value = 1800;
    WideString message;
    ASSERT_TRUE(ChainRuleConvert(test.with(composition, 0), &value, &value, 1, -1, message, 1, 0));
    EXPECT_DOUBLE_EQ(100000, value);
}

TEST_F(ChainRule, TurnsAMixturesValueWithTheMeanMolarMass)
{
    std::vector<double> values = {1000};
    ASSERT_TRUE(convert(values, 1));
    EXPECT_DOUBLE_EQ(25, values[0]);
    values = {1000};
    ASSERT_TRUE(convert(values, -1));
    EXPECT_DOUBLE_EQ(40000, values[0]);
}

TEST_F(ChainRule, ComesBackWithTheOppositePower)
{
    for (const std::int32_t power : {-1, 1}) {
        std::vector<double> values = {-241826.0};
        ASSERT_TRUE(convert(values, power));
        ASSERT_TRUE(convert(values, -power));
        EXPECT_DOUBLE_EQ(-241826.0, values[0]);
    }
}

TEST_F(ChainRule, FormsTheMoleFractionsOfAMassComposition)
{
    double value = 1000;
    ASSERT_TRUE(ChainRuleConvert(test.with(massFractions, 1), &value, &value, 1, 1, message, 1, 0));
    EXPECT_DOUBLE_EQ(25, value);
    EXPECT_EQ(0.2, massFractions[0]);
}

// As whoever reads a stored value does it: the mole fractions in the scratch area are used up by then.
TEST_F(ChainRule, MayWriteToTheScratchAreaAlsoWithAMassComposition)
{
    const double source[] = {1000, 2000, 3000, 4000};
    double *const scratch = test.scratch.data();
    ASSERT_TRUE(ChainRuleConvert(test.with(massFractions, 1), source, scratch, 4, 1, message, 1, 0));
    for (int k = 0; k < 4; ++k)
        EXPECT_DOUBLE_EQ(25.0 * (k + 1), scratch[k]);
}

// 10 * 1 + 40 * 1 = 50 g.
TEST_F(ChainRule, TakesMoleFractionsAsTheyAre)
{
    const double unnormalized[] = {1, 1};
    double value = 1000;
    ASSERT_TRUE(ChainRuleConvert(test.with(unnormalized, 0), &value, &value, 1, 1, message, 1, 0));
    EXPECT_DOUBLE_EQ(50, value);
}

TEST_F(ChainRule, OnlyScalesAVectorWithoutBaseValueWhateverItsCount)
{
    for (const std::size_t count : {1, 2, 3, 5}) {
        std::vector<double> values(count, 200);
        ASSERT_TRUE(convert(values, 1));
        EXPECT_EQ(count, values.size());
        for (const double value : values)
            EXPECT_DOUBLE_EQ(5, value);
    }
}

TEST_F(ChainRule, TakesMinusZeroAsNoBaseValue)
{
    std::vector<double> values = {200, 200, 200};
    ASSERT_TRUE(convert(values, 1, -0.0));
    EXPECT_DOUBLE_EQ(5, values[2]);
}

// P = 200 mol/m3, dP/dx = (100, -50):
//   0.025 * 100 + 200 * 0.010 = 2.5 + 2 = 4.5;  0.025 * -50 + 200 * 0.040 = -1.25 + 8 = 6.75.
TEST_F(ChainRule, AddsTheSecondTermOfAMultipliedProperty)
{
    std::vector<double> values = {100, -50};
    ASSERT_TRUE(convert(values, 1, 200));
    EXPECT_DOUBLE_EQ(4.5, values[0]);
    EXPECT_DOUBLE_EQ(6.75, values[1]);
}

// P = 100 J/mol, dP/dx = (50, -25), M^2 = 0.000625:
//   50 / 0.025 - 100 * 0.010 / 0.000625 = 2000 - 1600 = 400;
//   -25 / 0.025 - 100 * 0.040 / 0.000625 = -1000 - 6400 = -7400.
TEST_F(ChainRule, SubtractsTheSecondTermOfADividedProperty)
{
    std::vector<double> values = {50, -25};
    ASSERT_TRUE(convert(values, -1, 100));
    EXPECT_NEAR(400, values[0], 1e-10);
    EXPECT_NEAR(-7400, values[1], 1e-10);
}

// The derivative of P(x) / M(x) by central differences, with P of the test above.
TEST_F(ChainRule, AgreesWithANumericalDerivative)
{
    const auto perMass = [](double x1, double x2) {
        return (100 + 50 * (x1 - 0.5) - 25 * (x2 - 0.5)) / (0.010 * x1 + 0.040 * x2);
    };
    const double h = 1e-5;
    const double first = (perMass(0.5 + h, 0.5) - perMass(0.5 - h, 0.5)) / (2 * h);
    const double second = (perMass(0.5, 0.5 + h) - perMass(0.5, 0.5 - h)) / (2 * h);
    std::vector<double> values = {50, -25};
    ASSERT_TRUE(convert(values, -1, 100));
    EXPECT_NEAR(first, values[0], 1e-4);
    EXPECT_NEAR(second, values[1], 1e-4);
}

// From mass to mole basis with the base value per mass: P = 4000 J/kg and its derivatives above.
//   0.025 * 400 + 4000 * 0.010 = 50;  0.025 * -7400 + 4000 * 0.040 = -25.
TEST_F(ChainRule, ComesBackFromTheMassBasisWithTheBaseValuePerMass)
{
    std::vector<double> values = {400, -7400};
    ASSERT_TRUE(convert(values, 1, 4000));
    EXPECT_NEAR(50, values[0], 1e-12);
    EXPECT_NEAR(-25, values[1], 1e-12);
}

TEST_F(ChainRule, RefusesAnotherCountThanThatOfTheCompoundsAfterScaling)
{
    for (const std::size_t count : {1, 3}) {
        std::vector<double> values(count, 200);
        EXPECT_FALSE(convert(values, 1, 7));
        EXPECT_EQ(OLESTR("Unexpected number of property values in chain rule mass/mole conversion of mole fraction "
                         "derivatives"),
                  message);
        for (const double value : values)
            EXPECT_DOUBLE_EQ(5, value);
    }
}

TEST_F(ChainRule, TouchesOnlyEveryThirdElementWithAStrideOfThree)
{
    double values[] = {100, untouched, untouched, -50, untouched, untouched};
    ASSERT_TRUE(ChainRuleConvert(test.with(moleFractions, 0), values, values, 2, 1, message, 3, 200));
    EXPECT_DOUBLE_EQ(4.5, values[0]);
    EXPECT_DOUBLE_EQ(6.75, values[3]);
    for (const int k : {1, 2, 4, 5})
        EXPECT_EQ(untouched, values[k]);
}

TEST_F(ChainRule, WritesNothingForNoValues)
{
    double value = untouched;
    ASSERT_TRUE(ChainRuleConvert(test.with(moleFractions, 0), &value, &value, 0, 1, message, 1, 0));
    EXPECT_EQ(untouched, value);
}

TEST_F(ChainRule, WritesNothingWhenACompositionEntryIsMissing)
{
    for (const double missing : {QuietNaN, undefinedValue})
        for (const std::int32_t basis : {0, 1}) {
            const double composition[] = {0.5, missing};
            const double source = 1000;
            double target = untouched;
            message.clear();
            EXPECT_FALSE(ChainRuleConvert(test.with(composition, basis), &source, &target, 1, 1, message, 1, 0));
            EXPECT_EQ(OLESTR("One or more missing composition values in basis conversion"), message);
            EXPECT_EQ(untouched, target);
        }
}

TEST(ChainRuleConvert, WritesNothingWhenAMolecularWeightIsMissing)
{
    for (const double missing : {QuietNaN, undefinedValue})
        for (const std::int32_t basis : {0, 1}) {
            Compounds test({10, missing});
            const double composition[] = {1, 0};
            const double source = 1000;
            double target = untouched;
            WideString message;
            EXPECT_FALSE(ChainRuleConvert(test.with(composition, basis), &source, &target, 1, 1, message, 1, 0));
            EXPECT_EQ(OLESTR("One or more missing molecular weights in basis conversion"), message);
            EXPECT_EQ(untouched, target);
        }
}

TEST(ChainRuleConvert, LooksAtTheCompositionBeforeTheWeights)
{
    Compounds test({10, QuietNaN});
    const double composition[] = {QuietNaN, 1};
    double value = 1000;
    WideString message;
    EXPECT_FALSE(ChainRuleConvert(test.with(composition, 0), &value, &value, 1, 1, message, 1, 0));
    EXPECT_EQ(OLESTR("One or more missing composition values in basis conversion"), message);
}

TEST_F(ChainRule, GivesTheFailureOfTheCompositionsConversionAsItIs)
{
    const double zeros[] = {0, 0};
    double value = 1000;
    EXPECT_FALSE(ChainRuleConvert(test.with(zeros, 1), &value, &value, 1, 1, message, 1, 0));
    EXPECT_EQ(OLESTR("Zero or negative total composition in basis conversion"), message);
    EXPECT_EQ(1000, value);
}

TEST_F(ChainRule, KeepsMissingValuesMissing)
{
    std::vector<double> values = {QuietNaN, 200};
    ASSERT_TRUE(convert(values, 1));
    EXPECT_TRUE(IsMissing(values[0]));
    EXPECT_DOUBLE_EQ(5, values[1]);
}

TEST_F(ChainRule, AllocatesNothing)
{
    double values[] = {100, -50};
    const AllocationWatch watch;
    bool converted = true;
    for (const std::int32_t power : {1, -1})
        for (const double baseValue : {0.0, 200.0})
            converted =
                ChainRuleConvert(test.with(massFractions, 1), values, values, 2, power, message, 1, baseValue) &&
                converted;
    const std::size_t allocations = watch.count();
    EXPECT_TRUE(converted);
    EXPECT_EQ(0u, allocations);
}

} // namespace
