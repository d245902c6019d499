// What command 23 refuses, with which words and in which order.
#include "tests/support/package_test.h"

using namespace support;

namespace {

class TwoPhaseArguments : public PackageTest {
protected:
    void SetUp() override
    {
        PackageTest::SetUp();
        package.calcTwoPhase = StoreTwoPhase({{"surfaceTension", "", {0.07}}});
    }
    int calculations() const { return package.calls("CalcTwoPhaseProp"); }
};

const char *const inconsistentCompositions = "Inconsistent number of temperatures, pressures and compositions";

} // namespace

TEST_F(TwoPhaseArguments, GiveOneResultOrNone)
{
    EXPECT_EQ(refusal(2, twoPhase()), "Invalid number of output arguments for Verdanth");
    EXPECT_EQ(mustReturn(0, twoPhase())[0].cellMatrix(0), (Rows{{0.07}}));
}

TEST_F(TwoPhaseArguments, AreCheckedInTheOrderOfTheCommand)
{
    expectCheckedInOrder(
        1, twoPhase(),
        {{2, Scalar(1), "Invalid property package handle"},
         {3, Scalar(1), "Expected string or cell array of strings for property names"},
         {1, Scalar(2), "Too many output arguments"},
         {4, Row({300, 310}), "Expected column array for temperatures"},
         {4, Single(300), "Expected double precision vector for temperatures"},
         {4, Zeros({0, 1}), "Zero temperatures specified"},
         {5, Row({1, 2}), "Expected column array for pressures"},
         {5, Single(300), "Expected double precision vector for pressures"},
         {5, Zeros({0, 1}), "Zero pressures specified"},
         {6, Scalar(1), "Invalid number of columns for compositions 1: must match number of compounds"},
         {6, Text("ab"), "Expected double precision values for compositions 1"},
         {6, Zeros({0, 2}), "Zero compositions 1 specified"},
         {7, Scalar(1), "Invalid number of columns for compositions 2: must match number of compounds"},
         {7, Text("ab"), "Expected double precision values for compositions 2"},
         {7, Zeros({0, 2}), "Zero compositions 2 specified"},
         {3, Text("enthalpy"), "Invalid / unsupported 2-phase property: enthalpy"},
         {8, Scalar(1), "Expected string value for phase ID 1"},
         {8, Text("Solid"), "Invalid phase ID 1"},
         {9, Scalar(1), "Expected string value for phase ID 2"},
         {9, Text("Solid"), "Invalid phase ID 2"},
         {9, Text("vapor"), "Phases for two-phase property cannot be the same"}});
}

TEST_F(TwoPhaseArguments, RefuseConditionsThatAreNoColumnsOfDoubles)
{
    for (const Array &wrong : WrongScalars()) {
        EXPECT_EQ(refusal(1, twoPhase({.temperatures = wrong})), "Expected double precision vector for temperatures");
        EXPECT_EQ(refusal(1, twoPhase({.pressures = wrong})), "Expected double precision vector for pressures");
    }
    for (const Array &wrong : {Row({1, 2}), Empty(), Zeros({2, 1, 2}), EmptyCell()}) {
        EXPECT_EQ(refusal(1, twoPhase({.temperatures = wrong})), "Expected column array for temperatures");
        EXPECT_EQ(refusal(1, twoPhase({.pressures = wrong})), "Expected column array for pressures");
    }
}

TEST_F(TwoPhaseArguments, RefuseCompositionsThatAreNoMatricesOfDoublesWithAColumnPerCompound)
{
    for (const Array &wrong : {Scalar(1), Row({1, 0, 0}), Column({0.5, 0.5}), Empty(), Text("abc"), Zeros({1, 2, 2})}) {
        EXPECT_EQ(refusal(1, twoPhase({.compositions1 = wrong})),
                  "Invalid number of columns for compositions 1: must match number of compounds");
        EXPECT_EQ(refusal(1, twoPhase({.compositions2 = wrong})),
                  "Invalid number of columns for compositions 2: must match number of compounds");
    }
    for (const Array &wrong : {Text("ab"), CellRow({Scalar(1), Scalar(2)}), ComplexRow(2)}) {
        EXPECT_EQ(refusal(1, twoPhase({.compositions1 = wrong})),
                  "Expected double precision values for compositions 1");
        EXPECT_EQ(refusal(1, twoPhase({.compositions2 = wrong})),
                  "Expected double precision values for compositions 2");
    }
}

TEST_F(TwoPhaseArguments, RefusePhasesThatAreNoStringsOrNoPhases)
{
    for (const Array &wrong : {Scalar(1), Empty(), EmptyCell(), Cell({Scalar(1)}), Texts({"Vapor", "Liquid"})}) {
        EXPECT_EQ(refusal(1, twoPhase({.phase1 = wrong})), "Expected string value for phase ID 1");
        EXPECT_EQ(refusal(1, twoPhase({.phase2 = wrong})), "Expected string value for phase ID 2");
    }
    for (const Array &wrong : {Text("Solid"), EmptyText(), Text("Overall")}) {
        EXPECT_EQ(refusal(1, twoPhase({.phase1 = wrong})), "Invalid phase ID 1");
        EXPECT_EQ(refusal(1, twoPhase({.phase2 = wrong})), "Invalid phase ID 2");
    }
}

TEST_F(TwoPhaseArguments, OfInconsistentRowsAreRefusedBeforeWhatStandsToTheirRight)
{
    const Array two = Column({1, 2}), three = Column({1, 2, 3});
    EXPECT_EQ(refusal(1, twoPhase({.temperatures = two, .pressures = three, .compositions1 = Scalar(1)})),
              "Inconsistent number of temperatures and pressures");
    EXPECT_EQ(refusal(1, twoPhase({.temperatures = two, .compositions1 = Zeros({3, 2}), .compositions2 = Scalar(1)})),
              inconsistentCompositions);
    EXPECT_EQ(
        refusal(1, twoPhase({.compositions1 = Zeros({3, 2}), .compositions2 = Zeros({2, 2}), .phase1 = Scalar(1)})),
        inconsistentCompositions);
    EXPECT_EQ(calculations(), 0);
}

TEST_F(TwoPhaseArguments, RefuseThePhaseThatStandsThereTwiceInAnyCase)
{
    const char *message = "Phases for two-phase property cannot be the same";
    EXPECT_EQ(refusal(1, twoPhase({.phase1 = Text("Vapor"), .phase2 = Text("vapor")})), message);
    EXPECT_EQ(refusal(1, twoPhase({.phase1 = Text("LIQUID"), .phase2 = Text("Liquid")})), message);
    EXPECT_EQ(refusal(1, twoPhase({.phase2 = Text("Vapor")})), message);
    EXPECT_EQ(calculations(), 0);
}

TEST_F(TwoPhaseArguments, NamePhasesByTheFirstThatHasTheLabel)
{
    package.phaseLabels = TextArray({"Liquid", "liquid"});
    EXPECT_EQ(refusal(1, twoPhase({.phase1 = Text("Liquid"), .phase2 = Text("liquid")})),
              "Phases for two-phase property cannot be the same");
}

TEST_F(TwoPhaseArguments, TellThePropertyThatIsNotOneOfTwoPhasesAsItWasWritten)
{
    for (const std::string name : {"Kvalues", "fugacity", "kvalue.Dfoo", "surfaceTension."})
        EXPECT_EQ(refusal(1, twoPhase({.names = Text(name)})), "Invalid / unsupported 2-phase property: " + name);
    EXPECT_EQ(refusal(1, twoPhase({.outputs = Scalar(2), .names = Text("kvalue Kvalues")})),
              "Invalid / unsupported 2-phase property: Kvalues");
}

TEST_F(TwoPhaseArguments, RefuseAMatrixAtSeveralConditionsBeforeThePackageIsCalled)
{
    for (const char *name : {"kvalue.DmolFraction", "logKvalue.Dmoles"}) {
        EXPECT_EQ(refusal(1, twoPhase({.names = Text(name), .compositions2 = Zeros({2, 2})})),
                  "Property calculations cannot be performed at multiple conditions if any property has matrix "
                  "dimensions");
        EXPECT_EQ(refusal(1, twoPhase({.names = Text(name), .pressures = Column({1, 2}), .phase1 = Scalar(1)})),
                  "Property calculations cannot be performed at multiple conditions if any property has matrix "
                  "dimensions");
    }
    EXPECT_EQ(calculations(), 0);
}

TEST_F(TwoPhaseArguments, AreLookedAtAfterTheMaterialButForHandleAndNames)
{
    package.answer("GetPhaseList", computationFailed);
    EXPECT_EQ(refusal(1, twoPhase({.names = Scalar(1)})),
              "Expected string or cell array of strings for property names");
    EXPECT_EQ(refusal(1, twoPhase({.temperatures = Empty()})),
              "Failed to get list of phases from property package: computation error");
}

TEST_F(TwoPhaseArguments, AreAllCheckedBeforeThePropertyRoutineIsAskedFor)
{
    package.refuse(InterfaceId<ICapeThermoPropertyRoutine>, oddFailure);
    EXPECT_EQ(refusal(1, twoPhase({.phase2 = Text("Vapor")})), "Phases for two-phase property cannot be the same");
    EXPECT_EQ(refusal(1, twoPhase()),
              "Failed to get ICapeThermoEquilibriumRoutine interface from property package: error code "
              "0x8123ABCD");
}
