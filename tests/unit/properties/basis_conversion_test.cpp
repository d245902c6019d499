#include "properties/basis_conversion.h"

#include "cape/missing_value.h"
#include "tests/unit/support/sentinels.h"
#include "tests/unit/support/test_material.h"

#include <vector>

#include <gtest/gtest.h>

namespace {

const LPCWSTR missingWeights = OLESTR("One or more missing molecular weights in basis conversion");
const LPCWSTR zeroComposition = OLESTR("Zero or negative total composition in basis conversion");
const LPCWSTR inconsistent = OLESTR("Phase fractions are in inconsistent bases in basis conversion");
const LPCWSTR missingFractions = OLESTR("One or more missing phase fractions in basis conversion");
const LPCWSTR missingCompositions = OLESTR("One or more missing compositions in basis conversion");
const LPCWSTR zeroTotal = OLESTR("Zero or negative total total phase fraction in basis conversion");

using FractionConversion = bool (*)(MolecularWeights, const double *, double *, WideString &);
using PhaseConversion = bool (*)(const PhaseAmounts &, std::int32_t, double, double &, WideString &);

const FractionConversion bothFractionConversions[] = {MassToMoleFractions, MoleToMassFractions};

// A conversion of phase fractions and the basis it starts from.
struct PhaseCase {
    PhaseConversion convert;
    std::int32_t basis;
};
const PhaseCase bothPhaseConversions[] = {{MassToMolePhaseFraction, 1}, {MoleToMassPhaseFraction, 0}};

// The message of a conversion that must fail and leave the result alone.
WideString phaseRefusal(PhaseConversion convert, TestMaterial &test, std::int32_t phase = 0)
{
    WideString message;
    double result = untouched;
    EXPECT_FALSE(convert(test.material().phaseAmounts(), phase, 0.5, result, message));
    EXPECT_EQ(untouched, result);
    return message;
}

WideString fractionRefusal(FractionConversion convert, TestMaterial &test, std::vector<double> source)
{
    WideString message;
    EXPECT_FALSE(convert(test.package().molecularWeights, source.data(), source.data(), message));
    return message;
}

// Compounds of 10 and 40 g/mol. The vapor of half each has a mean of 25 g/mol, the liquid of the
// first compound alone 10 g/mol.
class TwoPhases : public testing::Test {
protected:
    TwoPhases() : test({10, 40})
    {
        test.setPhaseComposition(0, {0.5, 0.5}, 0);
        test.setPhaseComposition(1, {1, 0}, 0);
    }
    void setFractions(double vapor, double liquid, std::int32_t basis)
    {
        test.setPhaseFraction(0, vapor, basis);
        test.setPhaseFraction(1, liquid, basis);
    }

    TestMaterial test;
    WideString message;
    double result = untouched;
};

// 0.5 / 18 to 0.5 / 36 is 2 to 1.
TEST(MassToMoleFractions, DividesByTheMolecularWeights)
{
    TestMaterial test({18, 36});
    const double source[] = {0.5, 0.5};
    double target[2];
    WideString message;
    ASSERT_TRUE(MassToMoleFractions(test.package().molecularWeights, source, target, message));
    EXPECT_DOUBLE_EQ(2.0 / 3, target[0]);
    EXPECT_DOUBLE_EQ(1.0 / 3, target[1]);
    EXPECT_TRUE(message.empty());
}

// 0.5 * 18 to 0.5 * 36 is 1 to 2.
TEST(MoleToMassFractions, MultipliesByTheMolecularWeights)
{
    TestMaterial test({18, 36});
    const double source[] = {0.5, 0.5};
    double target[2];
    WideString message;
    ASSERT_TRUE(MoleToMassFractions(test.package().molecularWeights, source, target, message));
    EXPECT_DOUBLE_EQ(1.0 / 3, target[0]);
    EXPECT_DOUBLE_EQ(2.0 / 3, target[1]);
}

TEST(FractionConversions, NormalizeInPassing)
{
    TestMaterial test({18, 36});
    const double source[] = {7, 7};
    double target[2];
    WideString message;
    ASSERT_TRUE(MassToMoleFractions(test.package().molecularWeights, source, target, message));
    EXPECT_DOUBLE_EQ(2.0 / 3, target[0]);
    EXPECT_DOUBLE_EQ(1.0 / 3, target[1]);
    ASSERT_TRUE(MoleToMassFractions(test.package().molecularWeights, source, target, message));
    EXPECT_DOUBLE_EQ(1.0 / 3, target[0]);
    EXPECT_DOUBLE_EQ(2.0 / 3, target[1]);
}

TEST(FractionConversions, WorkInPlaceAndBackAgain)
{
    TestMaterial test({16.04, 44.1, 72.15});
    double fractions[] = {0.2, 0.5, 0.3};
    WideString message;
    ASSERT_TRUE(MassToMoleFractions(test.package().molecularWeights, fractions, fractions, message));
    EXPECT_GT(fractions[0], 0.2);
    ASSERT_TRUE(MoleToMassFractions(test.package().molecularWeights, fractions, fractions, message));
    EXPECT_NEAR(0.2, fractions[0], 1e-15);
    EXPECT_NEAR(0.5, fractions[1], 1e-15);
    EXPECT_NEAR(0.3, fractions[2], 1e-15);
}

TEST(FractionConversions, RefuseACompositionOfAllZeros)
{
    TestMaterial test({18, 36});
    for (const FractionConversion convert : bothFractionConversions)
        EXPECT_EQ(zeroComposition, fractionRefusal(convert, test, {0, 0}));
}

TEST(FractionConversions, RefuseANegativeTotal)
{
    TestMaterial test({18, 36});
    for (const FractionConversion convert : bothFractionConversions)
        EXPECT_EQ(zeroComposition, fractionRefusal(convert, test, {-0.5, -0.5}));
}

TEST(FractionConversions, RefuseAMissingFractionAsATotalThatIsNotAboveZero)
{
    TestMaterial test({18, 36});
    for (const FractionConversion convert : bothFractionConversions) {
        EXPECT_EQ(zeroComposition, fractionRefusal(convert, test, {0.5, QuietNaN}));
        EXPECT_EQ(zeroComposition, fractionRefusal(convert, test, {0.5, undefinedValue}));
    }
}

TEST(FractionConversions, RefuseAMaterialWithoutCompounds)
{
    TestMaterial test({});
    for (const FractionConversion convert : bothFractionConversions)
        EXPECT_EQ(zeroComposition, fractionRefusal(convert, test, {}));
}

TEST(FractionConversions, StopAtTheFirstMissingWeightWithTheEntriesBeforeItWritten)
{
    for (const double missing : {QuietNaN, undefinedValue}) {
        TestMaterial test({20, missing, 40});
        const double source[] = {0.5, 0.25, 0.25};
        double target[] = {untouched, untouched, untouched};
        WideString message;
        EXPECT_FALSE(MassToMoleFractions(test.package().molecularWeights, source, target, message));
        EXPECT_EQ(missingWeights, message);
        EXPECT_EQ(0.025, target[0]); // 0.5 / 20
        EXPECT_EQ(untouched, target[1]);
        EXPECT_EQ(untouched, target[2]);
        EXPECT_FALSE(MoleToMassFractions(test.package().molecularWeights, source, target, message));
        EXPECT_EQ(missingWeights, message);
        EXPECT_EQ(10, target[0]); // 0.5 * 20
        EXPECT_EQ(untouched, target[1]);
        EXPECT_EQ(untouched, target[2]);
    }
}

TEST(MeanMolecularWeight, IsTheSumOverTheCompounds)
{
    TestMaterial test({10, 40});
    const double moleFractions[] = {0.5, 0.5};
    EXPECT_DOUBLE_EQ(25, MeanMolecularWeight(test.package().molecularWeights, moleFractions));
}

// 0.5 / 25 = 0.02 and 0.5 / 10 = 0.05 of 0.07 mol in all.
TEST_F(TwoPhases, AreConvertedFromMassToMole)
{
    setFractions(0.5, 0.5, 1);
    ASSERT_TRUE(MassToMolePhaseFraction(test.material().phaseAmounts(), 0, 0.5, result, message));
    EXPECT_DOUBLE_EQ(2.0 / 7, result);
    ASSERT_TRUE(MassToMolePhaseFraction(test.material().phaseAmounts(), 1, 0.5, result, message));
    EXPECT_DOUBLE_EQ(5.0 / 7, result);
    EXPECT_TRUE(message.empty());
}

// 0.4 * 25 = 10 and 0.6 * 10 = 6 of 16 g in all.
TEST_F(TwoPhases, AreConvertedFromMoleToMass)
{
    setFractions(0.4, 0.6, 0);
    ASSERT_TRUE(MoleToMassPhaseFraction(test.material().phaseAmounts(), 0, 0.4, result, message));
    EXPECT_DOUBLE_EQ(0.625, result);
    ASSERT_TRUE(MoleToMassPhaseFraction(test.material().phaseAmounts(), 1, 0.6, result, message));
    EXPECT_DOUBLE_EQ(0.375, result);
    EXPECT_TRUE(message.empty());
}

// Mass fractions 0.2 and 0.8 of 10 and 40 g/mol are the mole fractions 0.5 and 0.5.
TEST_F(TwoPhases, MayHaveTheirCompositionsOnAMassBasis)
{
    test.setPhaseComposition(0, {0.2, 0.8}, 1);
    setFractions(0.5, 0.5, 1);
    ASSERT_TRUE(MassToMolePhaseFraction(test.material().phaseAmounts(), 0, 0.5, result, message));
    EXPECT_DOUBLE_EQ(2.0 / 7, result);
    setFractions(0.4, 0.6, 0);
    ASSERT_TRUE(MoleToMassPhaseFraction(test.material().phaseAmounts(), 0, 0.4, result, message));
    EXPECT_DOUBLE_EQ(0.625, result);
    EXPECT_EQ(0.2, test->phaseComposition[0][0]);
    EXPECT_EQ(0.8, test->phaseComposition[0][1]);
}

TEST_F(TwoPhases, ConvertTheValueAtHandAndNotTheStoredOne)
{
    setFractions(0.5, 0.5, 1);
    ASSERT_TRUE(MassToMolePhaseFraction(test.material().phaseAmounts(), 0, 1, result, message));
    EXPECT_DOUBLE_EQ(4.0 / 7, result);
    setFractions(0.4, 0.6, 0);
    ASSERT_TRUE(MoleToMassPhaseFraction(test.material().phaseAmounts(), 1, 1.2, result, message));
    EXPECT_DOUBLE_EQ(0.75, result);
}

TEST_F(TwoPhases, MustHaveTheirFractionsInOneBasis)
{
    test.setPhaseFraction(0, 0.5, 0);
    test.setPhaseFraction(1, 0.5, 1);
    for (const PhaseCase &phaseCase : bothPhaseConversions) {
        EXPECT_EQ(inconsistent, phaseRefusal(phaseCase.convert, test, 0));
        EXPECT_EQ(inconsistent, phaseRefusal(phaseCase.convert, test, 1));
    }
}

TEST_F(TwoPhases, AreRefusedWhenBothStandInTheOtherBasis)
{
    for (const PhaseCase &phaseCase : bothPhaseConversions) {
        setFractions(0.5, 0.5, 1 - phaseCase.basis);
        EXPECT_EQ(inconsistent, phaseRefusal(phaseCase.convert, test));
    }
}

TEST_F(TwoPhases, MustBothHaveAFraction)
{
    for (const double missing : {QuietNaN, undefinedValue})
        for (const PhaseCase &phaseCase : bothPhaseConversions) {
            setFractions(0.5, missing, phaseCase.basis);
            EXPECT_EQ(missingFractions, phaseRefusal(phaseCase.convert, test));
        }
}

TEST_F(TwoPhases, MustBothHaveAComposition)
{
    for (const double missing : {QuietNaN, undefinedValue})
        for (const std::int32_t compositionBasis : {0, 1})
            for (const PhaseCase &phaseCase : bothPhaseConversions) {
                setFractions(0.5, 0.5, phaseCase.basis);
                test.setPhaseComposition(1, {1, missing}, compositionBasis);
                EXPECT_EQ(missingCompositions, phaseRefusal(phaseCase.convert, test));
            }
}

TEST_F(TwoPhases, AreNotDisturbedByAnAbsentPhaseWithoutFractionAndComposition)
{
    setFractions(1, QuietNaN, 1);
    test.setPhaseComposition(1, {QuietNaN, QuietNaN}, 0);
    test->phasePresent[1] = 0;
    ASSERT_TRUE(MassToMolePhaseFraction(test.material().phaseAmounts(), 0, 1, result, message));
    EXPECT_EQ(1, result);
    setFractions(1, QuietNaN, 0);
    test->phasePresent[1] = 0;
    ASSERT_TRUE(MoleToMassPhaseFraction(test.material().phaseAmounts(), 0, 1, result, message));
    EXPECT_EQ(1, result);
}

TEST(PhaseFractionConversions, GiveOneForTheOnlyPhase)
{
    for (const PhaseCase &phaseCase : bothPhaseConversions) {
        TestMaterial test({18.015, 32.042}, {OLESTR("Liquid")});
        test.setPhaseComposition(0, {0.3, 0.7}, 0);
        test.setPhaseFraction(0, 1, phaseCase.basis);
        WideString message;
        double result = untouched;
        ASSERT_TRUE(phaseCase.convert(test.material().phaseAmounts(), 0, 1, result, message));
        EXPECT_EQ(1, result);
    }
}

TEST(PhaseFractionConversions, LookAtAllWeightsBeforeAnyPhase)
{
    for (const double missing : {QuietNaN, undefinedValue})
        for (const PhaseCase &phaseCase : bothPhaseConversions) {
            TestMaterial test({18, missing});
            test->phasePresent[0] = 1; // its fraction and composition are missing too
            EXPECT_EQ(missingWeights, phaseRefusal(phaseCase.convert, test));
        }
}

TEST_F(TwoPhases, AreCheckedInTheOrderFractionBasisComposition)
{
    for (const PhaseCase &phaseCase : bothPhaseConversions) {
        test.setPhaseComposition(0, {QuietNaN, 0.5}, 0);
        setFractions(QuietNaN, 0.5, 1 - phaseCase.basis);
        EXPECT_EQ(missingFractions, phaseRefusal(phaseCase.convert, test));
        setFractions(0.5, 0.5, 1 - phaseCase.basis);
        EXPECT_EQ(inconsistent, phaseRefusal(phaseCase.convert, test));
        setFractions(0.5, 0.5, phaseCase.basis);
        EXPECT_EQ(missingCompositions, phaseRefusal(phaseCase.convert, test));
    }
}

TEST_F(TwoPhases, GiveTheFailureOfACompositionsConversionAsItIs)
{
    for (const PhaseCase &phaseCase : bothPhaseConversions) {
        setFractions(0.5, 0.5, phaseCase.basis);
        test.setPhaseComposition(0, {0, 0}, 1);
        EXPECT_EQ(zeroComposition, phaseRefusal(phaseCase.convert, test));
    }
}

TEST_F(TwoPhases, MustHaveAMassToBeConvertedToMole)
{
    for (const std::vector<double> &composition : {std::vector<double>{0, 0}, {-1, 0}}) {
        setFractions(0.5, 0.5, 1);
        test.setPhaseComposition(1, composition, 0);
        EXPECT_EQ(OLESTR("Zero or negative phase mass of one or more phases in basis conversion"),
                  phaseRefusal(MassToMolePhaseFraction, test));
    }
}

// The vapor brings 0.5 * 25 g, the liquid none.
TEST_F(TwoPhases, NeedNoMassToBeConvertedToMass)
{
    setFractions(0.5, 0.5, 0);
    test.setPhaseComposition(1, {0, 0}, 0);
    ASSERT_TRUE(MoleToMassPhaseFraction(test.material().phaseAmounts(), 0, 0.5, result, message));
    EXPECT_EQ(1, result);
    ASSERT_TRUE(MoleToMassPhaseFraction(test.material().phaseAmounts(), 1, 0.5, result, message));
    EXPECT_EQ(0, result);
}

TEST_F(TwoPhases, MustHaveATotalAboveZero)
{
    for (const PhaseCase &phaseCase : bothPhaseConversions) {
        setFractions(0, 0, phaseCase.basis);
        EXPECT_EQ(zeroTotal, phaseRefusal(phaseCase.convert, test));
        setFractions(-0.5, 0, phaseCase.basis);
        EXPECT_EQ(zeroTotal, phaseRefusal(phaseCase.convert, test));
    }
}

TEST(PhaseFractionConversions, RefuseAMaterialWithoutPresentPhases)
{
    TestMaterial test({18, 36});
    for (const PhaseCase &phaseCase : bothPhaseConversions)
        EXPECT_EQ(zeroTotal, phaseRefusal(phaseCase.convert, test));
}

} // namespace
