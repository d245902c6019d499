// The compound and phase lists of a package: fetched once, checked before they are used.
#include "tests/support/package_test.h"

#include <cmath>

using namespace support;

namespace {

class PackageLists : public PackageTest {
protected:
    const char *const noCompounds = "Property package does not contain any compounds";
    const char *const noPhases = "Property package does not contain any phases";

    std::vector<WideString> compounds() { return mustReturn(1, {Scalar(7), handle})[0].texts(); }
    std::vector<WideString> phases() { return mustReturn(1, {Scalar(8), handle})[0].texts(); }
    std::string compoundsRefused() { return refusal(1, {Scalar(7), handle}); }
    std::string phasesRefused() { return refusal(1, {Scalar(8), handle}); }
};

struct Lie {
    Variant list;
    const char *reason;
};

} // namespace

TEST_F(PackageLists, OfCompoundsAreGivenInThePackagesOrderAndAskedForOnce)
{
    package.compoundIds = TextArray({"water", "Éthanol", "acetone"});
    package.molecularWeights = NumberArray({18, 46, 58});
    EXPECT_EQ(compounds(), Names({"water", "Éthanol", "acetone"}));
    package.compoundIds = TextArray({"other"});
    EXPECT_EQ(compounds(), Names({"water", "Éthanol", "acetone"}));
    mustReturn(1, {Scalar(10), handle});
    EXPECT_EQ(package.calls("GetCompoundList"), 1);
    EXPECT_EQ(package.calls("GetPhaseList"), 0);
    EXPECT_EQ(package.references(InterfaceId<ICapeThermoCompounds>), 1);
}

TEST_F(PackageLists, OfPhasesAreGivenInThePackagesOrderAndAskedForOnce)
{
    package.phaseLabels = TextArray({"liquid 2", "Vapeur", "liquid 1"});
    package.statesOfAggregation = TextArray({"Liquid", "Vapor", "Liquid"});
    EXPECT_EQ(phases(), Names({"liquid 2", "Vapeur", "liquid 1"}));
    package.phaseLabels = TextArray({"other"});
    EXPECT_EQ(phases(), Names({"liquid 2", "Vapeur", "liquid 1"}));
    mustReturn(1, {Scalar(9), handle, Text("Vapeur")});
    EXPECT_EQ(package.calls("GetPhaseList"), 1);
    EXPECT_EQ(package.calls("GetCompoundList"), 0);
    EXPECT_EQ(package.references(InterfaceId<ICapeThermoPhases>), 1);
}

TEST_F(PackageLists, OfAPackageThatIsOpenedAnewAreAskedForAnew)
{
    EXPECT_EQ(compounds(), Names({"A", "B"}));
    mustReturn(0, {Scalar(4), handle});
    package.compoundIds = TextArray({"C", "D"});
    EXPECT_EQ(mustReturn(1, {Scalar(7), open("Alone")})[0].texts(), Names({"C", "D"}));
}

TEST_F(PackageLists, AreReadFromAnyLowerBound)
{
    package.compoundIds = TextArray({"x", "y"}, 1);
    package.molecularWeights = NumberArray({18, 36}, -3);
    package.phaseLabels = TextArray({"V", "L"}, -3);
    package.statesOfAggregation = TextArray({"Vapor", "Liquid"}, 1);
    EXPECT_EQ(compounds(), Names({"x", "y"}));
    EXPECT_EQ(phases(), Names({"V", "L"}));
    EXPECT_EQ(mustReturn(1, {Scalar(9), handle, Text("L")})[0].text(), Wide("Liquid"));
}

TEST_F(PackageLists, ThatAreNullTextsAreEmptyTexts)
{
    package.compoundIds = BlankArray(VT_BSTR, 2);
    package.phaseLabels = BlankArray(VT_BSTR, 1);
    package.statesOfAggregation = BlankArray(VT_BSTR, 1);
    EXPECT_EQ(compounds(), Names({"", ""}));
    EXPECT_EQ(phases(), Names({""}));
    EXPECT_EQ(mustReturn(1, {Scalar(9), handle, EmptyText()})[0].text(), WideString());
}

TEST_F(PackageLists, OfAPackageWithoutTheCompoundsInterfaceAreRefused)
{
    package.refuse(InterfaceId<ICapeThermoCompounds>, oddFailure);
    EXPECT_EQ(compoundsRefused(),
              std::string("Failed to get ICompounds interface from property package: ") + oddFailureText);
    EXPECT_EQ(phases(), Names({"Vapor", "Liquid"}));
}

TEST_F(PackageLists, OfAPackageWithoutThePhasesInterfaceAreRefused)
{
    package.refuse(InterfaceId<ICapeThermoPhases>, E_FAIL);
    EXPECT_EQ(phasesRefused(),
              "Failed to get ICapeThermoPhases interface from property package: " + SystemText(E_FAIL));
    EXPECT_EQ(compounds(), Names({"A", "B"}));
}

TEST_F(PackageLists, OfInterfacesThatAreNothingAreRefused)
{
    package.refuse(InterfaceId<ICapeThermoCompounds>, S_OK);
    package.refuse(InterfaceId<ICapeThermoPhases>, S_OK);
    EXPECT_EQ(compoundsRefused(),
              "Failed to get ICompounds interface from property package: " + SystemText(E_NOINTERFACE));
    EXPECT_EQ(phasesRefused(),
              "Failed to get ICapeThermoPhases interface from property package: " + SystemText(E_NOINTERFACE));
}

TEST_F(PackageLists, OfCompoundsThatThePackageRefusesAreToldInItsWordsAndTriedAgain)
{
    const std::string prefix = "Failed to get list of compounds from property package: ";
    package.answer("GetCompoundList", CapeFailure(0x02), 1);
    package.answer("GetCompoundList", CapeFailure(0x02), 2);
    package.answer("GetCompoundList", oddFailure, 3);
    package.words = Description("data bank is locked");
    package.words.onlyFrom = &InterfaceId<ICapeThermoCompounds>;
    EXPECT_EQ(compoundsRefused(), prefix + "data bank is locked");
    package.words = ErrorWords();
    EXPECT_EQ(compoundsRefused(), prefix + "invalid data");
    EXPECT_EQ(compoundsRefused(), prefix + oddFailureText);
    EXPECT_EQ(compounds(), Names({"A", "B"}));
    EXPECT_EQ(package.calls("GetCompoundList"), 4);
    EXPECT_EQ(package.references(InterfaceId<ICapeThermoCompounds>), 1) << "the interface was kept";
}

TEST_F(PackageLists, OfPhasesThatThePackageRefusesAreToldInItsWordsAndTriedAgain)
{
    const std::string prefix = "Failed to get list of phases from property package: ";
    package.answer("GetPhaseList", CapeFailure(0x02), 1);
    package.answer("GetPhaseList", CapeFailure(0x02), 2);
    package.answer("GetPhaseList", oddFailure, 3);
    package.words = ErrorName("ECapeData");
    package.words.onlyFrom = &InterfaceId<ICapeThermoPhases>;
    EXPECT_EQ(phasesRefused(), prefix + "ECapeData");
    package.words = ErrorWords();
    EXPECT_EQ(phasesRefused(), prefix + "invalid data");
    EXPECT_EQ(phasesRefused(), prefix + oddFailureText);
    EXPECT_EQ(phases(), Names({"Vapor", "Liquid"}));
    EXPECT_EQ(package.calls("GetPhaseList"), 4);
    EXPECT_EQ(package.references(InterfaceId<ICapeThermoPhases>), 1) << "the interface was kept";
}

TEST_F(PackageLists, OfCompoundIdsThatAreNoTextsAreRefusedUntilTheyAre)
{
    for (const Lie &lie :
         {Lie{NumberArray({1, 2}), "Expected an array of type string"},
          Lie{ArrayOfVariants({TextVariant("A"), TextVariant("B")}), "Expected an array of type string"},
          Lie{TextVariant("A"), "Expected an array of type string"},
          Lie{TwoDimensionalArray(VT_BSTR, 1, 2), "unexpected dimension; 1-dimensional array expected"}}) {
        package.compoundIds = lie.list;
        EXPECT_EQ(compoundsRefused(), std::string("Invalid list of compound IDs from property package: ") + lie.reason);
    }
    EXPECT_EQ(package.calls("GetCompoundList"), 4);
    package.compoundIds = TextArray({"A", "B"});
    EXPECT_EQ(compounds(), Names({"A", "B"}));
}

TEST_F(PackageLists, OfElementsThatAreNotWhatTheArraySaysAreRefused)
{
    package.compoundIds = Mislabeled(NumberArray({1, 2}), VT_BSTR);
    EXPECT_EQ(refusal(1, {Scalar(7), handle}),
              "Invalid list of compound IDs from property package: Expected an array of type string");
    package.compoundIds = TextArray({"A", "B"});
    package.molecularWeights = Mislabeled(BlankArray(VT_BSTR, 2), VT_R8);
    EXPECT_EQ(refusal(1, {Scalar(7), handle}),
              "Invalid list of molecular weights from property package: Expected an array of type double precision");
    package.phaseLabels = Mislabeled(NumberArray({1, 2}), VT_BSTR);
    EXPECT_EQ(refusal(1, {Scalar(8), handle}),
              "Invalid list of phase labels from property package: Expected an array of type string");
}

TEST_F(PackageLists, OfNoCompoundsAreRefusedByEveryCommandThatNeedsThemAfterAskingAgain)
{
    package.compoundIds = TextArray({});
    package.molecularWeights = NumberArray({});
    const std::vector<std::vector<Array>> commands = {
        {Scalar(7), handle},
        {Scalar(10), handle},
        {Scalar(11), handle},
        {Scalar(12), handle},
        {Scalar(16), handle, Text("criticalTemperature")},
        {Scalar(20), Scalar(1), handle, Text("vaporPressure"), Scalar(300)},
        {Scalar(21), Scalar(1), handle, Text("boilingPointTemperature"), Scalar(1e5)},
        {Scalar(22), Scalar(1), handle, Text("volume"), Scalar(300), Scalar(1e5), Row({0.5, 0.5}), Text("Vapor")},
    };
    int asked = 0;
    for (const std::vector<Array> &command : commands) {
        EXPECT_EQ(refusal(1, command), noCompounds) << command[0].number();
        EXPECT_EQ(package.calls("GetCompoundList"), ++asked);
    }
    package.compoundIds = Variant();
    EXPECT_EQ(compoundsRefused(), noCompounds) << "an empty variant has no compounds either";
    package.molecularWeights = TextArray({"weights are not looked at then"});
    EXPECT_EQ(compoundsRefused(), noCompounds);
}

TEST_F(PackageLists, OfMolecularWeightsThatAreNoNumbersAreRefusedUntilTheyAre)
{
    const char *const noNumbers = "Expected an array of type double precision";
    for (const Lie &lie :
         {Lie{TextArray({"18", "36"}), noNumbers}, Lie{LongArray({18, 36}), noNumbers},
          Lie{ArrayOfVariants({RealVariant(18), RealVariant(36)}), noNumbers}, Lie{RealVariant(18), noNumbers},
          Lie{TwoDimensionalArray(VT_R8, 1, 2), "unexpected dimension; 1-dimensional array expected"},
          Lie{Variant(), "size does not match number of compounds"},
          Lie{NumberArray({18}), "size does not match number of compounds"},
          Lie{NumberArray({18, 36, 54}), "size does not match number of compounds"}}) {
        package.molecularWeights = lie.list;
        EXPECT_EQ(compoundsRefused(),
                  std::string("Invalid list of molecular weights from property package: ") + lie.reason);
    }
    package.molecularWeights = NumberArray({18, 36});
    EXPECT_EQ(compounds(), Names({"A", "B"}));
}

TEST_F(PackageLists, OfMolecularWeightsThatAreZeroOrNegativeAreRefusedUntilTheyAreNot)
{
    for (const std::vector<double> &weights :
         {std::vector<double>{18, 0}, {0, 36}, {18, -1}, {-0.0, 36}, {18, -1.7976931348623157e308}}) {
        package.molecularWeights = NumberArray(weights);
        EXPECT_EQ(compoundsRefused(),
                  "One or more molecular weights returned by property package are zero or negative");
    }
    EXPECT_EQ(package.calls("GetCompoundList"), 5);
    package.molecularWeights = NumberArray({18, 36});
    EXPECT_EQ(compounds(), Names({"A", "B"}));
}

TEST_F(PackageLists, OfMolecularWeightsMayHoldNaN)
{
    package.molecularWeights = NumberArray({notANumber, notANumber});
    EXPECT_EQ(compounds(), Names({"A", "B"}));
}

TEST_F(PackageLists, TheOtherFourListsOfCompoundsAreNotChecked)
{
    package.formulae = NumberArray({1});
    package.compoundNames = LongVariant(7);
    package.boilingTemperatures = Variant();
    package.casNumbers = TwoDimensionalArray(VT_BSTR, 2, 2);
    EXPECT_EQ(compounds(), Names({"A", "B"}));
}

TEST_F(PackageLists, OfPhaseLabelsThatAreNoTextsAreRefusedUntilTheyAre)
{
    for (const Lie &lie :
         {Lie{NumberArray({1, 2}), "Expected an array of type string"},
          Lie{ArrayOfVariants({TextVariant("V"), TextVariant("L")}), "Expected an array of type string"},
          Lie{LongVariant(2), "Expected an array of type string"},
          Lie{TwoDimensionalArray(VT_BSTR, 2, 1), "unexpected dimension; 1-dimensional array expected"}}) {
        package.phaseLabels = lie.list;
        EXPECT_EQ(phasesRefused(), std::string("Invalid list of phase labels from property package: ") + lie.reason);
    }
    package.phaseLabels = TextArray({"V", "L"});
    EXPECT_EQ(phases(), Names({"V", "L"}));
    EXPECT_EQ(package.calls("GetPhaseList"), 5);
}

TEST_F(PackageLists, OfNoPhasesAreRefusedAfterAskingAgain)
{
    package.phaseLabels = TextArray({});
    EXPECT_EQ(phasesRefused(), noPhases);
    package.phaseLabels = Variant();
    EXPECT_EQ(phasesRefused(), noPhases);
    package.statesOfAggregation = NumberArray({1}); // not looked at then
    EXPECT_EQ(refusal(1, {Scalar(9), handle, Text("Vapor")}), noPhases);
    EXPECT_EQ(refusal(1, {Scalar(22), Scalar(1), handle, Text("volume"), Scalar(300), Scalar(1e5), Row({0.5, 0.5}),
                          Text("Vapor")}),
              noPhases);
    EXPECT_EQ(package.calls("GetPhaseList"), 4);
}

TEST_F(PackageLists, OfStatesOfAggregationThatDoNotFitAreRefusedUntilTheyDo)
{
    const char *const noTexts = "Expected an array of type string";
    const char *const otherSize = "size does not match number of phases";
    for (const Lie &lie :
         {Lie{NumberArray({1, 2}), noTexts}, Lie{TextVariant("Vapor"), noTexts},
          Lie{ArrayOfVariants({TextVariant("Vapor"), TextVariant("Liquid")}), noTexts},
          Lie{TwoDimensionalArray(VT_BSTR, 2, 1), "unexpected dimension; 1-dimensional array expected"},
          Lie{Variant(), otherSize}, Lie{TextArray({"Vapor"}), otherSize},
          Lie{TextArray({"Vapor", "Liquid", "Solid"}), otherSize}}) {
        package.statesOfAggregation = lie.list;
        EXPECT_EQ(phasesRefused(),
                  std::string("Invalid list of aggregation states from property package: ") + lie.reason);
    }
    package.statesOfAggregation = TextArray({"Vapor", "Liquid"});
    EXPECT_EQ(phases(), Names({"Vapor", "Liquid"}));
}

TEST_F(PackageLists, OfKeyCompoundsAreNotChecked)
{
    package.keyCompounds = NumberArray({1, 2, 3});
    EXPECT_EQ(phases(), Names({"Vapor", "Liquid"}));
}

TEST_F(PackageLists, GivenByReferenceAreRefused)
{
    Variant ids = TextArray({"A", "B"});
    Variant reference;
    reference.value = ByReference(ids);
    package.compoundIds = reference;
    EXPECT_EQ(compoundsRefused(),
              "Invalid list of compound IDs from property package: Expected an array of type string");
}

TEST_F(PackageLists, OfAPackageWithoutThePropertyRoutineAreRefusedInTheWordsForTheEquilibriumRoutine)
{
    package.refuse(InterfaceId<ICapeThermoPropertyRoutine>, oddFailure);
    const std::string message =
        std::string("Failed to get ICapeThermoEquilibriumRoutine interface from property package: ") + oddFailureText;
    const std::vector<std::vector<Array>> commands = {
        {Scalar(13), handle},
        {Scalar(14), handle},
        {Scalar(15), handle},
        {Scalar(22), Scalar(1), handle, Text("volume"), Scalar(300), Scalar(1e5), Row({0.5, 0.5}), Text("Vapor")},
        {Scalar(23), Scalar(1), handle, Text("kvalue"), Scalar(300), Scalar(1e5), Row({0.5, 0.5}), Row({0.5, 0.5}),
         Text("Vapor"), Text("Liquid")},
    };
    for (const std::vector<Array> &command : commands)
        EXPECT_EQ(refusal(1, command), message) << command[0].number();
}

TEST_F(PackageLists, OfAPackageWithoutTheEquilibriumRoutineDoNotMatterToItsFlashes)
{
    package.refuse(InterfaceId<ICapeThermoEquilibriumRoutine>, oddFailure);
    const std::string message =
        std::string("Failed to get ICapeThermoEquilibriumRoutine interface from property package: ") + oddFailureText;
    EXPECT_EQ(refusal(5, {Scalar(24), handle, Row({0.5, 0.5}), Text("temperature"), Scalar(340), Text("pressure"),
                          Scalar(101325), Text("Unspecified")}),
              message);
    EXPECT_EQ(refusal(1, {Scalar(25), handle, Row({0.5, 0.5}), Text("temperature"), Scalar(340), Text("pressure"),
                          Scalar(101325), Text("Unspecified"), Scalar(1), Text("volume")}),
              message);
}
