// A package can call back into MATLAB, and that into the library, while it answers a command: another command begins
// within the first.
#include "tests/support/package_test.h"

#include <chrono>
#include <future>
#include <thread>

using namespace support;

namespace {

class InnerCalls : public PackageTest {
protected:
    InnerCalls()
    {
        package.calcSinglePhase = StoreSinglePhase(
            {{"volume", "mole", {0.025}}, {"density", "mole", {40}}, {"fugacityCoefficient", "", {0.5, 0.25}}});
        package.calcEquilibrium =
            StoreEquilibrium({{"Vapor", 0.5, {0.75, 0.25}}, {"Liquid", 0.5, {0.25, 0.75}}}, 340, 2e5);
    }
    void SetUp() override
    {
        PackageTest::SetUp();
        otherHandle = open("Other");
    }
    void TearDown() override
    {
        otherHandle = Array();
        for (PackageScript *script : {&package, &other}) {
            script->onCall = nullptr;
            script->calcSinglePhase = nullptr; // with the arrays that it holds
        }
        PackageTest::TearDown();
    }

    // Runs once, when the package is asked for this for the first time.
    void during(const std::string &method, std::function<void()> action)
    {
        pending = method;
        package.onCall = [this, action](const std::string &called) {
            if (called != pending)
                return;
            pending.clear();
            action();
            ++actions;
        };
    }

    PackageScript &other = world.addPackage("Other");
    Array otherHandle;
    std::string pending; // the method that waits for its action
    int actions = 0;
};

const Array threeTemperatures = Column({300, 310, 320});

} // namespace

TEST_F(InnerCalls, LeaveTheListsOfTheOuterOneAsTheyWere)
{
    other.calcSinglePhase = StoreSinglePhase({{"enthalpy", "mole", {-5}}});
    other.constants = AnswerValues(ArrayOfVariants({RealVariant(1), RealVariant(2)}));
    during("CalcSinglePhaseProp", [this] {
        EXPECT_EQ(mustReturn(1, {Scalar(22), Scalar(1), otherHandle, Text("enthalpy"), Scalar(300), Scalar(1e5),
                                 Row({0.5, 0.5}), Text("Liquid")})[0]
                      .element(0)
                      .numbers(),
                  std::vector<double>{-5});
        mustReturn(1, {Scalar(1)});
        mustReturn(1, {Scalar(16), otherHandle, Text("criticalTemperature")});
        mustReturn(1, {Scalar(19), Text("enthalpy")});
        EXPECT_FALSE(call(1, {Scalar(25), otherHandle}).returned);
    });
    const CallResult result = mustReturn(
        1, singlePhase({.outputs = Scalar(2), .names = Text("volume density"), .temperatures = threeTemperatures}));
    EXPECT_EQ(actions, 1);
    EXPECT_EQ(result[0].element(0).numbers(), (std::vector<double>{0.025, 0.025, 0.025}));
    EXPECT_EQ(result[0].element(1).numbers(), (std::vector<double>{40, 40, 40}));
}

TEST_F(InnerCalls, OfTheSameCommandOnTheSamePackageLeaveItsResultsInTheirPlaces)
{
    during("CalcEquilibrium", [this] {
        mustReturn(1, batch({.values1 = Scalar(290), .outputs = Scalar(2), .names = Text("vaporFraction Pressure")}));
    });
    const CallResult result = mustReturn(1, batch({.values1 = threeTemperatures, .names = Text("Temperature")}));
    EXPECT_EQ(actions, 1);
    EXPECT_EQ(result[0].element(0).numbers(), (std::vector<double>{340, 340, 340}));
}

TEST_F(InnerCalls, LeaveTheWordsOfTheOuterOne)
{
    package.words = Description("the outer words");
    package.answer("CalcSinglePhaseProp", computationFailed);
    during("CalcSinglePhaseProp", [this] {
        EXPECT_EQ(call(1, {Scalar(2), Text("nobody")}).error, "no such package manager: \"nobody\"");
    });
    EXPECT_EQ(refusal(1, singlePhase()), "CalcSinglePhaseProp failed: the outer words");
    EXPECT_EQ(actions, 1);
}

TEST_F(InnerCalls, ThatMatlabEndsForWantOfMemoryLeaveTheOuterOneAsItWas)
{
    other.calcEquilibrium = StoreEquilibrium({{"Vapor", 1, {0.5, 0.5}}}, 340, 2e5);
    const std::vector<Array> otherFlash = {Scalar(24),  otherHandle,      Row({0.5, 0.5}), Text("temperature"),
                                           Scalar(300), Text("pressure"), Scalar(1e5),     Text("")};
    during("CalcSinglePhaseProp", [&] {
        for (std::size_t creation = 1; creation < 4; ++creation) {
            mxStandInFailCreation(creation);
            EXPECT_EQ(call(5, otherFlash).error, "Out of memory.");
            mxStandInFailCreation(0);
        }
    });
    const CallResult result = mustReturn(1, singlePhase({.temperatures = threeTemperatures}));
    EXPECT_EQ(actions, 1);
    EXPECT_EQ(result[0].element(0).numbers(), (std::vector<double>{0.025, 0.025, 0.025}));
}

TEST_F(InnerCalls, OneWithinAnotherComeBackInTheirOrder)
{
    other.calcSinglePhase = [this](const SinglePhaseCall &asked) {
        EXPECT_EQ(mustReturn(1, {Scalar(6), handle})[0].text(), Wide("Alone"));
        EXPECT_EQ(mustReturn(1, {Scalar(7), handle})[0].texts(), Names({"A", "B"}));
        return StoreSinglePhase({{"enthalpy", "mole", {-5}}})(asked);
    };
    during("CalcSinglePhaseProp", [this] {
        EXPECT_EQ(mustReturn(1, {Scalar(22), Scalar(1), otherHandle, Text("enthalpy"), threeTemperatures, Scalar(1e5),
                                 Row({0.5, 0.5}), Text("Liquid")})[0]
                      .element(0)
                      .numbers(),
                  (std::vector<double>{-5, -5, -5}));
    });
    EXPECT_EQ(mustReturn(1, singlePhase({.temperatures = threeTemperatures}))[0].element(0).numbers(),
              (std::vector<double>{0.025, 0.025, 0.025}));
    EXPECT_EQ(actions, 1);
}

TEST_F(InnerCalls, ThatChangeTheBasisDoSoForTheCommandsAfterTheOuterOne)
{
    package.temperatureDependent = AnswerValues(NumberArray({1800, 1800})); // of molar masses 18 and 36
    const auto heatCapacities = [this] {
        return mustReturn(1, {Scalar(20), Scalar(1), handle, Text("idealGasHeatCapacity"), threeTemperatures})[0]
            .cellMatrix(0);
    };
    const Rows perMole(3, {1800, 1800});
    const Rows perMass(3, {100000, 50000});
    during("GetTDependentProperty", [&] {
        mustReturn(0, {Scalar(18), Text("mass")});
        ExpectNear(heatCapacities(), perMass);
    });
    EXPECT_EQ(heatCapacities(), perMole);
    EXPECT_EQ(actions, 1);
    ExpectNear(heatCapacities(), perMass);
    during("GetTDependentProperty", [&] { mustReturn(0, {Scalar(18), Text("mole")}); });
    ExpectNear(heatCapacities(), perMass);
    EXPECT_EQ(heatCapacities(), perMole);
    EXPECT_EQ(actions, 2);
}

TEST_F(InnerCalls, ThatChangeTheBasisLeaveAllRowsInTheOneThatTheyBeganIn)
{
    const auto volumes = [this] {
        return mustReturn(1, singlePhase({.names = Text("volume"), .temperatures = threeTemperatures}))[0]
            .element(0)
            .numbers();
    };
    const std::vector<double> perMole(3, 0.025);
    during("CalcSinglePhaseProp", [this] {
        mustReturn(0, {Scalar(18), Text("mass")});
        mustReturn(1, {Scalar(19), Text("volume")}); // begins in that basis
    });
    EXPECT_EQ(volumes(), perMole);
    EXPECT_EQ(actions, 1);
    EXPECT_NE(volumes(), perMole);
}

// Each package, while it calculates, has the other one calculate and writes into its material.
TEST_F(InnerCalls, LetPackagesWorkOnEachOthersMaterials)
{
    int depth = 0;
    const auto calculation = [&](PackageScript &self, PackageScript &partner, const Array &partnersHandle,
                                 double value) {
        self.calcSinglePhase = [&, value, partnersHandle](const SinglePhaseCall &request) {
            if (depth < 5) {
                ++depth;
                EXPECT_TRUE(call(1, {Scalar(22), Scalar(1), partnersHandle, Text("volume"), Scalar(400), Scalar(1e5),
                                     Row({0.1, 0.9}), Text("Liquid")})
                                .returned);
                --depth;
            }
            const MaterialClient partners(partner.material.get());
            EXPECT_EQ(partners.setSinglePhase("density", "Vapor", "mole", {value}), S_OK);
            EXPECT_EQ(partners.setOverall("temperature", "", {1}), S_OK);
            return request.material.setSinglePhase("volume", request.phase, "mole", {value});
        };
    };
    calculation(package, other, otherHandle, 1);
    calculation(other, package, handle, 2);
    mustReturn(1, {Scalar(22), Scalar(1), otherHandle, Text("volume"), Scalar(400), Scalar(1e5), Row({0.1, 0.9}),
                   Text("Liquid")}); // both have their material
    EXPECT_EQ(mustReturn(1, singlePhase({.temperatures = threeTemperatures}))[0].element(0).numbers(),
              (std::vector<double>{1, 1, 1}));
}

// Nothing of the library is held while a package does not come back: another thread gets its answer.
TEST_F(InnerCalls, FromAnotherThreadAreAnsweredWhileAPackageDoesNotReturn)
{
    std::promise<void> entered;
    std::promise<void> released;
    during("CalcSinglePhaseProp", [&] {
        entered.set_value();
        released.get_future().wait();
    });
    const std::vector<Array> request = singlePhase();
    const std::vector<Array> question = {Scalar(19), Text("volume")};
    std::vector<double> volume;
    std::thread calculation([&] { volume = mustReturn(1, request)[0].element(0).numbers(); });
    const bool isWithin = entered.get_future().wait_for(std::chrono::minutes(1)) == std::future_status::ready;
    if (isWithin) {
        EXPECT_EQ(mustReturn(1, question)[0].text(), Wide("m3 / mol"));
    }
    released.set_value();
    calculation.join();
    ASSERT_TRUE(isWithin) << "the package was not called";
    EXPECT_EQ(volume, std::vector<double>{0.025});
}

TEST_F(InnerCalls, CanCloseThePackageThatCalculates)
{
    during("CalcSinglePhaseProp", [this] {
        mustReturn(0, {Scalar(4), handle});
        EXPECT_EQ(refusal(1, {Scalar(6), handle}), "Invalid property package handle");
        EXPECT_EQ(package.calls("Terminate"), 0);
    });
    EXPECT_EQ(mustReturn(1, singlePhase({.temperatures = threeTemperatures}))[0].element(0).numbers(),
              (std::vector<double>{0.025, 0.025, 0.025}));
    EXPECT_EQ(package.calls("Terminate"), 1);
    EXPECT_EQ(package.references(), 0);
    EXPECT_EQ(refusal(1, {Scalar(6), handle}), "Invalid property package handle");
}

TEST_F(InnerCalls, CanCloseThePackageThatGivesItsLists)
{
    for (const char *method : {"GetCompoundList", "GetPhaseList", "SetMaterial"}) {
        during(method, [this] { mustReturn(0, {Scalar(4), handle}); });
        EXPECT_EQ(mustReturn(1, singlePhase())[0].element(0).numbers(), std::vector<double>{0.025}) << method;
        EXPECT_EQ(package.references(), 0) << method;
        handle = open("Alone");
    }
    EXPECT_EQ(actions, 3);
}

TEST_F(InnerCalls, ThatLoadTheListsFirstDecideWhatTheyAre)
{
    during("GetCompoundList", [this] { mustReturn(1, singlePhase()); });
    EXPECT_EQ(mustReturn(1, {Scalar(7), handle})[0].texts(), Names({"A", "B"}));
    EXPECT_EQ(actions, 1);
    EXPECT_EQ(package.calls("GetCompoundList"), 2);
    EXPECT_EQ(package.calls("SetMaterial"), 1);
}

// The package gives more compounds to the outer question than to the inner one, by which the material was made.
TEST_F(InnerCalls, ThatLoadShorterListsFirstKeepThemForTheMaterial)
{
    during("GetCompoundList", [this] {
        mustReturn(1, singlePhase());
        package.compoundIds = TextArray({"A", "B", "C", "D"});
        package.molecularWeights = NumberArray({18, 36, 54, 72});
    });
    EXPECT_EQ(mustReturn(1, {Scalar(7), handle})[0].texts(), Names({"A", "B"}));
    mustReturn(1, singlePhase());
    EXPECT_EQ(refusal(1, singlePhase({.compositions = Row({0.25, 0.25, 0.25, 0.25})})),
              "Invalid number of columns for compositions: must match number of compounds");
}

TEST_F(InnerCalls, ThatOpenAPackageWhileItIsClosedGetAnother)
{
    std::int32_t again = -1;
    during("Terminate", [&] {
        EXPECT_EQ(refusal(1, {Scalar(6), handle}), "Invalid property package handle");
        EXPECT_EQ(refusal(0, {Scalar(4), handle}), "Invalid property package handle");
        again = open("Alone").int32();
    });
    mustReturn(0, {Scalar(4), handle});
    EXPECT_EQ(actions, 1);
    EXPECT_EQ(package.objectsMade(), 2);
    EXPECT_EQ(mustReturn(1, {Scalar(6), Int32(again)})[0].text(), Wide("Alone"));
    EXPECT_EQ(refusal(1, {Scalar(6), handle}), "Invalid property package handle");
}

TEST_F(InnerCalls, ThatOpenThePackageThatIsBeingCreatedGetItsOnlyRecord)
{
    mustReturn(0, {Scalar(4), handle});
    std::int32_t inner = -1;
    during("Initialize", [&] { inner = open("Alone").int32(); });
    EXPECT_EQ(open("Alone").int32(), inner);
    EXPECT_EQ(actions, 1);
    EXPECT_EQ(mustReturn(1, {Scalar(5)})[0].count(), 2u) << "with the other package";
    EXPECT_EQ(package.objectsMade(), 3);
    EXPECT_EQ(package.calls("Terminate"), 2) << "of the first record, and of the object that is not needed";
}

TEST_F(InnerCalls, ThatOpenManyPackagesWhileOneIsClosedLoseNone)
{
    std::vector<PackageScript *> more;
    for (int i = 0; i < 40; ++i)
        more.push_back(&world.addPackage("More " + std::to_string(i)));
    matlab.clear();
    matlab.load(); // registered since the scan
    handle = open("Alone");
    during("Terminate", [&] {
        for (int i = 0; i < 40; ++i)
            open("More " + std::to_string(i));
    });
    mustReturn(0, {Scalar(4), handle});
    EXPECT_EQ(mustReturn(1, {Scalar(5)})[0].count(), 40u);
    for (const PackageScript *script : more)
        EXPECT_GT(script->references(), 0);
}

TEST_F(InnerCalls, CannotOpenAPackageWhenTheLibraryIsCleared)
{
    std::string refused;
    package.onCall = [&](const std::string &method) {
        if (method == "Terminate")
            refused = call(1, {Scalar(3), Text("Alone"), Text("")}).error;
    };
    EXPECT_TRUE(matlab.clear());
    EXPECT_EQ(refused, "no package can be opened while all packages are being closed");
    EXPECT_EQ(package.objectsMade(), 1);
}

TEST_F(InnerCalls, CanCloseAnotherPackageWhenTheLibraryIsCleared)
{
    const auto closeBoth = [&](const std::string &method) {
        if (method != "Terminate")
            return;
        call(0, {Scalar(4), handle});
        call(0, {Scalar(4), otherHandle});
    };
    package.onCall = closeBoth;
    other.onCall = closeBoth;
    EXPECT_TRUE(matlab.clear());
    EXPECT_EQ(package.calls("Terminate"), 1);
    EXPECT_EQ(other.calls("Terminate"), 1);
}
