// What command 24 reads from the material after an equilibrium: all in the basis that is wanted.
#include "tests/support/package_test.h"

#include <cmath>

using namespace support;

namespace {

class FlashResults : public PackageTest {
protected:
    void find(std::vector<MaterialClient::Phase> phases, double temperature = 340, double pressure = 2e5)
    {
        package.calcEquilibrium = StoreEquilibrium(phases, temperature, pressure);
    }
};

} // namespace

TEST_F(FlashResults, AreLabelsFractionsCompositionsTemperatureAndPressure)
{
    find({{"Vapor", 0.25, {0.875, 0.125}}, {"Liquid", 0.75, {0.375, 0.625}}});
    const CallResult result = mustReturn(5, flash());
    EXPECT_EQ(result[0].dimensions(), (std::vector<std::size_t>{2, 1}));
    EXPECT_EQ(result[0].texts(), Names({"Vapor", "Liquid"}));
    EXPECT_EQ(result[1].matrix(), (Rows{{0.25}, {0.75}}));
    EXPECT_EQ(result[2].matrix(), (Rows{{0.875, 0.125}, {0.375, 0.625}}));
    EXPECT_EQ(result[3].matrix(), (Rows{{340}}));
    EXPECT_EQ(result[4].matrix(), (Rows{{2e5}}));
}

TEST_F(FlashResults, HaveAColumnForEachOfThreeCompounds)
{
    makeTernary();
    find({{"Vapor", 0.5, {0.5, 0.25, 0.25}}, {"Liquid", 0.5, {0, 0.25, 0.75}}});
    EXPECT_EQ(mustReturn(5, flash({.composition = Row({0.25, 0.25, 0.5})}))[2].matrix(),
              (Rows{{0.5, 0.25, 0.25}, {0, 0.25, 0.75}}));
}

TEST_F(FlashResults, AreInTheOrderAndSpellingOfThePhaseList)
{
    package.phaseLabels = TextArray({"Gas", "Oil", "Water"});
    package.statesOfAggregation = TextArray({"Vapor", "Liquid", "Liquid"});
    find({{"WATER", 0.75, {0, 1}}, {"gas", 0.25, {1, 0}}});
    const CallResult result = mustReturn(5, flash());
    EXPECT_EQ(result[0].texts(), Names({"Gas", "Water"}));
    EXPECT_EQ(result[1].matrix(), (Rows{{0.25}, {0.75}}));
    EXPECT_EQ(result[2].matrix(), (Rows{{1, 0}, {0, 1}}));
    EXPECT_EQ(result[0].element(1).dimensions(), (std::vector<std::size_t>{1, 5}));
}

TEST_F(FlashResults, OfOnePhaseAreOneRow)
{
    find({{"Liquid", 1, {0.5, 0.5}}});
    const CallResult result = mustReturn(5, flash());
    EXPECT_EQ(result[0].texts(), Names({"Liquid"}));
    EXPECT_EQ(result[1].matrix(), (Rows{{1}}));
    EXPECT_EQ(result[2].matrix(), (Rows{{0.5, 0.5}}));
}

TEST_F(FlashResults, OfNoPhaseAreNoRows)
{
    for (const char *basis : {"mole", "mass"}) {
        useBasis(basis);
        package.calcEquilibrium = [](const EquilibriumCall &request) { return request.material.setPresentPhases({}); };
        const CallResult result = mustReturn(5, flash({.value1 = Scalar(311), .value2 = Scalar(5)}));
        EXPECT_EQ(result[0].classId(), mxCELL_CLASS);
        EXPECT_EQ(result[0].dimensions(), (std::vector<std::size_t>{0, 1}));
        EXPECT_EQ(result[1].dimensions(), (std::vector<std::size_t>{0, 1}));
        EXPECT_EQ(result[2].dimensions(), (std::vector<std::size_t>{0, 2}));
        EXPECT_EQ(result[3].number(), 311);
        EXPECT_EQ(result[4].number(), 5);
    }
}

TEST_F(FlashResults, OfAPackageThatOnlySetsPhasesKeepTheGivenTemperatureAndPressure)
{
    package.calcEquilibrium = [](const EquilibriumCall &request) {
        EXPECT_EQ(request.material.setSinglePhase("fraction", "Liquid", "mole", {0.5, 0.5}), S_OK);
        EXPECT_EQ(request.material.setSinglePhase("phaseFraction", "Liquid", "mole", {1}), S_OK);
        return request.material.setPresentPhases({"Liquid"});
    };
    const CallResult result = mustReturn(5, flash({.value1 = Scalar(333), .value2 = Scalar(44)}));
    EXPECT_EQ(result[3].number(), 333);
    EXPECT_EQ(result[4].number(), 44);
}

TEST_F(FlashResults, OfATemperatureThatNobodySetAreNaN)
{
    package.calcEquilibrium = [](const EquilibriumCall &request) { return request.material.setPresentPhases({}); };
    const CallResult result = mustReturn(5, flash({.property1 = Text("enthalpy")}));
    EXPECT_TRUE(std::isnan(result[3].number()));
    EXPECT_EQ(result[4].number(), 100000);
}

TEST_F(FlashResults, PassMissingConditionsOn)
{
    package.calcEquilibrium = [](const EquilibriumCall &request) { return request.material.setPresentPhases({}); };
    const CallResult result = mustReturn(5, flash({.value1 = Scalar(undefinedNumber), .value2 = Scalar(notANumber)}));
    EXPECT_EQ(result[3].number(), undefinedNumber);
    EXPECT_TRUE(std::isnan(result[4].number()));
}

TEST_F(FlashResults, PassAMissingFractionOn)
{
    package.calcEquilibrium = [](const EquilibriumCall &request) {
        EXPECT_EQ(request.material.setSinglePhase("fraction", "Vapor", "mole", {0.5, 0.5}), S_OK);
        EXPECT_EQ(request.material.setSinglePhase("fraction", "Liquid", "mole", {0.25, 0.75}), S_OK);
        EXPECT_TRUE(FAILED(request.material.setSinglePhase("phaseFraction", "Liquid", "mole", {undefinedNumber})));
        return S_OK;
    };
    const CallResult result = mustReturn(5, flash());
    EXPECT_TRUE(std::isnan(result[1].numbers().at(0))); // never set
    EXPECT_EQ(result[1].numbers().at(1), undefinedNumber);
}

TEST_F(FlashResults, PassAMissingCompositionOn)
{
    package.calcSinglePhase = StoreSinglePhase({{"volume", "mole", {1}}});
    mustReturn(1, singlePhase({.compositions = Row({notANumber, undefinedNumber}), .phase = Text("Liquid")}));
    package.calcEquilibrium = [](const EquilibriumCall &request) {
        EXPECT_EQ(request.material.setSinglePhase("phaseFraction", "Liquid", "mole", {1}), S_OK);
        return request.material.setPresentPhases({"Liquid"});
    };
    const std::vector<double> composition = mustReturn(5, flash())[2].numbers();
    EXPECT_TRUE(std::isnan(composition.at(0)));
    EXPECT_EQ(composition.at(1), undefinedNumber);
}

TEST_F(FlashResults, OfAPackageThatDoesNothingAreAllPhasesAsTheyWere)
{
    find({{"Vapor", 0.25, {0.875, 0.125}}, {"Liquid", 0.75, {0.375, 0.625}}});
    mustReturn(5, flash());
    package.calcEquilibrium = nullptr;
    const CallResult result = mustReturn(5, flash());
    EXPECT_EQ(result[1].matrix(), (Rows{{0.25}, {0.75}}));
    EXPECT_EQ(result[2].matrix(), (Rows{{0.875, 0.125}, {0.375, 0.625}}));
    EXPECT_EQ(result[3].number(), 300);
}

TEST_F(FlashResults, OfAFailedFlashAreAnErrorWithTheWordsOfThePackage)
{
    find({{"Liquid", 1, {0.5, 0.5}}});
    package.answer("CalcEquilibrium", computationFailed, 1);
    package.answer("CalcEquilibrium", oddFailure, 3);
    EXPECT_EQ(refusal(5, flash()), "CalcEquilibrium failed: computation error");
    mustReturn(5, flash());
    package.words = Description("not converged");
    EXPECT_EQ(refusal(5, flash()), "CalcEquilibrium failed: error code 0x8123ABCD");
    package.words.onlyFrom = &InterfaceId<ICapeThermoEquilibriumRoutine>;
    package.answer("CalcEquilibrium", computationFailed, 4);
    EXPECT_EQ(refusal(5, flash()), "CalcEquilibrium failed: not converged");
    EXPECT_EQ(mustReturn(5, flash())[0].texts(), Names({"Liquid"}));
}

TEST_F(FlashResults, ComeAlsoWithAnotherSuccessThanOk)
{
    find({{"Liquid", 1, {0.5, 0.5}}});
    package.answer("CalcEquilibrium", S_FALSE);
    EXPECT_EQ(mustReturn(5, flash())[0].texts(), Names({"Liquid"}));
}

TEST_F(FlashResults, OfAClearedMaterialAreNoPhasesAndNoTemperature)
{
    package.calcEquilibrium = [](const EquilibriumCall &request) { return request.material.get()->ClearAllProps(); };
    const CallResult result = mustReturn(5, flash({.property1 = Text("enthalpy"), .property2 = Text("vaporFraction")}));
    EXPECT_EQ(result[0].count(), 0u);
    EXPECT_TRUE(std::isnan(result[3].number()));
    EXPECT_TRUE(std::isnan(result[4].number()));
    find({{"Liquid", 1, {0.5, 0.5}}});
    EXPECT_EQ(mustReturn(5, flash({.property1 = Text("enthalpy")}))[0].texts(), Names({"Liquid"}));
}

TEST_F(FlashResults, ComeWithWhatThePackageLogged)
{
    package.calcEquilibrium = [this](const EquilibriumCall &request) {
        EXPECT_EQ(LogMessage(package, "close to critical"), S_OK);
        return request.material.setEquilibrium({{"Liquid", 1, {0.5, 0.5}}}, 340, 2e5);
    };
    const CallResult shown = mustReturn(5, flash());
    EXPECT_EQ(shown.warnings, (std::vector<std::string>{"CAPE-OPEN: close to critical"}));
    showWarnings(false);
    EXPECT_EQ(mustReturn(5, flash()).warnings, std::vector<std::string>());
}

TEST_F(FlashResults, ComeFromAPackageThatWorksOnACopyOfTheMaterial)
{
    package.calcEquilibrium = [](const EquilibriumCall &request) {
        ComPointer<IDispatch> created;
        IDispatch *raw = nullptr;
        EXPECT_EQ(request.material.get()->CreateMaterial(&raw), S_OK);
        created.attach(raw);
        ComPointer<ICapeThermoMaterial> copy;
        EXPECT_EQ(copy.queryFrom(created.get()), S_OK);
        IDispatch *source = request.material.get();
        EXPECT_EQ(copy.get()->CopyFromMaterial(&source), S_OK);
        Conditions overall;
        EXPECT_EQ(MaterialClient(copy.get()).getOverallConditions(overall), S_OK);
        EXPECT_EQ(overall.temperature, 300);
        EXPECT_EQ(MaterialClient(copy.get()).setEquilibrium({{"Vapor", 1, {1, 0}}}, 999, 1), S_OK);
        return request.material.setEquilibrium({{"Liquid", 1, {0.5, 0.5}}}, 340, 2e5);
    };
    const CallResult result = mustReturn(5, flash());
    EXPECT_EQ(result[0].texts(), Names({"Liquid"}));
    EXPECT_EQ(result[3].number(), 340);
}

TEST_F(FlashResults, StayInTheMaterialForTheNextCommand)
{
    find({{"Vapor", 0.25, {0.875, 0.125}}, {"Liquid", 0.75, {0.375, 0.625}}});
    mustReturn(5, flash());
    Conditions liquid;
    package.calcSinglePhase = [&](const SinglePhaseCall &request) {
        EXPECT_EQ(request.material.getConditions("Liquid", liquid), S_OK);
        return request.material.setSinglePhase("volume", request.phase, "mole", {1});
    };
    mustReturn(1, singlePhase());
    EXPECT_EQ(liquid.composition, (std::vector<double>{0.375, 0.625}));
}
