// Command 22 and a package that fails, forgets, clears, keeps or talks while it calculates.
#include "tests/support/package_test.h"

using namespace support;

namespace {

class SinglePhaseCalls : public PackageTest {
protected:
    void SetUp() override
    {
        PackageTest::SetUp();
        storeVolume();
    }
    void storeVolume() { package.calcSinglePhase = StoreSinglePhase({{"volume", "mole", {0.025}}}); }
    void expectWorking()
    {
        package.answer("CalcSinglePhaseProp", S_OK);
        storeVolume();
        EXPECT_EQ(mustReturn(1, singlePhase())[0].cellMatrix(0), (Rows{{0.025}}));
    }
    std::vector<WideString> presentPhases(const MaterialClient &material) const
    {
        std::vector<WideString> labels;
        std::vector<LONG> status;
        EXPECT_EQ(material.getPresentPhases(labels, status), S_OK);
        return labels;
    }
};

} // namespace

TEST_F(SinglePhaseCalls, ThatFailAtTheOnlyConditionNameNoCondition)
{
    package.answer("CalcSinglePhaseProp", computationFailed);
    EXPECT_EQ(refusal(1, singlePhase()), "CalcSinglePhaseProp failed: computation error");
    expectWorking();
}

TEST_F(SinglePhaseCalls, ThatFailNameThePressureWhenThereAreSeveral)
{
    package.answer("CalcSinglePhaseProp", computationFailed, 2);
    EXPECT_EQ(refusal(1, singlePhase({.pressures = Column({100000, 123456.7, 1})})),
              "CalcSinglePhaseProp failed, at 123457 Pa: computation error");
    EXPECT_EQ(package.calls("CalcSinglePhaseProp"), 2);
    expectWorking();
}

TEST_F(SinglePhaseCalls, ThatFailNameTheTemperatureWhenThereAreSeveral)
{
    package.answer("CalcSinglePhaseProp", computationFailed, 3);
    EXPECT_EQ(refusal(1, singlePhase({.temperatures = Column({300, 310, 320.25})})),
              "CalcSinglePhaseProp failed, at 320.25 K: computation error");
}

TEST_F(SinglePhaseCalls, ThatFailNameThePressureInFrontOfTheTemperature)
{
    package.answer("CalcSinglePhaseProp", computationFailed, 2);
    package.words = Description("100% of the roots are \\n complex");
    EXPECT_EQ(refusal(1, singlePhase({.temperatures = Column({300, 273.15}), .pressures = Column({100000, 12345678})})),
              "CalcSinglePhaseProp failed, at 1.23457e+07 Pa, at 273.15 K: 100% of the roots are \\n complex");
}

TEST_F(SinglePhaseCalls, ThatFailAtSeveralCompositionsNameNoCondition)
{
    package.answer("CalcSinglePhaseProp", computationFailed, 2);
    EXPECT_EQ(refusal(1, singlePhase({.compositions = Matrix({{0.5, 0.5}, {0.25, 0.75}})})),
              "CalcSinglePhaseProp failed: computation error");
}

TEST_F(SinglePhaseCalls, ThatFailGiveTheWordsOfThePackage)
{
    package.answer("CalcSinglePhaseProp", computationFailed);
    package.words = ErrorName("NoConvergence");
    EXPECT_EQ(refusal(1, singlePhase()), "CalcSinglePhaseProp failed: NoConvergence");
    package.words = Description("no root");
    EXPECT_EQ(refusal(1, singlePhase()), "CalcSinglePhaseProp failed: no root");
    package.words.onlyFrom = &InterfaceId<ICapeThermoPropertyRoutine>;
    EXPECT_EQ(refusal(1, singlePhase()), "CalcSinglePhaseProp failed: no root");
    package.words.onlyFrom = &InterfaceId<ICapeThermoEquilibriumRoutine>;
    EXPECT_EQ(refusal(1, singlePhase()), "CalcSinglePhaseProp failed: computation error");
    package.answer("CalcSinglePhaseProp", oddFailure);
    EXPECT_EQ(refusal(1, singlePhase()), "CalcSinglePhaseProp failed: error code 0x8123ABCD");
}

TEST_F(SinglePhaseCalls, ThatSucceedWithAnotherResultThanOkHaveSucceeded)
{
    package.answer("CalcSinglePhaseProp", S_FALSE);
    EXPECT_EQ(mustReturn(1, singlePhase())[0].cellMatrix(0), (Rows{{0.025}}));
}

TEST_F(SinglePhaseCalls, ThatSetNoValueAreAnErrorThatNamesThePropertyAsWritten)
{
    package.calcSinglePhase = nullptr;
    EXPECT_EQ(refusal(1, singlePhase({.names = Text("ENTHALPY")})),
              "Property value for ENTHALPY was not set by property package during calculation");
    package.calcSinglePhase = StoreSinglePhase({{"enthalpy", "mole", {1}}});
    EXPECT_EQ(refusal(1, singlePhase({.names = Text("enthalpy.Dtemperature")})),
              "Property value for enthalpy.Dtemperature was not set by property package during calculation");
    EXPECT_EQ(refusal(1, singlePhase({.outputs = Scalar(2), .names = Text("enthalpy entropy")})),
              "Property value for entropy was not set by property package during calculation");
    expectWorking();
}

TEST_F(SinglePhaseCalls, ThatSetTheValueOfAnotherPhaseAreAnError)
{
    package.calcSinglePhase = [](const SinglePhaseCall &request) {
        return request.material.setSinglePhase("volume", "Liquid", "mole", {1});
    };
    EXPECT_EQ(refusal(1, singlePhase()),
              "Property value for volume was not set by property package during calculation");
}

TEST_F(SinglePhaseCalls, LeaveValuesThatLaterConditionsAndCommandsTakeForSet)
{
    package.calcSinglePhase = [&](const SinglePhaseCall &request) {
        return package.calls("CalcSinglePhaseProp") == 1
                   ? request.material.setSinglePhase("volume", request.phase, "mole", {0.5})
                   : S_OK;
    };
    EXPECT_EQ(mustReturn(1, singlePhase({.pressures = Column({1, 2})}))[0].cellMatrix(0), (Rows{{0.5}, {0.5}}));
    EXPECT_EQ(mustReturn(1, singlePhase())[0].cellMatrix(0), (Rows{{0.5}}));
    EXPECT_EQ(refusal(1, singlePhase({.phase = Text("Liquid")})),
              "Property value for volume was not set by property package during calculation");
}

TEST_F(SinglePhaseCalls, LeaveTheLastConditionInTheMaterial)
{
    mustReturn(1, singlePhase({.temperatures = Column({300, 310}), .compositions = Matrix({{1, 0}, {0.25, 0.75}})}));
    Conditions vapor;
    package.calcSinglePhase = [&](const SinglePhaseCall &request) {
        EXPECT_EQ(request.material.getConditions("Vapor", vapor), S_OK);
        return request.material.setSinglePhase("volume", request.phase, "mole", {1});
    };
    mustReturn(1, singlePhase({.temperatures = Scalar(400), .phase = Text("Liquid")}));
    EXPECT_EQ(vapor.temperature, 400); // there is one temperature for all phases
    EXPECT_EQ(vapor.composition, (std::vector<double>{0.25, 0.75}));
}

TEST_F(SinglePhaseCalls, DeclareTheirPhasePresentAndLeaveTheOthersAsTheyAre)
{
    std::vector<std::vector<WideString>> present;
    package.calcSinglePhase = [&](const SinglePhaseCall &request) {
        present.push_back(presentPhases(request.material));
        return request.material.setSinglePhase("volume", request.phase, "mole", {1});
    };
    mustReturn(1, singlePhase({.phase = Text("Liquid")}));
    mustReturn(1, singlePhase({.phase = Text("Vapor")}));
    EXPECT_EQ(present, (std::vector<std::vector<WideString>>{Names({"Liquid"}), Names({"Vapor", "Liquid"})}));
}

TEST_F(SinglePhaseCalls, PrepareTheirPhaseAlsoWhenThePackageHasNoPropertyRoutine)
{
    package.refuse(InterfaceId<ICapeThermoPropertyRoutine>);
    call(1, singlePhase({.phase = Text("Liquid")}));
    ASSERT_TRUE(package.material);
    const MaterialClient material(package.material.get());
    EXPECT_EQ(presentPhases(material), Names({"Liquid"}));
    // The composition that is there is now said to be per mole.
    EXPECT_EQ(material.setSinglePhase("fraction", "Liquid", "mass", {0.2, 0.8}), S_OK);
    call(1, singlePhase({.phase = Text("Liquid")}));
    std::vector<double> fractions;
    EXPECT_EQ(material.getSinglePhase("fraction", "Liquid", "mole", fractions), S_OK);
    EXPECT_EQ(fractions, (std::vector<double>{0.2, 0.8}));
    // A refusal in front of that leaves the material alone.
    EXPECT_EQ(material.setPresentPhases({}), S_OK);
    call(1, singlePhase({.names = Text("kvalue"), .phase = Text("Liquid")}));
    EXPECT_EQ(presentPhases(material), Names({}));
}

TEST_F(SinglePhaseCalls, SurviveAPackageThatClearsTheMaterial)
{
    package.calcSinglePhase = [](const SinglePhaseCall &request) {
        EXPECT_EQ(request.material.get()->ClearAllProps(), S_OK);
        return request.material.setSinglePhase("volume", request.phase, "mole", {0.5});
    };
    EXPECT_EQ(mustReturn(1, singlePhase({.temperatures = Column({300, 310})}))[0].cellMatrix(0), (Rows{{0.5}, {0.5}}));
    package.calcSinglePhase = [](const SinglePhaseCall &request) { return request.material.get()->ClearAllProps(); };
    EXPECT_EQ(refusal(1, singlePhase()),
              "Property value for volume was not set by property package during calculation");
    expectWorking();
}

TEST_F(SinglePhaseCalls, SurviveAPackageThatTakesThePhaseAway)
{
    package.calcSinglePhase = [](const SinglePhaseCall &request) {
        const HRESULT hr = request.material.setSinglePhase("volume", request.phase, "mole", {0.5});
        return FAILED(hr) ? hr : request.material.setPresentPhases({});
    };
    EXPECT_EQ(mustReturn(1, singlePhase({.pressures = Column({1, 2})}))[0].cellMatrix(0), (Rows{{0.5}, {0.5}}));
}

TEST_F(SinglePhaseCalls, OfAPackageThatKeepsTheMaterialLeaveItToThePackage)
{
    package.keepsMaterial = true;
    mustReturn(1, singlePhase());
    mustReturn(0, {Scalar(4), handle});
    EXPECT_EQ(package.references(), 0);
    ASSERT_TRUE(package.keptMaterial);
    package.keptMaterial.reset();
}

TEST_F(SinglePhaseCalls, ShowWhatThePackageLogsAsWarnings)
{
    package.calcSinglePhase = [&](const SinglePhaseCall &request) {
        EXPECT_EQ(LogMessage(package, "extrapolating"), S_OK);
        return request.material.setSinglePhase("volume", request.phase, "mole", {0.5});
    };
    const CallResult result = mustReturn(1, singlePhase({.temperatures = Column({300, 310})}));
    EXPECT_EQ(result[0].cellMatrix(0), (Rows{{0.5}, {0.5}}));
    EXPECT_EQ(result.warnings, (std::vector<std::string>{"CAPE-OPEN: extrapolating", "CAPE-OPEN: extrapolating"}));
}

TEST_F(SinglePhaseCalls, KeepTheirMessageAlsoWhenThePackageLoggedBeforeIt)
{
    package.answer("CalcSinglePhaseProp", computationFailed, 1);
    package.onCall = [this](const std::string &method) {
        if (method == "CalcSinglePhaseProp") {
            EXPECT_EQ(LogMessage(package, "no root"), S_OK);
        }
    };
    const CallResult result = call(1, singlePhase());
    EXPECT_EQ(result.error, "CalcSinglePhaseProp failed: computation error");
    EXPECT_EQ(result.warnings, (std::vector<std::string>{"CAPE-OPEN: no root"}));
}

TEST_F(SinglePhaseCalls, AreSilentAboutMessagesOfThePackageWithWarningsOff)
{
    showWarnings(false);
    package.calcSinglePhase = [&](const SinglePhaseCall &request) {
        EXPECT_EQ(LogMessage(package, "extrapolating"), S_OK);
        EXPECT_EQ(PopUpMessage(package, "really extrapolating"), S_OK);
        return request.material.setSinglePhase("volume", request.phase, "mole", {0.5});
    };
    const CallResult result = mustReturn(1, singlePhase());
    EXPECT_EQ(result[0].cellMatrix(0), (Rows{{0.5}}));
    EXPECT_EQ(result.warnings, std::vector<std::string>());
}

TEST_F(SinglePhaseCalls, ReturnTheValuesOfAPackageThatReadsBackWhatItWrote)
{
    std::vector<double> back;
    package.calcSinglePhase = [&](const SinglePhaseCall &request) {
        EXPECT_EQ(request.material.setSinglePhase("volume", request.phase, "mole", {0.027}), S_OK);
        return request.material.getSinglePhase("VOLUME", request.phase, "mass", back);
    };
    EXPECT_EQ(mustReturn(1, singlePhase())[0].cellMatrix(0), (Rows{{0.027}}));
    // Equal moles of 18 and 36 g/mol are 0.027 kg/mol.
    ExpectNear({back}, {{1}});
}

TEST_F(SinglePhaseCalls, RefusedByTheMaterialGiveThePackagesOwnFailure)
{
    package.calcSinglePhase = StoreSinglePhase({{"volume", "", {1}}});
    package.words = Description("the material refused the volume");
    EXPECT_EQ(refusal(1, singlePhase()), "CalcSinglePhaseProp failed: the material refused the volume");
    expectWorking();
}

TEST_F(SinglePhaseCalls, FetchListsAndRoutineOnce)
{
    mustReturn(1, singlePhase());
    mustReturn(1, singlePhase({.phase = Text("Liquid")}));
    EXPECT_EQ(package.calls("GetCompoundList"), 1);
    EXPECT_EQ(package.calls("GetPhaseList"), 1);
    EXPECT_EQ(package.calls("SetMaterial"), 1);
    EXPECT_EQ(package.references(InterfaceId<ICapeThermoPropertyRoutine>), 1);
}

namespace {

class SinglePhaseCallsOfTwoPackages : public SinglePhaseCalls {
protected:
    PackageScript &other = world.addPackage("Other");
};

} // namespace

TEST_F(SinglePhaseCallsOfTwoPackages, HaveAMaterialEach)
{
    const Array otherHandle = open("Other");
    mustReturn(1, singlePhase());
    std::vector<Array> arguments = singlePhase();
    arguments[2] = otherHandle;
    EXPECT_EQ(refusal(1, arguments), "Property value for volume was not set by property package during calculation");
    EXPECT_EQ(other.calls("CalcSinglePhaseProp"), 1);
    package.calcSinglePhase = nullptr;
    EXPECT_EQ(mustReturn(1, singlePhase())[0].cellMatrix(0), (Rows{{0.025}}));
}
