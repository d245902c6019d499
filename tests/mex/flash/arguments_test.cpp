// What command 24 refuses, with which words and in which order.
#include "tests/mex/flash/list_hint.h"
#include "tests/support/package_test.h"

using namespace support;

namespace {

class FlashArguments : public PackageTest {
protected:
    void SetUp() override
    {
        PackageTest::SetUp();
        package.calcEquilibrium = StoreEquilibrium({{"Liquid", 1, {0.5, 0.5}}}, 300, 100000);
    }
    int flashes() const { return package.calls("CalcEquilibrium"); }
};

} // namespace

TEST_F(FlashArguments, GiveExactlyFiveResults)
{
    for (int outputs : {0, 1, 4, 6})
        EXPECT_EQ(refusal(outputs, flash()), "Invalid number of output arguments for Verdanth");
    mustReturn(5, flash());
}

TEST_F(FlashArguments, AreCheckedInTheOrderOfTheCommandValuesBeforeProperties)
{
    expectCheckedInOrder(5, flash(),
                         {{1, Scalar(1), "Invalid property package handle"},
                          {2, Scalar(1), "Invalid number of values for compositions: must match number of compounds"},
                          {2, Int32Column({1, 2}), "Expected double precision values for compositions"},
                          {4, Row({1, 2}), "Invalid number of values for value 1: scalar expected"},
                          {4, Int32(300), "Expected double precision value for value 1"},
                          {6, Empty(), "Invalid number of values for value 2: scalar expected"},
                          {6, Text("1"), "Expected double precision value for value 2"},
                          {3, Scalar(1), "Expected string value for property 1"},
                          {3, Text("Enthalpie"), "Not a valid flash property: Enthalpie" + listHint},
                          {5, Scalar(1), "Expected string value for property 2"},
                          {5, Text("heatCapacityCp"), "Not a valid flash property: heatCapacityCp" + listHint},
                          {7, Scalar(1), "Expected string value for solution type"}});
}

TEST_F(FlashArguments, RefuseACompositionWithoutOneNumberPerCompound)
{
    for (const Array &wrong : {Scalar(1), Row({0.5, 0.25, 0.25}), Empty(), Zeros({2, 2}), Text("abc"), EmptyCell()})
        EXPECT_EQ(refusal(5, flash({.composition = wrong})),
                  "Invalid number of values for compositions: must match number of compounds");
    for (const Array &wrong :
         {Text("ab"), SingleColumn({0.5, 0.5}), ComplexColumn({0.5, 0.5}), ComplexRow(2), Cell({Scalar(1), Scalar(2)})})
        EXPECT_EQ(refusal(5, flash({.composition = wrong})), "Expected double precision values for compositions");
}

TEST_F(FlashArguments, TakeACompositionInAnyArrangement)
{
    std::vector<std::vector<double>> seen;
    package.calcEquilibrium = [&](const EquilibriumCall &request) {
        Conditions overall;
        EXPECT_EQ(request.material.getOverallConditions(overall), S_OK);
        seen.push_back(overall.composition);
        return request.material.setPresentPhases({});
    };
    mustReturn(5, flash({.composition = Row({0.25, 0.75})}));
    mustReturn(5, flash({.composition = Column({0.25, 0.75})}));
    mustReturn(5, flash({.composition = Zeros({1, 1, 2})}));
    EXPECT_EQ(seen, (Rows{{0.25, 0.75}, {0.25, 0.75}, {0, 0}}));
}

TEST_F(FlashArguments, RefuseValuesThatAreNoRealDoubleScalars)
{
    for (const Array &wrong : {Row({1, 2}), Empty(), Zeros({0, 1}), EmptyText(), EmptyCell(), Text("300")}) {
        EXPECT_EQ(refusal(5, flash({.value1 = wrong})), "Invalid number of values for value 1: scalar expected");
        EXPECT_EQ(refusal(5, flash({.value2 = wrong})), "Invalid number of values for value 2: scalar expected");
    }
    for (const Array &wrong : WrongScalars()) {
        EXPECT_EQ(refusal(5, flash({.value1 = wrong})), "Expected double precision value for value 1");
        EXPECT_EQ(refusal(5, flash({.value2 = wrong})), "Expected double precision value for value 2");
    }
    EXPECT_EQ(flashes(), 0);
}

TEST_F(FlashArguments, RefusePropertiesAndSolutionTypesThatAreNoStrings)
{
    for (const Array &wrong : {Scalar(1), Empty(), EmptyCell(), Cell({Scalar(1)}), Texts({"pressure", "pressure"}),
                               Logical(false), Int32(3)}) {
        EXPECT_EQ(refusal(5, flash({.property1 = wrong})), "Expected string value for property 1");
        EXPECT_EQ(refusal(5, flash({.property2 = wrong})), "Expected string value for property 2");
        EXPECT_EQ(refusal(5, flash({.solutionType = wrong})), "Expected string value for solution type");
    }
    EXPECT_EQ(flashes(), 0);
}

TEST_F(FlashArguments, MayBeCellsOfOneString)
{
    mustReturn(5, flash({.property1 = Cell({Text("temperature")}),
                         .property2 = Cell({Text("pressure")}),
                         .solutionType = Cell({Text("Unspecified")})}));
}

TEST_F(FlashArguments, TellTheConstraintThatIsNoFlashPropertyAsItWasWritten)
{
    for (const std::string name : {"heatCapacityCp", "enthalpy.Dtemperature", "Enthalpy.DmolFraction", "density",
                                   "kvalue", "fugacity", "excessEnthalpy", "", " enthalpy", "temperature.Dpressure",
                                   "phaseFraction", "Temperature Pressure", "100% \\n"}) {
        EXPECT_EQ(refusal(5, flash({.property1 = Text(name)})), "Not a valid flash property: " + name + listHint);
        EXPECT_EQ(refusal(5, flash({.property2 = Text(name)})), "Not a valid flash property: " + name + listHint);
    }
    EXPECT_EQ(flashes(), 0);
}

TEST_F(FlashArguments, TakeEveryPropertyWithAnOverallValueAlsoIfThePackageDoesNotListIt)
{
    package.singlePhaseProperties = TextArray({"viscosity"});
    for (const char *name : {"enthalpy", "enthalpyF", "enthalpyNF", "entropy", "entropyF", "entropyNF", "gibbsEnergy",
                             "helmholtzEnergy", "internalEnergy", "volume"})
        mustReturn(5, flash({.property1 = Text(name)}));
    EXPECT_EQ(flashes(), 10);
}

TEST_F(FlashArguments, RefuseAVaporFractionOnlyOfAPackageWithoutVapor)
{
    package.statesOfAggregation = TextArray({"Liquid", "Solid"});
    mustReturn(5, flash());
    EXPECT_EQ(refusal(5, flash({.property1 = Text("vaporFraction")})), "Package does not expose vapor phase");
    EXPECT_EQ(refusal(5, flash({.property2 = Text("VAPORFRACTION"), .solutionType = Scalar(1)})),
              "Package does not expose vapor phase");
    mustReturn(5, flash());
}

TEST_F(FlashArguments, AreLookedAtAfterTheMaterialButForTheHandle)
{
    package.answer("GetCompoundList", computationFailed);
    EXPECT_EQ(refusal(5, flash({.composition = Empty()})),
              "Failed to get list of compounds from property package: computation error");
}

TEST_F(FlashArguments, NamePropertiesThatAreLookedAtAfterTheEquilibriumRoutineIsAskedFor)
{
    package.refuse(InterfaceId<ICapeThermoEquilibriumRoutine>, oddFailure);
    EXPECT_EQ(refusal(5, flash({.value2 = Empty()})), "Invalid number of values for value 2: scalar expected");
    const std::string message =
        "Failed to get ICapeThermoEquilibriumRoutine interface from property package: error code 0x8123ABCD";
    EXPECT_EQ(refusal(5, flash({.property1 = Scalar(1)})), message);
    EXPECT_EQ(refusal(5, flash()), message);
}

TEST_F(FlashArguments, OfAPackageWithoutMaterialContextAreRefusedOnceOnly)
{
    package.refuse(InterfaceId<ICapeThermoMaterialContext>, oddFailure);
    EXPECT_EQ(refusal(5, flash()),
              "Failed to get ICapeThermoMaterialContext from property package: error code 0x8123ABCD");
    package.calcEquilibrium = nullptr;
    mustReturn(5, flash());
}
