// What command 22 refuses, with which words and in which order.
#include "tests/support/package_test.h"

#include <limits>

using namespace support;

namespace {

class SinglePhaseArguments : public PackageTest {
protected:
    void SetUp() override
    {
        PackageTest::SetUp();
        package.calcSinglePhase = StoreSinglePhase({{"volume", "mole", {0.025}}, {"density", "mole", {40}}});
    }
    int calculations() const { return package.calls("CalcSinglePhaseProp"); }
};

} // namespace

TEST_F(SinglePhaseArguments, GiveOneResultOrNone)
{
    EXPECT_EQ(refusal(2, singlePhase()), "Invalid number of output arguments for Verdanth");
    EXPECT_EQ(mustReturn(0, singlePhase())[0].cellMatrix(0), (Rows{{0.025}}));
    EXPECT_EQ(mustReturn(1, singlePhase())[0].cellMatrix(0), (Rows{{0.025}}));
}

TEST_F(SinglePhaseArguments, AreCheckedInTheOrderOfTheCommand)
{
    expectCheckedInOrder(1, singlePhase(),
                         {{2, Scalar(1), "Invalid property package handle"},
                          {3, Scalar(1), "Expected string or cell array of strings for property names"},
                          {1, Scalar(2), "Too many output arguments"},
                          {4, Row({300, 310}), "Expected column array for temperatures"},
                          {4, Single(300), "Expected double precision vector for temperatures"},
                          {4, Zeros({0, 1}), "Zero temperatures specified"},
                          {5, Row({1, 2}), "Expected column array for pressures"},
                          {5, Single(300), "Expected double precision vector for pressures"},
                          {5, Zeros({0, 1}), "Zero pressures specified"},
                          {6, Scalar(1), "Invalid number of columns for compositions: must match number of compounds"},
                          {6, Text("ab"), "Expected double precision values for compositions"},
                          {6, Zeros({0, 2}), "Zero compositions specified"},
                          {7, Scalar(1), "Expected string value for phase ID"},
                          {7, Text("Solid"), "Invalid phase ID"},
                          {3, Text("kvalue"), "Invalid / unsupported 1-phase property: kvalue"}});
}

TEST_F(SinglePhaseArguments, OfInconsistentRowsAreRefusedBeforeWhatStandsToTheirRight)
{
    const Array two = Column({1, 2}), three = Column({1, 2, 3});
    EXPECT_EQ(refusal(1, singlePhase({.temperatures = two, .pressures = three, .compositions = Scalar(1)})),
              "Inconsistent number of temperatures and pressures");
    EXPECT_EQ(refusal(1, singlePhase({.temperatures = two, .compositions = Zeros({3, 2}), .phase = Text("Solid")})),
              "Inconsistent number of temperatures, pressures and compositions");
    EXPECT_EQ(calculations(), 0);
}

TEST_F(SinglePhaseArguments, RefuseThreeTemperaturesWithSevenPressures)
{
    EXPECT_EQ(refusal(1, singlePhase({.temperatures = Column({1, 2, 3}), .pressures = Zeros({7, 1})})),
              "Inconsistent number of temperatures and pressures");
    EXPECT_EQ(refusal(1, singlePhase({.temperatures = Zeros({7, 1}), .pressures = Column({1, 2, 3})})),
              "Inconsistent number of temperatures and pressures");
}

TEST_F(SinglePhaseArguments, RefuseCompositionsThatAreNeitherOneNorAsManyAsConditions)
{
    const char *message = "Inconsistent number of temperatures, pressures and compositions";
    EXPECT_EQ(refusal(1, singlePhase({.temperatures = Column({1, 2, 3}), .compositions = Zeros({2, 2})})), message);
    EXPECT_EQ(refusal(1, singlePhase({.pressures = Column({1, 2, 3}), .compositions = Zeros({4, 2})})), message);
}

TEST_F(SinglePhaseArguments, RefuseNamesThatAreNoStrings)
{
    const Array wrongNames[] = {Scalar(1),
                                Empty(),
                                Logical(true),
                                Int32(1),
                                Cell({Text("volume"), Scalar(1)}),
                                Cell({Array()}),
                                Cell({Texts({"volume"})}),
                                Complex(1, 1)};
    for (const Array &names : wrongNames)
        EXPECT_EQ(refusal(1, singlePhase({.names = names})),
                  "Expected string or cell array of strings for property names");
}

TEST_F(SinglePhaseArguments, RefuseACountOfOutputsAboveTheNamesCount)
{
    EXPECT_EQ(refusal(1, singlePhase({.outputs = Scalar(4), .names = Texts({"volume", "density", "volume"})})),
              "Too many output arguments");
    EXPECT_EQ(refusal(1, singlePhase({.outputs = Scalar(1), .names = EmptyText()})), "Too many output arguments");
    EXPECT_EQ(refusal(1, singlePhase({.outputs = Scalar(1), .names = EmptyCell()})), "Too many output arguments");
}

TEST_F(SinglePhaseArguments, TakeANegativeCountOfOutputsForAHugeOne)
{
    EXPECT_EQ(refusal(1, singlePhase({.outputs = Scalar(-1)})), "Too many output arguments");
    EXPECT_EQ(refusal(1, singlePhase({.outputs = Scalar(-2147483648.0)})), "Too many output arguments");
}

TEST_F(SinglePhaseArguments, TakeACountOfOutputsOfAnyClassThatHoldsANumber)
{
    const Array names = Texts({"volume", "density"});
    const Array twos[] = {Scalar(2), Scalar(2.9), Int32(2), Single(2), Complex(2, 7), Column({2, 9})};
    for (const Array &two : twos)
        EXPECT_EQ(mustReturn(1, singlePhase({.outputs = two, .names = names}))[0].count(), 2u);
    EXPECT_EQ(mustReturn(1, singlePhase({.outputs = Logical(true), .names = names}))[0].count(), 1u);
    // The code of the character 2 is 50.
    EXPECT_EQ(refusal(1, singlePhase({.outputs = Text("2"), .names = names})), "Too many output arguments");
}

TEST_F(SinglePhaseArguments, TakeACountOfOutputsThatIsNoNumberForNone)
{
    const Array names = Texts({"volume", "density"});
    const double infinity = std::numeric_limits<double>::infinity();
    const Array counts[] = {Scalar(notANumber), Scalar(infinity), Scalar(-infinity), Scalar(0.9),
                            Scalar(-0.9),       Empty(),          EmptyCell(),       Cell({Scalar(2)})};
    for (const Array &none : counts)
        EXPECT_EQ(mustReturn(1, singlePhase({.outputs = none, .names = names}))[0].count(), 1u);
}

TEST_F(SinglePhaseArguments, RefuseTemperaturesThatAreNoColumnOfDoubles)
{
    const Array noColumns[] = {Row({300, 310}), Empty(),     Zeros({1, 0}), Zeros({3, 1, 2}),
                               Text("300"),     EmptyText(), EmptyCell(),   CellRow({Scalar(1), Scalar(2)})};
    for (const Array &wrong : noColumns)
        EXPECT_EQ(refusal(1, singlePhase({.temperatures = wrong})), "Expected column array for temperatures");
    for (const Array &wrong : WrongScalars())
        EXPECT_EQ(refusal(1, singlePhase({.temperatures = wrong})),
                  "Expected double precision vector for temperatures");
    EXPECT_EQ(refusal(1, singlePhase({.temperatures = SingleColumn({})})),
              "Expected double precision vector for temperatures");
    EXPECT_EQ(refusal(1, singlePhase({.temperatures = ComplexColumn({300, 310})})),
              "Expected double precision vector for temperatures");
    EXPECT_EQ(refusal(1, singlePhase({.temperatures = Zeros({0, 1})})), "Zero temperatures specified");
}

TEST_F(SinglePhaseArguments, RefusePressuresThatAreNoColumnOfDoubles)
{
    const Array noColumns[] = {Row({1, 2}), Empty(), Zeros({1, 0}), Zeros({3, 1, 2}), Text("300"), EmptyCell()};
    for (const Array &wrong : noColumns)
        EXPECT_EQ(refusal(1, singlePhase({.pressures = wrong})), "Expected column array for pressures");
    for (const Array &wrong : WrongScalars())
        EXPECT_EQ(refusal(1, singlePhase({.pressures = wrong})), "Expected double precision vector for pressures");
    EXPECT_EQ(refusal(1, singlePhase({.pressures = SingleColumn({})})),
              "Expected double precision vector for pressures");
    EXPECT_EQ(refusal(1, singlePhase({.pressures = Zeros({0, 1})})), "Zero pressures specified");
}

TEST_F(SinglePhaseArguments, RefuseCompositionsThatAreNoMatrixOfDoublesWithAColumnPerCompound)
{
    const Array wrongColumns[] = {Scalar(1),     Row({1, 0, 0}), Column({0.5, 0.5}), Empty(),
                                  Zeros({0, 3}), Text("abc"),    EmptyCell(),        Zeros({1, 2, 2})};
    for (const Array &wrong : wrongColumns)
        EXPECT_EQ(refusal(1, singlePhase({.compositions = wrong})),
                  "Invalid number of columns for compositions: must match number of compounds");
    const Array noDoubles[] = {Text("ab"), CellRow({Scalar(1), Scalar(2)}), ComplexRow(2)};
    for (const Array &wrong : noDoubles)
        EXPECT_EQ(refusal(1, singlePhase({.compositions = wrong})),
                  "Expected double precision values for compositions");
    EXPECT_EQ(refusal(1, singlePhase({.compositions = Zeros({0, 2})})), "Zero compositions specified");
}

TEST_F(SinglePhaseArguments, RefuseAPhaseThatIsNoString)
{
    const Array wrongLabels[] = {Scalar(1),         Empty(),      EmptyCell(), CellRow({Text("Vapor"), Text("Liquid")}),
                                 Cell({Scalar(1)}), Logical(true)};
    for (const Array &wrong : wrongLabels)
        EXPECT_EQ(refusal(1, singlePhase({.phase = wrong})), "Expected string value for phase ID");
}

TEST_F(SinglePhaseArguments, RefuseAPhaseThatThePackageHasNot)
{
    for (const char *label : {"Solid", "", " Vapor", "Vapo", "Vapor2", "Overall"})
        EXPECT_EQ(refusal(1, singlePhase({.phase = Text(label)})), "Invalid phase ID");
    EXPECT_EQ(refusal(1, singlePhase({.phase = EmptyText()})), "Invalid phase ID");
    EXPECT_EQ(calculations(), 0);
}

TEST_F(SinglePhaseArguments, NameThePhaseAlsoInACellOfOneString)
{
    EXPECT_EQ(mustReturn(1, singlePhase({.phase = Cell({Text("Vapor")})}))[0].cellMatrix(0), (Rows{{0.025}}));
}

TEST_F(SinglePhaseArguments, TellThePropertyThatIsNotOneOfAPhaseAsItWasWritten)
{
    for (const std::string name : {"Enthalpie", "kvalue", "volume.Dfoo", "volume.", "diffusionCoefficient.Dmoles",
                                   "surfaceTension", "vaporPressure", "temperature", "fraction"})
        EXPECT_EQ(refusal(1, singlePhase({.names = Text(name)})), "Invalid / unsupported 1-phase property: " + name);
    EXPECT_EQ(refusal(1, singlePhase({.outputs = Scalar(2), .names = Texts({"volume", "Enthalpie"})})),
              "Invalid / unsupported 1-phase property: Enthalpie");
    EXPECT_EQ(calculations(), 0);
}

TEST_F(SinglePhaseArguments, ReportTheFirstOfTwoWrongNames)
{
    EXPECT_EQ(refusal(1, singlePhase({.outputs = Scalar(2), .names = Text("first second")})),
              "Invalid / unsupported 1-phase property: first");
    // A wrong shape in front of a wrong name comes first, too.
    EXPECT_EQ(refusal(1, singlePhase({.outputs = Scalar(2),
                                      .names = Text("diffusionCoefficient second"),
                                      .temperatures = Column({300, 310})})),
              "Property calculations cannot be performed at multiple conditions if any property has matrix "
              "dimensions");
}

TEST_F(SinglePhaseArguments, AreLookedAtAfterTheMaterialButForHandleAndNames)
{
    package.answer("GetCompoundList", computationFailed);
    EXPECT_EQ(refusal(1, singlePhase({.names = Scalar(1)})),
              "Expected string or cell array of strings for property names");
    EXPECT_EQ(refusal(1, singlePhase({.outputs = Scalar(2)})), "Too many output arguments");
    EXPECT_EQ(refusal(1, singlePhase({.temperatures = Empty()})),
              "Failed to get list of compounds from property package: computation error");
}

TEST_F(SinglePhaseArguments, AreAllCheckedBeforeThePropertyRoutineIsAskedFor)
{
    package.refuse(InterfaceId<ICapeThermoPropertyRoutine>, oddFailure);
    EXPECT_EQ(refusal(1, singlePhase({.names = Text("kvalue")})), "Invalid / unsupported 1-phase property: kvalue");
    EXPECT_EQ(refusal(1, singlePhase({.phase = Text("Solid")})), "Invalid phase ID");
    // The words name another interface than the one that is missing.
    EXPECT_EQ(refusal(1, singlePhase()),
              "Failed to get ICapeThermoEquilibriumRoutine interface from property package: error code "
              "0x8123ABCD");
}

TEST_F(SinglePhaseArguments, OfAPackageWithoutMaterialContextAreRefusedOnceOnly)
{
    package.refuse(InterfaceId<ICapeThermoMaterialContext>, oddFailure);
    EXPECT_EQ(refusal(1, singlePhase()),
              "Failed to get ICapeThermoMaterialContext from property package: error code 0x8123ABCD");
    package.calcSinglePhase = [](const SinglePhaseCall &request) {
        EXPECT_EQ(request.material.get(), nullptr);
        return S_OK;
    };
    EXPECT_EQ(refusal(1, singlePhase()),
              "Property value for volume was not set by property package during calculation");
}

TEST_F(SinglePhaseArguments, OfAPackageThatRefusesTheMaterialAreRefusedOnceOnly)
{
    package.answer("SetMaterial", computationFailed);
    package.words = Description("no room for a material");
    EXPECT_EQ(refusal(1, singlePhase()), "Failed to set material object on property package: no room for a material");
    package.calcSinglePhase = nullptr;
    EXPECT_EQ(refusal(1, singlePhase()),
              "Property value for volume was not set by property package during calculation");
    EXPECT_EQ(package.calls("SetMaterial"), 1);
}
