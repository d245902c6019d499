// What command 23 asks of a package, and how the package's values come back.
#include "tests/support/package_test.h"

using namespace support;

namespace {

class TwoPhaseResults : public PackageTest {
protected:
    int calculations() const { return package.calls("CalcTwoPhaseProp"); }
    Rows result(const char *name, std::vector<double> values, const TwoPhaseInput &input = {})
    {
        package.calcTwoPhase = StoreTwoPhase({{name, "", std::move(values)}});
        TwoPhaseInput named = input;
        named.names = Text(name);
        return mustReturn(1, twoPhase(named))[0].cellMatrix(0);
    }
};

} // namespace

TEST_F(TwoPhaseResults, OfAScalarPropertyAreOneNumber)
{
    EXPECT_EQ(result("surfaceTension", {0.07}), (Rows{{0.07}}));
    EXPECT_EQ(result("surfaceTension.Dtemperature", {-0.001}), (Rows{{-0.001}}));
}

TEST_F(TwoPhaseResults, PerCompoundAreARow)
{
    EXPECT_EQ(result("kvalue", {2, 0.5}), (Rows{{2, 0.5}}));
    EXPECT_EQ(result("logKvalue.Dpressure", {3, 4}), (Rows{{3, 4}}));
}

TEST_F(TwoPhaseResults, PerCompoundAreARowPerConditionAtFive)
{
    package.calcTwoPhase = [](const TwoPhaseCall &request) {
        Conditions vapor, liquid;
        EXPECT_EQ(request.material.getConditions("Vapor", vapor), S_OK);
        EXPECT_EQ(request.material.getConditions("Liquid", liquid), S_OK);
        return request.material.setTwoPhase("kvalue", {"Vapor", "Liquid"}, "",
                                            {vapor.temperature, vapor.composition[0] / liquid.composition[0]});
    };
    EXPECT_EQ(mustReturn(1, twoPhase({.names = Text("kvalue"),
                                      .temperatures = Column({300, 310, 320, 330, 340}),
                                      .compositions1 = Matrix({{0.5, 0.5}, {0.5, 0.5}, {1, 0}, {0, 1}, {0.25, 0.75}}),
                                      .compositions2 = Row({0.25, 0.75})}))[0]
                  .cellMatrix(0),
              (Rows{{300, 2}, {310, 2}, {320, 4}, {330, 0}, {340, 1}}));
}

TEST_F(TwoPhaseResults, ComeForTheSecondCompositionsAloneToo)
{
    std::vector<double> first, second;
    package.calcTwoPhase = [&](const TwoPhaseCall &request) {
        Conditions vapor, liquid;
        EXPECT_EQ(request.material.getConditions("Vapor", vapor), S_OK);
        EXPECT_EQ(request.material.getConditions("Liquid", liquid), S_OK);
        first.push_back(vapor.composition[0]);
        second.push_back(liquid.composition[0]);
        return request.material.setTwoPhase("surfaceTension", {"Vapor", "Liquid"}, "", {liquid.composition[1]});
    };
    EXPECT_EQ(mustReturn(1, twoPhase({.compositions2 = Matrix({{1, 0}, {0.5, 0.5}, {0, 1}})}))[0].cellMatrix(0),
              (Rows{{0}, {0.5}, {1}}));
    EXPECT_EQ(first, (std::vector<double>{0.25, 0.25, 0.25}));
    EXPECT_EQ(second, (std::vector<double>{1, 0.5, 0}));
}

TEST_F(TwoPhaseResults, OfACompositionDerivativeOfAScalarAreTwoRowsInACellOfTwo)
{
    for (const char *name : {"surfaceTension.DmolFraction", "surfaceTension.Dmoles"}) {
        package.calcTwoPhase = StoreTwoPhase({{name, "", {1, 2, 3, 4}}});
        const CallResult result = mustReturn(1, twoPhase({.names = Text(name)}));
        const Array parts = result[0].element(0);
        EXPECT_EQ(parts.classId(), mxCELL_CLASS);
        EXPECT_EQ(parts.dimensions(), (std::vector<std::size_t>{1, 2}));
        EXPECT_EQ(parts.cellMatrix(0), (Rows{{1, 2}}));
        EXPECT_EQ(parts.cellMatrix(1), (Rows{{3, 4}}));
    }
}

TEST_F(TwoPhaseResults, OfACompositionDerivativeOfAScalarHaveARowPerCondition)
{
    makeTernary();
    package.calcTwoPhase = [&](const TwoPhaseCall &request) {
        const double c = calculations();
        return request.material.setTwoPhase("surfaceTension.DmolFraction", {"Vapor", "Liquid"}, "",
                                            {10 * c + 1, 10 * c + 2, 10 * c + 3, 10 * c + 4, 10 * c + 5, 10 * c + 6});
    };
    const CallResult result = mustReturn(1, twoPhase({.names = Text("surfaceTension.DmolFraction"),
                                                      .pressures = Column({1, 2}),
                                                      .compositions1 = Row({0.5, 0.25, 0.25}),
                                                      .compositions2 = Row({0.25, 0.5, 0.25})}));
    EXPECT_EQ(result[0].element(0).cellMatrix(0), (Rows{{11, 12, 13}, {21, 22, 23}}));
    EXPECT_EQ(result[0].element(0).cellMatrix(1), (Rows{{14, 15, 16}, {24, 25, 26}}));
}

TEST_F(TwoPhaseResults, OfACompositionDerivativePerCompoundAreTwoSquares)
{
    package.calcTwoPhase = StoreTwoPhase({{"kvalue.DmolFraction", "", {1, 2, 3, 4, 5, 6, 7, 8}}});
    const Array parts = mustReturn(1, twoPhase({.names = Text("kvalue.DmolFraction")}))[0].element(0);
    EXPECT_EQ(parts.cellMatrix(0), (Rows{{1, 3}, {2, 4}}));
    EXPECT_EQ(parts.cellMatrix(1), (Rows{{5, 7}, {6, 8}}));
}

TEST_F(TwoPhaseResults, OfSeveralNamesComeFromOneCallPerCondition)
{
    std::vector<std::vector<WideString>> asked;
    const auto store = StoreTwoPhase(
        {{"surfaceTension.Dmoles", "", {1, 2, 3, 4}}, {"kvalue", "", {5, 6}}, {"surfaceTension", "", {7}}});
    package.calcTwoPhase = [&](const TwoPhaseCall &request) {
        asked.push_back(request.properties);
        return store(request);
    };
    const CallResult result =
        mustReturn(1, twoPhase({.outputs = Scalar(3),
                                .names = Text("kvalue surfaceTension.Dmoles surfaceTension logKvalue"),
                                .temperatures = Column({300, 310})}));
    EXPECT_EQ(result[0].dimensions(), (std::vector<std::size_t>{3, 1}));
    EXPECT_EQ(result[0].cellMatrix(0), (Rows{{5, 6}, {5, 6}}));
    EXPECT_EQ(result[0].element(1).cellMatrix(0), (Rows{{1, 2}, {1, 2}}));
    EXPECT_EQ(result[0].element(1).cellMatrix(1), (Rows{{3, 4}, {3, 4}}));
    EXPECT_EQ(result[0].cellMatrix(2), (Rows{{7}, {7}}));
    const std::vector<WideString> all = Names({"kvalue", "surfaceTension.Dmoles", "surfaceTension"});
    EXPECT_EQ(asked, (std::vector<std::vector<WideString>>{all, all}));
}

TEST_F(TwoPhaseResults, AreOfTheNamesAndPhasesOfEachCall)
{
    std::vector<std::vector<WideString>> names, phases;
    const auto store = StoreTwoPhase({{"kvalue", "", {5, 6}}, {"surfaceTension", "", {7}}});
    package.calcTwoPhase = [&](const TwoPhaseCall &request) {
        names.push_back(request.properties);
        phases.push_back(request.phases);
        return store(request);
    };
    mustReturn(1, twoPhase({.names = Text("kvalue")}));
    mustReturn(1, twoPhase({.outputs = Scalar(2),
                            .names = Text("surfaceTension kvalue"),
                            .phase1 = Text("liquid"),
                            .phase2 = Text("vapor")}));
    EXPECT_EQ(names, (std::vector<std::vector<WideString>>{Names({"kvalue"}), Names({"surfaceTension", "kvalue"})}));
    EXPECT_EQ(phases, (std::vector<std::vector<WideString>>{Names({"Vapor", "Liquid"}), Names({"liquid", "vapor"})}));
}

TEST_F(TwoPhaseResults, AreThoseOfTheFirstNameWhenNoOutputIsRequested)
{
    package.calcTwoPhase = StoreTwoPhase({{"kvalue", "", {5, 6}}});
    const CallResult result = mustReturn(1, twoPhase({.outputs = Scalar(0), .names = Text("kvalue nonsense")}));
    EXPECT_EQ(result[0].count(), 1u);
    EXPECT_EQ(result[0].cellMatrix(0), (Rows{{5, 6}}));
}

TEST_F(TwoPhaseResults, OfNoNamesAreACellOfNoRows)
{
    EXPECT_EQ(mustReturn(1, twoPhase({.outputs = Scalar(0), .names = EmptyCell()}))[0].dimensions(),
              (std::vector<std::size_t>{0, 1}));
    EXPECT_EQ(calculations(), 1);
}

TEST_F(TwoPhaseResults, AreOfPhasesInAnyCaseAndThePackageGetsTheLabelsAsTyped)
{
    std::vector<WideString> labels;
    package.calcTwoPhase = [&](const TwoPhaseCall &request) {
        labels = request.phases;
        return request.material.setTwoPhase("SURFACETENSION", {"LIQUID", "vapor"}, "", {0.07});
    };
    EXPECT_EQ(mustReturn(1, twoPhase({.phase1 = Text("liquid"), .phase2 = Text("VAPOR")}))[0].cellMatrix(0),
              (Rows{{0.07}}));
    EXPECT_EQ(labels, Names({"liquid", "VAPOR"}));
}

TEST_F(TwoPhaseResults, OfThePairInTheOtherOrderAreNotFound)
{
    const char *message = "Property value was not set by property package during calculation";
    package.calcTwoPhase = [](const TwoPhaseCall &request) {
        return request.material.setTwoPhase("surfaceTension", {"Liquid", "Vapor"}, "", {0.07});
    };
    EXPECT_EQ(refusal(1, twoPhase()), message);
    EXPECT_EQ(mustReturn(1, twoPhase({.phase1 = Text("Liquid"), .phase2 = Text("Vapor")}))[0].cellMatrix(0),
              (Rows{{0.07}}));
    EXPECT_EQ(refusal(1, twoPhase()), message);
}

TEST_F(TwoPhaseResults, ThatThePackageDidNotSetAreAnErrorThatNamesNoProperty)
{
    package.calcTwoPhase = StoreTwoPhase({{"kvalue", "", {1, 2}}});
    EXPECT_EQ(refusal(1, twoPhase({.outputs = Scalar(2), .names = Text("kvalue surfaceTension")})),
              "Property value was not set by property package during calculation");
    EXPECT_EQ(refusal(1, twoPhase({.names = Text("kvalue.Dtemperature")})),
              "Property value was not set by property package during calculation");
}

TEST_F(TwoPhaseResults, StoredAtAnEarlierConditionCountAsSet)
{
    package.calcTwoPhase = [&](const TwoPhaseCall &request) {
        return calculations() == 1 ? request.material.setTwoPhase("surfaceTension", {"Vapor", "Liquid"}, "", {0.07})
                                   : S_OK;
    };
    EXPECT_EQ(mustReturn(1, twoPhase({.pressures = Column({1, 2})}))[0].cellMatrix(0), (Rows{{0.07}, {0.07}}));
    EXPECT_EQ(mustReturn(1, twoPhase())[0].cellMatrix(0), (Rows{{0.07}}));
}

TEST_F(TwoPhaseResults, AreNotConvertedAndTheBasisIsThatOfTheCompositions)
{
    useBasis("mass");
    Conditions vapor, liquid;
    package.calcTwoPhase = [&](const TwoPhaseCall &request) {
        EXPECT_EQ(request.material.getConditions("Vapor", vapor), S_OK);
        EXPECT_EQ(request.material.getConditions("Liquid", liquid), S_OK);
        return request.material.setTwoPhase("kvalue", {"Vapor", "Liquid"}, "", {5, 6});
    };
    EXPECT_EQ(mustReturn(1, twoPhase({.names = Text("kvalue"),
                                      .compositions1 = Row({0.5, 0.5}),
                                      .compositions2 = Row({0.2, 0.8})}))[0]
                  .cellMatrix(0),
              (Rows{{5, 6}}));
    // 0.5/18 to 0.5/36 is 2 to 1; 0.2/18 to 0.8/36 is 1 to 2.
    ExpectNear({vapor.composition, liquid.composition}, {{2.0 / 3, 1.0 / 3}, {1.0 / 3, 2.0 / 3}});
}

TEST_F(TwoPhaseResults, DeclareBothPhasesPresent)
{
    std::vector<WideString> present;
    package.phaseLabels = TextArray({"Vapor", "Liquid", "Solid"});
    package.statesOfAggregation = TextArray({"Vapor", "Liquid", "Solid"});
    package.calcTwoPhase = [&](const TwoPhaseCall &request) {
        std::vector<LONG> status;
        EXPECT_EQ(request.material.getPresentPhases(present, status), S_OK);
        return request.material.setTwoPhase("surfaceTension", request.phases, "", {0.07});
    };
    mustReturn(1, twoPhase({.phase1 = Text("Solid"), .phase2 = Text("Vapor")}));
    EXPECT_EQ(present, Names({"Vapor", "Solid"}));
}

TEST_F(TwoPhaseResults, OfAFailedCalculationAreTheWordsOfThePackageAndTheConditionsGivenInPlural)
{
    package.calcTwoPhase = StoreTwoPhase({{"surfaceTension", "", {0.07}}});
    package.answer("CalcTwoPhaseProp", computationFailed, 1);
    EXPECT_EQ(refusal(1, twoPhase()), "CalcTwoPhaseProp failed: computation error");
    package.answer("CalcTwoPhaseProp", computationFailed, 3);
    EXPECT_EQ(refusal(1, twoPhase({.pressures = Column({100000, 200000})})),
              "CalcTwoPhaseProp failed, at 200000 Pa: computation error");
    package.words = Description("one phase only");
    package.answer("CalcTwoPhaseProp", computationFailed, 5);
    EXPECT_EQ(refusal(1, twoPhase({.temperatures = Column({300, 310.5})})),
              "CalcTwoPhaseProp failed, at 310.5 K: one phase only");
    package.answer("CalcTwoPhaseProp", computationFailed, 7);
    EXPECT_EQ(refusal(1, twoPhase({.temperatures = Column({300, 310.5}), .pressures = Column({1, 2e7})})),
              "CalcTwoPhaseProp failed, at 2e+07 Pa, at 310.5 K: one phase only");
    package.answer("CalcTwoPhaseProp", computationFailed, 9);
    EXPECT_EQ(refusal(1, twoPhase({.compositions1 = Zeros({2, 2})})), "CalcTwoPhaseProp failed: one phase only");
    EXPECT_EQ(mustReturn(1, twoPhase())[0].cellMatrix(0), (Rows{{0.07}}));
}

TEST_F(TwoPhaseResults, OfAFailedCalculationHaveTheWordsOfThePropertyRoutine)
{
    package.answer("CalcTwoPhaseProp", computationFailed);
    package.words = Description("one phase only");
    package.words.onlyFrom = &InterfaceId<ICapeThermoPropertyRoutine>;
    EXPECT_EQ(refusal(1, twoPhase()), "CalcTwoPhaseProp failed: one phase only");
    package.words.onlyFrom = &InterfaceId<ICapeThermoEquilibriumRoutine>;
    EXPECT_EQ(refusal(1, twoPhase()), "CalcTwoPhaseProp failed: computation error");
}

TEST_F(TwoPhaseResults, ComeAlsoWithAnotherSuccessThanOk)
{
    package.answer("CalcTwoPhaseProp", S_FALSE);
    EXPECT_EQ(result("surfaceTension", {0.07}), (Rows{{0.07}}));
}

TEST_F(TwoPhaseResults, ComeWithWhatThePackageLogged)
{
    package.onCall = [this](const std::string &method) {
        if (method == "CalcTwoPhaseProp") {
            EXPECT_EQ(LogMessage(package, "extrapolating"), S_OK);
        }
    };
    package.calcTwoPhase = StoreTwoPhase({{"surfaceTension", "", {0.07}}});
    const CallResult shown = mustReturn(1, twoPhase({.pressures = Column({1, 2})}));
    EXPECT_EQ(shown[0].cellMatrix(0), (Rows{{0.07}, {0.07}}));
    EXPECT_EQ(shown.warnings, (std::vector<std::string>{"CAPE-OPEN: extrapolating", "CAPE-OPEN: extrapolating"}));
    showWarnings(false);
    EXPECT_EQ(mustReturn(1, twoPhase()).warnings, std::vector<std::string>());
}

TEST_F(TwoPhaseResults, RefusedByTheMaterialAreThePackagesOwnFailure)
{
    package.words = Description("the material refused");
    package.calcTwoPhase = StoreTwoPhase({{"surfaceTension", "mole", {0.07}}});
    EXPECT_EQ(refusal(1, twoPhase()), "CalcTwoPhaseProp failed: the material refused");
    package.calcTwoPhase = StoreTwoPhase({{"surfaceTension", "", {0.07, 0.08}}});
    EXPECT_EQ(refusal(1, twoPhase()), "CalcTwoPhaseProp failed: the material refused");
    EXPECT_EQ(result("surfaceTension", {0.07}), (Rows{{0.07}}));
}

// Accented letters differ by case for the phases of a package but not for the names of its values.
TEST_F(TwoPhaseResults, LieUnderTheLabelAsTypedInTheCaseOfItsAccentedLetters)
{
    package.phaseLabels = TextArray({"Vapor", "Flüssig"});
    const TwoPhaseInput input = {.phase2 = Text("FLÜSSIG")};
    package.calcTwoPhase = [](const TwoPhaseCall &request) {
        EXPECT_EQ(request.phases, Names({"Vapor", "FLÜSSIG"}));
        return request.material.setTwoPhase("surfaceTension", {"Vapor", "Flüssig"}, "", {0.07});
    };
    EXPECT_EQ(refusal(1, twoPhase(input)), "Property value was not set by property package during calculation");
    package.calcTwoPhase = [](const TwoPhaseCall &request) {
        return request.material.setTwoPhase("surfaceTension", request.phases, "", {0.08});
    };
    EXPECT_EQ(mustReturn(1, twoPhase(input))[0].cellMatrix(0), (Rows{{0.08}}));
}

TEST_F(TwoPhaseResults, PrepareTheirPhasesAlsoWhenThePackageHasNoPropertyRoutine)
{
    package.phaseLabels = TextArray({"Vapor", "Liquid", "Solid"});
    package.statesOfAggregation = TextArray({"Vapor", "Liquid", "Solid"});
    package.refuse(InterfaceId<ICapeThermoPropertyRoutine>);
    call(1, twoPhase({.phase1 = Text("Solid"), .phase2 = Text("Vapor")}));
    ASSERT_TRUE(package.material);
    const MaterialClient material(package.material.get());
    std::vector<WideString> present;
    std::vector<LONG> status;
    EXPECT_EQ(material.getPresentPhases(present, status), S_OK);
    EXPECT_EQ(present, Names({"Vapor", "Solid"}));
    // The compositions that are there are now said to be per mole.
    for (const char *phase : {"Solid", "Vapor"})
        EXPECT_EQ(material.setSinglePhase("fraction", phase, "mass", {0.2, 0.8}), S_OK);
    call(1, twoPhase({.phase1 = Text("Solid"), .phase2 = Text("Vapor")}));
    for (const char *phase : {"Solid", "Vapor"}) {
        std::vector<double> fractions;
        EXPECT_EQ(material.getSinglePhase("fraction", phase, "mole", fractions), S_OK);
        EXPECT_EQ(fractions, (std::vector<double>{0.2, 0.8}));
    }
    // A refusal in front of that leaves the material alone.
    EXPECT_EQ(material.setPresentPhases({}), S_OK);
    call(1, twoPhase({.phase2 = Text("vapor")}));
    EXPECT_EQ(material.getPresentPhases(present, status), S_OK);
    EXPECT_EQ(present, Names({}));
}

TEST_F(TwoPhaseResults, SurviveAPackageThatClearsTheMaterialOrTakesPhasesAway)
{
    package.calcTwoPhase = [](const TwoPhaseCall &request) {
        EXPECT_EQ(request.material.get()->ClearAllProps(), S_OK);
        const HRESULT hr = request.material.setTwoPhase("surfaceTension", request.phases, "", {0.07});
        return FAILED(hr) ? hr : request.material.setPresentPhases({});
    };
    EXPECT_EQ(mustReturn(1, twoPhase({.pressures = Column({1, 2})}))[0].cellMatrix(0), (Rows{{0.07}, {0.07}}));
    package.calcTwoPhase = [](const TwoPhaseCall &request) { return request.material.get()->ClearAllProps(); };
    EXPECT_EQ(refusal(1, twoPhase()), "Property value was not set by property package during calculation");
}

TEST_F(TwoPhaseResults, LeaveSinglePhaseResultsOfTheSamePhaseAlone)
{
    package.calcSinglePhase = StoreSinglePhase({{"volume", "mole", {0.5}}});
    package.calcTwoPhase = StoreTwoPhase({{"surfaceTension", "", {0.07}}});
    mustReturn(1, singlePhase());
    mustReturn(1, twoPhase());
    package.calcSinglePhase = nullptr;
    EXPECT_EQ(mustReturn(1, singlePhase())[0].cellMatrix(0), (Rows{{0.5}}));
}
