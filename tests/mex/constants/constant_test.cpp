// Command 16: a constant of all compounds.
#include "tests/support/package_test.h"

#include <cmath>
#include <cstring>

using namespace support;

namespace {

const char *const inconsistentType = "Inconsistent return data type from GetCompoundConstant";
const std::string invalid = "Invalid return values from GetCompoundConstant: ";

class Constant : public PackageTest {
protected:
    void answer(Variant values) { package.constants = AnswerValues(std::move(values)); }
    Array constant(AnyText name) { return mustReturn(1, {Scalar(16), handle, Text(name)})[0]; }
    std::string refusedConstant(AnyText name) { return refusal(1, {Scalar(16), handle, Text(name)}); }

    // Leaves these two names in the list that the library fills for every list command.
    void fillNameList(const char *first, const char *second)
    {
        package.singlePhaseProperties = TextArray({first, second});
        ASSERT_EQ(mustReturn(1, {Scalar(13), handle})[0].count(), 2u);
    }
};

Variant Numbers(double a, double b) { return ArrayOfVariants({RealVariant(a), RealVariant(b)}); }

std::uint64_t bitsOf(double value)
{
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

} // namespace

TEST_F(Constant, IsARowInTheOrderOfTheCompounds)
{
    answer(Numbers(373.15, 350));
    const Array row = constant("normalBoilingPoint");
    EXPECT_EQ(row.dimensions(), (std::vector<std::size_t>{1, 2}));
    EXPECT_EQ(row.numbers(), (std::vector<double>{373.15, 350}));
}

TEST_F(Constant, IsAskedForByItsNameForAllCompounds)
{
    std::vector<CompoundCall> calls;
    package.constants = [&](const CompoundCall &request, Variant &values) {
        calls.push_back(request);
        values = Numbers(1, 2);
        return S_OK;
    };
    constant("inventedBy The Package ");
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0].properties, Names({"inventedBy The Package "}));
    EXPECT_EQ(calls[0].compoundIds, VT_EMPTY);
    EXPECT_EQ(mustReturn(1, {Scalar(16), handle, Texts({"charge"})})[0].count(), 2u);
    EXPECT_EQ(calls[1].properties, Names({"charge"}));
}

TEST_F(Constant, WithoutAValueForACompoundHasNaNThere)
{
    answer(ArrayOfVariants({Variant(), RealVariant(350)}));
    std::vector<double> row = constant("normalBoilingPoint").numbers();
    ASSERT_EQ(row.size(), 2u);
    EXPECT_EQ(bitsOf(row[0]), 0x7FF8000000000000u);
    EXPECT_EQ(row[1], 350);
    answer(ArrayOfVariants({RealVariant(373.15), Variant()}));
    row = constant("normalBoilingPoint").numbers();
    ASSERT_EQ(row.size(), 2u);
    EXPECT_EQ(row[0], 373.15);
    EXPECT_EQ(bitsOf(row[1]), 0x7FF8000000000000u);
}

TEST_F(Constant, WithoutAnyValueIsARowOfNaN)
{
    answer(BlankArray(VT_VARIANT, 2));
    for (const double value : constant("normalBoilingPoint").numbers())
        EXPECT_EQ(bitsOf(value), 0x7FF8000000000000u);
}

TEST_F(Constant, IsReadFromAnyLowerBound)
{
    for (const LONG lowerBound : {1, -3}) {
        answer(ArrayOfVariants({RealVariant(1), RealVariant(2)}, lowerBound));
        EXPECT_EQ(constant("charge").numbers(), (std::vector<double>{1, 2}));
    }
}

TEST_F(Constant, ThatIsTextIsACellInEitherBasis)
{
    answer(ArrayOfVariants({TextVariant("H2O"), TextVariant("Ü 100%")}));
    EXPECT_EQ(constant("chemicalFormula").texts(), Names({"H2O", "Ü 100%"}));
    useBasis("mass");
    EXPECT_EQ(constant("chemicalFormula").texts(), Names({"H2O", "Ü 100%"}));
    EXPECT_EQ(constant("inventedText").texts(), Names({"H2O", "Ü 100%"}));
}

TEST_F(Constant, ThatIsANullTextIsAnEmptyText)
{
    Variant null;
    null.value.vt = VT_BSTR;
    null.value.bstrVal = nullptr;
    answer(ArrayOfVariants({null, TextVariant("x")}));
    EXPECT_EQ(constant("chemicalFormula").texts(), Names({"", "x"}));
}

TEST_F(Constant, ThatIsTextKeepsWhatAnEarlierCommandLeftWhereItHasNoValue)
{
    fillNameList("volume", "density");
    answer(ArrayOfVariants({TextVariant("x"), Variant()}));
    EXPECT_EQ(constant("chemicalFormula").texts(), Names({"x", "density"}));
    fillNameList("volume", "density");
    answer(ArrayOfVariants({Variant(), TextVariant("x")}));
    EXPECT_EQ(constant("chemicalFormula").texts(), Names({"volume", "x"}));
}

TEST_F(Constant, ThatIsTextKeepsTheNamesInFrontOfWhatWasNoName)
{
    EXPECT_EQ(refusal(1, {Scalar(20), Scalar(1), handle, Cell({Text("volume density"), Scalar(1)}), Scalar(300)}),
              "Expected string or cell array of strings for property names");
    answer(ArrayOfVariants({Variant(), TextVariant("x")}));
    EXPECT_EQ(constant("chemicalFormula").texts(), Names({"volume", "x"}));
}

TEST_F(Constant, ThatMixesTextAndNumbersIsRefusedWhicheverComesFirst)
{
    answer(ArrayOfVariants({TextVariant("x"), RealVariant(1)}));
    EXPECT_EQ(refusedConstant("charge"), inconsistentType);
    answer(ArrayOfVariants({RealVariant(1), TextVariant("x")}));
    EXPECT_EQ(refusedConstant("charge"), inconsistentType);
    answer(Numbers(1, 2));
    EXPECT_EQ(constant("charge").numbers(), (std::vector<double>{1, 2}));
}

TEST_F(Constant, ThatMixesTextAndNumbersAroundAMissingValueIsRefused)
{
    package.compoundIds = TextArray({"A", "B", "C"});
    package.molecularWeights = NumberArray({18, 36, 54});
    answer(ArrayOfVariants({TextVariant("x"), Variant(), RealVariant(1)}));
    EXPECT_EQ(refusedConstant("charge"), inconsistentType);
    answer(ArrayOfVariants({RealVariant(1), Variant(), TextVariant("x")}));
    EXPECT_EQ(refusedConstant("charge"), inconsistentType);
}

TEST_F(Constant, OfAnotherElementTypeIsRefusedWhereverItStands)
{
    Variant null;
    null.value.vt = VT_NULL;
    Variant single;
    single.value.vt = VT_R4;
    single.value.fltVal = 1;
    for (const Variant &element :
         {LongVariant(1), null, single, NumberArray({1, 2}), InterfaceVariant(package.context.get())}) {
        answer(ArrayOfVariants({element, RealVariant(1)}));
        EXPECT_EQ(refusedConstant("charge"), inconsistentType);
        answer(ArrayOfVariants({TextVariant("x"), element}));
        EXPECT_EQ(refusedConstant("charge"), inconsistentType);
    }
    EXPECT_EQ(ReferencesOn(package.context.get()), 4) << "the process, the package, the script and the last answer";
    answer(Variant());
    EXPECT_EQ(ReferencesOn(package.context.get()), 3) << "the library keeps the last answer until the next";
    EXPECT_EQ(refusedConstant("charge"), invalid + "unexpected number of values");
    EXPECT_EQ(ReferencesOn(package.context.get()), 2);
}

TEST_F(Constant, ThatIsNoListOfVariantsIsRefused)
{
    Variant values = Numbers(1, 2);
    Variant reference;
    reference.value = ByReference(values);
    for (const Variant &lie :
         {NumberArray({1, 2}), TextArray({"x", "y"}), LongArray({1, 2}), RealVariant(1), TextVariant("x"), reference}) {
        answer(lie);
        EXPECT_EQ(refusedConstant("charge"), invalid + "Expected an array of type VARIANT");
    }
    answer(TwoDimensionalArray(VT_VARIANT, 1, 2));
    EXPECT_EQ(refusedConstant("charge"), invalid + "unexpected dimension; 1-dimensional array expected");
}

TEST_F(Constant, OfElementsThatAreNotWhatTheArraySaysIsRefused)
{
    package.constants = AnswerValues(Mislabeled(NumberArray({1, 2}), VT_VARIANT));
    EXPECT_EQ(refusal(1, {Scalar(16), handle, Text("charge")}),
              "Invalid return values from GetCompoundConstant: Expected an array of type VARIANT");
}

TEST_F(Constant, WithAnotherNumberOfValuesThanCompoundsIsRefused)
{
    for (const Variant &lie :
         {Variant(), ArrayOfVariants({}), ArrayOfVariants({RealVariant(1)}),
          ArrayOfVariants({RealVariant(1), RealVariant(2), RealVariant(3)}), BlankArray(VT_VARIANT, 3)}) {
        answer(lie);
        EXPECT_EQ(refusedConstant("charge"), invalid + "unexpected number of values");
    }
}

TEST_F(Constant, ThatThePackageRefusesIsToldInItsWords)
{
    const std::string failed = "GetCompoundConstant failed: ";
    package.answer("GetCompoundConstant", CapeFailure(0x1A));
    package.words = Description("no such constant: 100%");
    package.words.onlyFrom = &InterfaceId<ICapeThermoCompounds>;
    EXPECT_EQ(refusedConstant("charge"), failed + "no such constant: 100%");
    package.words = ErrorWords();
    EXPECT_EQ(refusedConstant("charge"),
              failed + "One or more of the requested thermodynamic properties are not set on the material");
    package.answer("GetCompoundConstant", oddFailure);
    EXPECT_EQ(refusedConstant("charge"), failed + oddFailureText);
    package.answer("GetCompoundConstant", S_FALSE);
    answer(Numbers(1, 2));
    EXPECT_EQ(constant("charge").numbers(), (std::vector<double>{1, 2}));
    EXPECT_EQ(package.calls("GetCompoundList"), 1);
}

TEST_F(Constant, NeedsANameThatIsAString)
{
    for (const Array &name : WrongStrings())
        EXPECT_EQ(refusal(1, {Scalar(16), handle, name}), "Expected a string value for property name");
    EXPECT_EQ(package.calls("GetCompoundConstant"), 0);
}

TEST_F(Constant, NeedsTheCompoundsBeforeItsNameIsLookedAt)
{
    package.answer("GetCompoundList", computationFailed, 1);
    EXPECT_EQ(refusal(1, {Scalar(16), handle, Scalar(1)}),
              "Failed to get list of compounds from property package: computation error");
    EXPECT_EQ(refusal(1, {Scalar(16), handle, Scalar(1)}), "Expected a string value for property name");
}

// In mass basis: values times or over the molecular weight in kg/mol, 0.018 and 0.036.

TEST_F(Constant, InMassBasisADensityIsMultipliedByTheMolecularWeight)
{
    useBasis("mass");
    answer(Numbers(1000, 500));
    const std::vector<double> row = constant("CRITICALdensity").numbers();
    ASSERT_EQ(row.size(), 2u);
    EXPECT_DOUBLE_EQ(row[0], 18);
    EXPECT_DOUBLE_EQ(row[1], 18);
}

TEST_F(Constant, InMassBasisAVolumeIsDividedByTheMolecularWeight)
{
    useBasis("mass");
    answer(Numbers(5.6e-5, 9e-5));
    const std::vector<double> row = constant("criticalVolume").numbers();
    ASSERT_EQ(row.size(), 2u);
    EXPECT_DOUBLE_EQ(row[0], 5.6 / 1800);
    EXPECT_DOUBLE_EQ(row[1], 0.0025);
}

TEST_F(Constant, InMassBasisAMolecularWeightIsNotConverted)
{
    useBasis("mass");
    answer(Numbers(18, 36));
    EXPECT_EQ(constant("molecularWeight").numbers(), (std::vector<double>{18, 36}));
}

TEST_F(Constant, InMoleBasisNothingIsConverted)
{
    answer(Numbers(1000, 500));
    EXPECT_EQ(constant("criticalDensity").numbers(), (std::vector<double>{1000, 500}));
    EXPECT_EQ(constant("criticalVolume").numbers(), (std::vector<double>{1000, 500}));
}

TEST_F(Constant, InMassBasisMissingValuesStayAsTheyAre)
{
    useBasis("mass");
    answer(ArrayOfVariants({Variant(), RealVariant(500)}));
    std::vector<double> row = constant("criticalDensity").numbers();
    ASSERT_EQ(row.size(), 2u);
    EXPECT_EQ(bitsOf(row[0]), 0x7FF8000000000000u);
    EXPECT_DOUBLE_EQ(row[1], 18);
    answer(Numbers(500, undefinedNumber));
    row = constant("criticalDensity").numbers();
    ASSERT_EQ(row.size(), 2u);
    EXPECT_DOUBLE_EQ(row[0], 9);
    EXPECT_EQ(row[1], undefinedNumber);
}

TEST_F(Constant, InMassBasisNeedsTheMolecularWeightsOfTheValuesThatItConverts)
{
    package.molecularWeights = NumberArray({18, notANumber});
    useBasis("mass");
    answer(Numbers(1000, 500));
    EXPECT_EQ(refusedConstant("criticalDensity"),
              "missing molecular weight for one or more compounds in basis conversion");
    EXPECT_EQ(constant("criticalPressure").numbers(), (std::vector<double>{1000, 500}));
    answer(ArrayOfVariants({RealVariant(1000), Variant()}));
    EXPECT_DOUBLE_EQ(constant("criticalDensity").numbers().at(0), 18);
}

TEST_F(Constant, ThatTheVocabularyDoesNotKnowFailsInMassBasisOnly)
{
    answer(Numbers(1, 2));
    const char *const names[] = {"inventedConstant", "acentricFactor.Dtemperature", "charge.Dfoo",
                                 "triplePointTemperature"};
    for (const char *name : names)
        EXPECT_EQ(constant(name).numbers(), (std::vector<double>{1, 2}));
    useBasis("mass");
    EXPECT_EQ(refusedConstant(names[0]), "Invalid or unsupported compound constant: inventedconstant");
    EXPECT_EQ(refusedConstant(names[1]), "Temperature derivative not supported for compound constants");
    EXPECT_EQ(refusedConstant(names[2]), "Invalid or unsuppored derivative \"Dfoo\"");
    EXPECT_EQ(refusedConstant(names[3]), "Invalid or unsupported compound constant: triplepointtemperature");
    EXPECT_EQ(refusal(1, {Scalar(16), handle, EmptyText()}), "Invalid or unsupported compound constant: ");
    EXPECT_EQ(constant("triplePointTemperature ").numbers(), (std::vector<double>{1, 2}));
}
