// Overall properties as results of command 25: which calculations the package is asked for, how the
// phases are averaged, and what happens when a calculation fails. All without a conversion.
#include "tests/mex/batch_flash/two_phases.h"
#include "tests/support/package_test.h"

#include <cmath>

using namespace support;

namespace {

class PostFlash : public PackageTest {
protected:
    // Vapor and liquid in every flash.
    void find(double vapor, double liquid)
    {
        package.calcEquilibrium =
            StoreEquilibrium({{"Vapor", vapor, {0.75, 0.25}}, {"Liquid", liquid, {0.25, 0.75}}}, 300, 1e5);
    }
    // Enthalpies of the two phases, per mole.
    void calculate(double vapor, double liquid) { package.calcSinglePhase = StoreEnthalpies("mole", vapor, liquid); }
    CallResult report(std::size_t rows, const char *names = "enthalpy", double outputs = 1)
    {
        return mustReturn(1,
                          batch({.compositions = Zeros({rows, 2}), .outputs = Scalar(outputs), .names = Text(names)}));
    }
    Rows enthalpies(std::size_t rows = 1) { return report(rows)[0].cellMatrix(0); }
};

} // namespace

TEST_F(PostFlash, EnthalpyOfASinglePhaseIsThatOfThePhase)
{
    package.calcEquilibrium = StoreEquilibrium({{"Liquid", 1, {0.5, 0.5}}}, 300, 1e5);
    calculate(1, -1234.5);
    EXPECT_EQ(enthalpies(), (Rows{{-1234.5}}));
}

TEST_F(PostFlash, AverageIsWeightedByThePhaseFractions)
{
    find(0.25, 0.75);
    calculate(1000, 2000);
    EXPECT_EQ(enthalpies(), (Rows{{1750}})); // 250 + 1500
}

TEST_F(PostFlash, AverageIsNotDividedByTheSumOfTheFractions)
{
    find(1, 2);
    calculate(1000, 2000);
    EXPECT_EQ(enthalpies(), (Rows{{5000}}));
}

TEST_F(PostFlash, AverageIsOfEveryRow)
{
    package.calcEquilibrium = [this](const EquilibriumCall &request) {
        const double vapor = 0.25 * package.calls("CalcEquilibrium");
        return request.material.setEquilibrium({{"Vapor", vapor, {0.75, 0.25}}, {"Liquid", 1 - vapor, {0.25, 0.75}}},
                                               300, 1e5);
    };
    calculate(1000, 2000);
    EXPECT_EQ(enthalpies(3), (Rows{{1750}, {1500}, {1250}}));
}

TEST_F(PostFlash, PropertiesAreCalculatedTogetherOncePerPresentPhase)
{
    std::vector<std::pair<WideString, std::vector<WideString>>> asked;
    find(0.5, 0.5);
    package.calcSinglePhase = [&](const SinglePhaseCall &request) {
        asked.emplace_back(request.phase, request.properties);
        EXPECT_EQ(request.material.setSinglePhase("enthalpy", request.phase, "mole", {8}), S_OK);
        return request.material.setSinglePhase("volume", request.phase, "mole", {2});
    };
    const CallResult result = report(2, "Temperature VOLUME Pressure enthalpy vaporFraction", 5);
    const std::vector<WideString> names = Names({"VOLUME", "enthalpy"});
    EXPECT_EQ(asked,
              (std::vector<std::pair<WideString, std::vector<WideString>>>{
                  {Wide("Vapor"), names}, {Wide("Liquid"), names}, {Wide("Vapor"), names}, {Wide("Liquid"), names}}));
    EXPECT_EQ(result[0].cellMatrix(0), (Rows{{300}, {300}}));
    EXPECT_EQ(result[0].cellMatrix(1), (Rows{{2}, {2}}));
    EXPECT_EQ(result[0].cellMatrix(2), (Rows{{1e5}, {1e5}}));
    EXPECT_EQ(result[0].cellMatrix(3), (Rows{{8}, {8}}));
    EXPECT_EQ(result[0].cellMatrix(4), (Rows{{0.5}, {0.5}}));
}

TEST_F(PostFlash, CalculationsAreNotMadeWhenOnlyTemperatureAndPressureAreAsked)
{
    find(0.5, 0.5);
    report(3, "Temperature Pressure", 2);
    report(3, "vaporFraction");
    EXPECT_EQ(package.calls("CalcSinglePhaseProp"), 0);
}

TEST_F(PostFlash, CalculationsAreNotMadeForTheNamesOfAnEarlierCommand)
{
    find(0.5, 0.5);
    package.calcSinglePhase = StoreSinglePhase({{"volume", "mole", {2}}, {"enthalpy", "mole", {8}}});
    mustReturn(1, singlePhase());
    report(3, "Temperature Pressure vaporFraction", 3);
    EXPECT_EQ(package.calls("CalcSinglePhaseProp"), 1);
    report(1, "enthalpy volume", 2);
    EXPECT_EQ(package.calls("CalcSinglePhaseProp"), 3);
    report(3, " ", 0);
    report(3, "vaporFraction");
    EXPECT_EQ(package.calls("CalcSinglePhaseProp"), 3);
}

TEST_F(PostFlash, CalculationsAreMadeForTheNamesOfTheirOwnCommand)
{
    find(0, 1);
    std::vector<std::vector<WideString>> asked;
    package.calcSinglePhase = [&](const SinglePhaseCall &request) {
        asked.push_back(request.properties);
        return request.material.setPresentPhases({});
    };
    report(1, "enthalpy");
    report(1, "volume entropy", 2);
    EXPECT_EQ(asked, (std::vector<std::vector<WideString>>{Names({"enthalpy"}), Names({"volume", "entropy"})}));
}

TEST_F(PostFlash, CalculationsAreNotMadeForNamesThatAreCutAway)
{
    find(0.5, 0.5);
    report(1, "Temperature enthalpy");
    EXPECT_EQ(package.calls("CalcSinglePhaseProp"), 0);
}

TEST_F(PostFlash, CalculationsAreMadeForPresentPhasesOnly)
{
    package.calcEquilibrium = StoreEquilibrium({{"Liquid", 1, {0.5, 0.5}}}, 300, 1e5);
    std::vector<WideString> phases;
    package.calcSinglePhase = [&](const SinglePhaseCall &request) {
        phases.push_back(request.phase);
        return request.material.setSinglePhase("enthalpy", request.phase, "mole", {1});
    };
    enthalpies(2);
    EXPECT_EQ(phases, Names({"Liquid", "Liquid"}));
}

TEST_F(PostFlash, CalculationsAreMadeForAPhaseOfFractionZeroWithoutAnyEffect)
{
    find(0, 1);
    calculate(1e30, 7);
    EXPECT_EQ(enthalpies(), (Rows{{7}}));
    EXPECT_EQ(package.calls("CalcSinglePhaseProp"), 2);
}

TEST_F(PostFlash, PhaseOfNoOrNegativeOrMissingFractionAddsNothingAndNeedsNoValue)
{
    for (double fraction : {0.0, -0.5, notANumber, undefinedNumber}) {
        package.calcEquilibrium = [fraction](const EquilibriumCall &request) {
            const HRESULT hr =
                request.material.setEquilibrium({{"Vapor", 0.5, {0.75, 0.25}}, {"Liquid", 1, {0.25, 0.75}}}, 300, 1e5);
            EXPECT_EQ(FAILED(request.material.setSinglePhase("phaseFraction", "Vapor", "mole", {fraction})),
                      !(fraction > -1)); // the two missing ones
            return hr;
        };
        package.calcSinglePhase = [](const SinglePhaseCall &request) {
            return request.phase == Wide("Vapor") ? S_OK
                                                  : request.material.setSinglePhase("enthalpy", "Liquid", "mole", {7});
        };
        EXPECT_EQ(enthalpies(), (Rows{{7}}));
    }
}

TEST_F(PostFlash, PhaseOfFractionZeroMayHaveItsFractionInAnotherBasis)
{
    package.calcEquilibrium = [](const EquilibriumCall &request) {
        const HRESULT hr =
            request.material.setEquilibrium({{"Vapor", 1, {0.75, 0.25}}, {"Liquid", 1, {0.25, 0.75}}}, 300, 1e5);
        EXPECT_EQ(request.material.setSinglePhase("phaseFraction", "Liquid", "mass", {0}), S_OK);
        return hr;
    };
    calculate(5, 7);
    EXPECT_EQ(enthalpies(), (Rows{{5}}));
}

TEST_F(PostFlash, AverageOfARowWithoutPresentPhasesIsZero)
{
    package.calcEquilibrium = [](const EquilibriumCall &request) { return request.material.setPresentPhases({}); };
    calculate(5, 7);
    const CallResult result = report(2);
    EXPECT_EQ(result[0].cellMatrix(0), (Rows{{0}, {0}}));
    EXPECT_EQ(result.warnings, std::vector<std::string>());
    EXPECT_EQ(package.calls("CalcSinglePhaseProp"), 0);
}

TEST_F(PostFlash, AverageOfMissingValuesIsNaN)
{
    find(0.5, 0.5);
    calculate(notANumber, 7);
    const Rows values = enthalpies();
    EXPECT_TRUE(std::isnan(values.at(0).at(0)));
}

TEST_F(PostFlash, FailureIsAWarningAndSkipsTheRemainingPhases)
{
    find(0.5, 0.5);
    calculate(1000, 2000);
    enthalpies(); // both phases have a value now
    package.answer("CalcSinglePhaseProp", computationFailed, 3);
    package.words = Description("no root for 100% of it");
    const CallResult result = report(2);
    EXPECT_EQ(result.warnings,
              (std::vector<std::string>{
                  "CAPE-OPEN: Failed to calculate post-flash Vapor properties: no root for 100% of it"}));
    EXPECT_EQ(result[0].cellMatrix(0), (Rows{{1500}, {1500}}));
    EXPECT_EQ(package.calls("CalcSinglePhaseProp"), 5); // two, one that failed, two
}

TEST_F(PostFlash, FailureIsToldInTheWordsOfThePropertyRoutine)
{
    find(0.5, 0.5);
    calculate(1000, 2000);
    enthalpies(); // both phases have a value now
    package.answer("CalcSinglePhaseProp", computationFailed);
    package.words = Description("no root");
    package.words.onlyFrom = &InterfaceId<ICapeThermoPropertyRoutine>;
    EXPECT_EQ(report(1).warnings,
              (std::vector<std::string>{"CAPE-OPEN: Failed to calculate post-flash Vapor properties: no root"}));
    package.words.onlyFrom = &InterfaceId<ICapeThermoEquilibriumRoutine>;
    EXPECT_EQ(
        report(1).warnings,
        (std::vector<std::string>{"CAPE-OPEN: Failed to calculate post-flash Vapor properties: computation error"}));
}

TEST_F(PostFlash, AnotherSuccessThanOkIsNoFailure)
{
    find(0.5, 0.5);
    calculate(1000, 2000);
    package.answer("CalcSinglePhaseProp", S_FALSE);
    const CallResult result = report(1);
    EXPECT_EQ(result[0].cellMatrix(0), (Rows{{1500}}));
    EXPECT_EQ(result.warnings, std::vector<std::string>());
    EXPECT_EQ(package.calls("CalcSinglePhaseProp"), 2);
}

TEST_F(PostFlash, FailureIsToldWithTheLabelOfThePhaseList)
{
    package.calcEquilibrium = StoreEquilibrium({{"LIQUID", 1, {0.5, 0.5}}}, 300, 1e5);
    package.calcSinglePhase = [](const SinglePhaseCall &request) {
        EXPECT_EQ(request.phase, Wide("Liquid"));
        EXPECT_EQ(request.material.setSinglePhase("enthalpy", request.phase, "mole", {3}), S_OK);
        return computationFailed;
    };
    const CallResult result = report(1);
    EXPECT_EQ(result.warnings,
              (std::vector<std::string>{"CAPE-OPEN: Failed to calculate post-flash Liquid properties: computation "
                                        "error"}));
    EXPECT_EQ(result[0].cellMatrix(0), (Rows{{3}}));
}

TEST_F(PostFlash, FailureLeavesTheValuesOfTheRowBefore)
{
    find(0.5, 0.5);
    package.calcSinglePhase = [this](const SinglePhaseCall &request) {
        return request.material.setSinglePhase("enthalpy", request.phase, "mole",
                                               {1000.0 * package.calls("CalcSinglePhaseProp")});
    };
    package.answer("CalcSinglePhaseProp", computationFailed, 4);
    // Row 1: 1000 and 2000. Row 2: 3000, and the liquid still has 2000. Row 3: 5000 and 6000.
    const CallResult result = report(3);
    EXPECT_EQ(result[0].cellMatrix(0), (Rows{{1500}, {2500}, {5500}}));
    EXPECT_EQ(result.warnings,
              (std::vector<std::string>{"CAPE-OPEN: Failed to calculate post-flash Liquid properties: computation "
                                        "error"}));
}

TEST_F(PostFlash, FailureIsSilentWithWarningsOff)
{
    find(0.5, 0.5);
    calculate(1000, 2000);
    showWarnings(false);
    package.answer("CalcSinglePhaseProp", computationFailed, 3);
    const CallResult result = report(2);
    EXPECT_EQ(result[0].cellMatrix(0), (Rows{{1500}, {1500}}));
    EXPECT_EQ(result.warnings, std::vector<std::string>());
}

TEST_F(PostFlash, FailureThatLeavesAPhaseWithoutValueEndsTheCommand)
{
    find(0.5, 0.5);
    calculate(1000, 2000);
    package.answer("CalcSinglePhaseProp", computationFailed, 2);
    const CallResult result = call(1, batch({.names = Text("enthalpy")}));
    EXPECT_FALSE(result.returned);
    EXPECT_EQ(result.error, "Property not set after post-flash property calculation");
    EXPECT_EQ(result.warnings,
              (std::vector<std::string>{"CAPE-OPEN: Failed to calculate post-flash Liquid properties: computation "
                                        "error"}));
    EXPECT_EQ(enthalpies(), (Rows{{1500}}));
}

TEST_F(PostFlash, ValueThatThePackageDoesNotStoreEndsTheCommand)
{
    find(0.5, 0.5);
    calculate(1000, 2000);
    EXPECT_EQ(refusal(1, batch({.outputs = Scalar(2), .names = Text("enthalpy volume")})),
              "Property not set after post-flash property calculation");
}

TEST_F(PostFlash, RowWhoseFlashFailsHasNoCalculation)
{
    find(0.5, 0.5);
    calculate(1000, 2000);
    package.answer("CalcEquilibrium", computationFailed, 2);
    const CallResult result = report(3);
    const std::vector<double> values = result[0].element(0).numbers();
    EXPECT_EQ(values.at(0), 1500);
    EXPECT_TRUE(std::isnan(values.at(1)));
    EXPECT_EQ(values.at(2), 1500);
    EXPECT_EQ(package.calls("CalcSinglePhaseProp"), 4);
}

TEST_F(PostFlash, CalculationMayTakePhasesAwayAndChangeConditions)
{
    find(0.5, 0.5);
    package.calcSinglePhase = [](const SinglePhaseCall &request) {
        EXPECT_EQ(request.material.setSinglePhase("enthalpy", request.phase, "mole", {4}), S_OK);
        EXPECT_EQ(request.material.setOverall("temperature", "", {555}), S_OK);
        return request.material.setPresentPhases({"Vapor"});
    };
    const CallResult result = report(1, "enthalpy Temperature", 2);
    EXPECT_EQ(result[0].cellMatrix(0), (Rows{{2}})); // half of the vapor
    EXPECT_EQ(result[0].cellMatrix(1), (Rows{{555}}));
    EXPECT_EQ(package.calls("CalcSinglePhaseProp"), 1);
}

TEST_F(PostFlash, CalculationMayClearTheMaterial)
{
    find(0.5, 0.5);
    package.calcSinglePhase = [](const SinglePhaseCall &request) { return request.material.get()->ClearAllProps(); };
    EXPECT_EQ(enthalpies(2), (Rows{{0}, {0}}));
}

namespace {

class PostFlashOfTwoPackages : public PostFlash {
protected:
    PackageScript &other = world.addPackage("Other");
};

} // namespace

TEST_F(PostFlashOfTwoPackages, CalculatesThePhasesOfEach)
{
    other.phaseLabels = TextArray({"Oil", "Gas", "Water"});
    other.statesOfAggregation = TextArray({"Liquid", "Vapor", "Liquid"});
    std::vector<WideString> phases;
    other.calcSinglePhase = [&](const SinglePhaseCall &request) {
        phases.push_back(request.phase);
        return request.material.setSinglePhase("enthalpy", request.phase, "mole", {9});
    };
    other.calcEquilibrium =
        StoreEquilibrium({{"Oil", 0.25, {1, 0}}, {"Gas", 0.5, {1, 0}}, {"Water", 0.25, {1, 0}}}, 300, 1e5);
    find(0.25, 0.75);
    calculate(1000, 2000);
    EXPECT_EQ(enthalpies(), (Rows{{1750}}));
    std::vector<Array> arguments = batch({.names = Text("enthalpy")});
    arguments[1] = open("Other");
    EXPECT_EQ(mustReturn(1, arguments)[0].cellMatrix(0), (Rows{{9}}));
    EXPECT_EQ(phases, Names({"Oil", "Gas", "Water"}));
    EXPECT_EQ(enthalpies(), (Rows{{1750}}));
}

TEST_F(PostFlash, AverageOfThreePhasesAndThreeCompounds)
{
    makeTernary();
    package.phaseLabels = TextArray({"Vapor", "Oil", "Water"});
    package.statesOfAggregation = TextArray({"Vapor", "Liquid", "Liquid"});
    package.calcEquilibrium =
        StoreEquilibrium({{"Vapor", 0.5, {1, 0, 0}}, {"Oil", 0.25, {0, 1, 0}}, {"Water", 0.25, {0, 0, 1}}}, 300, 1e5);
    package.calcSinglePhase = [](const SinglePhaseCall &request) {
        Conditions conditions;
        EXPECT_EQ(request.material.getConditions(request.phase, conditions), S_OK);
        const std::vector<double> &x = conditions.composition;
        return request.material.setSinglePhase("volume", request.phase, "mole", {8 * x[0] + 16 * x[1] + 32 * x[2]});
    };
    EXPECT_EQ(mustReturn(1, batch({.compositions = Zeros({1, 3}), .names = Text("volume")}))[0].cellMatrix(0),
              (Rows{{16}})); // 4 + 4 + 8
}

TEST_F(PostFlash, ResultsMayBeEveryPropertyWithAnOverallValue)
{
    find(0.5, 0.5);
    for (const char *name : {"enthalpy", "enthalpyF", "enthalpyNF", "entropy", "entropyF", "entropyNF", "gibbsEnergy",
                             "helmholtzEnergy", "internalEnergy", "volume"}) {
        package.calcSinglePhase = StoreSinglePhase({{name, "mole", {6}}});
        EXPECT_EQ(report(1, name)[0].cellMatrix(0), (Rows{{6}})) << name;
    }
}
