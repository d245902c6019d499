// What command 25 refuses, with which words and in which order.
#include "tests/mex/flash/list_hint.h"
#include "tests/support/package_test.h"

using namespace support;

namespace {

const char *const inconsistentRows = "Inconsistent number of rows for compositions and constraint values";

class BatchFlashArguments : public PackageTest {
protected:
    int flashes() const { return package.calls("CalcEquilibrium"); }
};

} // namespace

TEST_F(BatchFlashArguments, GiveExactlyOneResult)
{
    for (int outputs : {0, 2, 5})
        EXPECT_EQ(refusal(outputs, batch()), "Invalid number of output arguments for Verdanth");
    mustReturn(1, batch());
}

TEST_F(BatchFlashArguments, AreCheckedInTheOrderOfTheCommand)
{
    expectCheckedInOrder(1, batch(),
                         {{1, Scalar(1), "Invalid property package handle"},
                          {2, Scalar(1), "Invalid number of columns for compositions: must match number of compounds"},
                          {2, Text("ab"), "Expected double precision values for compositions"},
                          {2, Zeros({0, 2}), "Zero values specified for compositions"},
                          {4, Row({1, 2}), "Expected column vector for value 1"},
                          {4, Int32(300), "Expected double precision values for value 1"},
                          {4, Zeros({0, 1}), "Zero values specified for values 1"},
                          {6, Empty(), "Expected column vector for value 2"},
                          {6, Text("1"), "Expected double precision values for value 2"},
                          {6, Zeros({0, 1}), "Zero values specified for values 2"},
                          {9, Scalar(1), "Expected string or cell array of strings for property names"},
                          {8, Scalar(2), "Too many output arguments"},
                          {9, Text("heatCapacityCp"), "Invalid / unsupported flash property: heatCapacityCp"},
                          {3, Scalar(1), "Expected string value for property 1"},
                          {3, Text("Enthalpie"), "Not a valid flash property: Enthalpie" + listHint},
                          {5, Scalar(1), "Expected string value for property 2"},
                          {5, Text("density"), "Not a valid flash property: density" + listHint},
                          {7, Scalar(1), "Expected string value for solution type"}});
}

TEST_F(BatchFlashArguments, RefuseCompositionsThatAreNoMatrixOfDoublesWithAColumnPerCompound)
{
    for (const Array &wrong : {Scalar(1), Row({1, 0, 0}), Column({0.5, 0.5}), Empty(), Text("abc"), Zeros({1, 2, 2})})
        EXPECT_EQ(refusal(1, batch({.compositions = wrong})),
                  "Invalid number of columns for compositions: must match number of compounds");
    for (const Array &wrong : {Text("ab"), CellRow({Scalar(1), Scalar(2)}), ComplexRow(2)})
        EXPECT_EQ(refusal(1, batch({.compositions = wrong})), "Expected double precision values for compositions");
}

TEST_F(BatchFlashArguments, RefuseValuesThatAreNoColumnOfDoubles)
{
    for (const Array &wrong : {Row({1, 2}), Empty(), Zeros({2, 1, 2}), Text("300"), EmptyCell()}) {
        EXPECT_EQ(refusal(1, batch({.values1 = wrong})), "Expected column vector for value 1");
        EXPECT_EQ(refusal(1, batch({.values2 = wrong})), "Expected column vector for value 2");
    }
    for (const Array &wrong : WrongScalars()) {
        EXPECT_EQ(refusal(1, batch({.values1 = wrong})), "Expected double precision values for value 1");
        EXPECT_EQ(refusal(1, batch({.values2 = wrong})), "Expected double precision values for value 2");
    }
}

TEST_F(BatchFlashArguments, RefuseColumnsOfThreeAndTenRows)
{
    EXPECT_EQ(refusal(1, batch({.values1 = Zeros({3, 1}), .values2 = Zeros({10, 1})})), inconsistentRows);
    EXPECT_EQ(refusal(1, batch({.compositions = Zeros({10, 2}), .values1 = Zeros({3, 1})})), inconsistentRows);
    EXPECT_EQ(refusal(1, batch({.compositions = Zeros({3, 2}), .values2 = Zeros({10, 1})})), inconsistentRows);
    EXPECT_EQ(flashes(), 0);
}

TEST_F(BatchFlashArguments, OfInconsistentRowsAreRefusedBeforeWhatIsCheckedNext)
{
    EXPECT_EQ(refusal(1, batch({.compositions = Zeros({2, 2}), .values1 = Zeros({3, 1}), .values2 = Empty()})),
              inconsistentRows);
    EXPECT_EQ(refusal(1, batch({.values1 = Zeros({3, 1}), .values2 = Zeros({2, 1}), .names = Scalar(1)})),
              inconsistentRows);
}

TEST_F(BatchFlashArguments, RefuseNamesThatAreNoStrings)
{
    for (const Array &wrong : {Scalar(1), Empty(), Cell({Scalar(1)}), Cell({Array()}), Logical(true)})
        EXPECT_EQ(refusal(1, batch({.names = wrong})), "Expected string or cell array of strings for property names");
}

TEST_F(BatchFlashArguments, RefuseACountOfOutputsAboveTheNamesCount)
{
    for (const Array &wrong : {Scalar(3), Scalar(-1), Int32(7), Text("2")})
        EXPECT_EQ(refusal(1, batch({.outputs = wrong, .names = Text("Temperature Pressure")})),
                  "Too many output arguments");
    EXPECT_EQ(refusal(1, batch({.names = EmptyCell()})), "Too many output arguments");
}

TEST_F(BatchFlashArguments, TellTheResultThatIsNoFlashPropertyAsItWasWritten)
{
    for (const std::string name : {"heatCapacityCp", "enthalpy.Dtemperature", "Volume.Dmoles", "density", "kvalue",
                                   "fugacity", "Temperature.Dpressure", "pressure.Dtemperature", "vaporFraction.Dmoles",
                                   "fraction", "phaseFraction", "flow", "temperatures"})
        EXPECT_EQ(refusal(1, batch({.names = Text(name)})), "Invalid / unsupported flash property: " + name);
    EXPECT_EQ(refusal(1, batch({.outputs = Scalar(3), .names = Text("Temperature first second")})),
              "Invalid / unsupported flash property: first");
    EXPECT_EQ(flashes(), 0);
}

TEST_F(BatchFlashArguments, AreFreeOfNamesThatAreCutAway)
{
    mustReturn(1, batch({.names = Text("Temperature heatCapacityCp")}));
}

TEST_F(BatchFlashArguments, TellTheConstraintThatIsNoFlashPropertyAsItWasWritten)
{
    for (const std::string name : {"heatCapacityCp", "enthalpy.Dtemperature", "kvalue", "", "temperature "}) {
        EXPECT_EQ(refusal(1, batch({.property1 = Text(name)})), "Not a valid flash property: " + name + listHint);
        EXPECT_EQ(refusal(1, batch({.property2 = Text(name)})), "Not a valid flash property: " + name + listHint);
    }
}

TEST_F(BatchFlashArguments, RefusePropertiesAndSolutionTypesThatAreNoStrings)
{
    for (const Array &wrong : {Scalar(1), Empty(), EmptyCell(), Cell({Scalar(1)}), Texts({"a", "b"}), Logical(true)}) {
        EXPECT_EQ(refusal(1, batch({.property1 = wrong})), "Expected string value for property 1");
        EXPECT_EQ(refusal(1, batch({.property2 = wrong})), "Expected string value for property 2");
        EXPECT_EQ(refusal(1, batch({.solutionType = wrong})), "Expected string value for solution type");
    }
    EXPECT_EQ(flashes(), 0);
}

TEST_F(BatchFlashArguments, RefuseAVaporFractionConstraintOfAPackageWithoutVapor)
{
    package.statesOfAggregation = TextArray({"Liquid", "Liquid"});
    const char *message = "Package does not expose vapor phase";
    EXPECT_EQ(refusal(1, batch({.property1 = Text("vaporFraction")})), message);
    EXPECT_EQ(refusal(1, batch({.property2 = Text("vaporFraction"), .solutionType = Scalar(1)})), message);
    EXPECT_EQ(flashes(), 0);
    mustReturn(1, batch());
}

TEST_F(BatchFlashArguments, AreLookedAtAfterTheMaterialButForTheHandle)
{
    package.answer("GetPhaseList", computationFailed);
    EXPECT_EQ(refusal(1, batch({.compositions = Empty()})),
              "Failed to get list of phases from property package: computation error");
}

TEST_F(BatchFlashArguments, NameResultsThatAreLookedAtAfterBothRoutinesAreAskedFor)
{
    package.refuse(InterfaceId<ICapeThermoEquilibriumRoutine>, oddFailure);
    EXPECT_EQ(refusal(1, batch({.outputs = Scalar(2)})), "Too many output arguments");
    EXPECT_EQ(refusal(1, batch({.names = Text("density")})),
              "Failed to get ICapeThermoEquilibriumRoutine interface from property package: error code "
              "0x8123ABCD");
}

TEST_F(BatchFlashArguments, NeedAPropertyRoutineEvenWhenNothingIsAskedOfIt)
{
    package.refuse(InterfaceId<ICapeThermoPropertyRoutine>, oddFailure);
    EXPECT_EQ(refusal(1, batch()),
              "Failed to get ICapeThermoEquilibriumRoutine interface from property package: error code "
              "0x8123ABCD");
    EXPECT_EQ(package.references(InterfaceId<ICapeThermoEquilibriumRoutine>), 1);
}
