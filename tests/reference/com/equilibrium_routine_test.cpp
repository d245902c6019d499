#include "reference/engine/flash.h"
#include "tests/reference/com/package_fixture.h"
#include "tests/reference/engine/mixtures.h"

#include <cmath>

using namespace reference;

namespace {

using Specification = std::vector<std::string>;
const Specification givenTemperature = {"Temperature", "", "Overall"};
const Specification givenPressure = {"Pressure", "", "Overall"};

class PackageFlash : public PackageFixture {
protected:
    HRESULT calculate(const Specification &first = givenTemperature, const Specification &second = givenPressure,
                      std::string_view solutionType = "Unspecified")
    {
        return equilibrium->CalcEquilibrium(texts(first).get(), texts(second).get(), Text(solutionType).get());
    }
    bool isSupported(const Specification &first, const Specification &second,
                     std::string_view solutionType = "Unspecified")
    {
        VARIANT_BOOL supported = 7;
        EXPECT_EQ(equilibrium->CheckEquilibriumSpec(texts(first).get(), texts(second).get(), Text(solutionType).get(),
                                                    &supported),
                  S_OK);
        return supported == VARIANT_TRUE;
    }
    void expectRefusal(HRESULT result, const ErrorKind &kind, const char *description)
    {
        expectFailure(result, kind, "ICapeThermoEquilibriumRoutine", "CalcEquilibrium", description);
        EXPECT_TRUE(material.written.empty());
        EXPECT_TRUE(material.statuses.empty());
    }
};

const char *const onlyTP = "Only flashes at given overall temperature and pressure can be calculated";

} // namespace

TEST_F(PackageFlash, WritesTwoPhasesInTheOrderThatKeepsThem)
{
    setMaterial();
    material.calls.clear();
    ASSERT_EQ(calculate(), S_OK);
    EXPECT_EQ(material.calls, (std::vector<std::string>{
                                  "GetPresentPhases", "GetOverallTPFraction", "SetPresentPhases",
                                  "SetSinglePhaseProp Vapor/temperature", "SetSinglePhaseProp Vapor/pressure",
                                  "SetSinglePhaseProp Vapor/fraction", "SetSinglePhaseProp Vapor/phaseFraction",
                                  "SetSinglePhaseProp Liquid/temperature", "SetSinglePhaseProp Liquid/pressure",
                                  "SetSinglePhaseProp Liquid/fraction", "SetSinglePhaseProp Liquid/phaseFraction"}));
    EXPECT_EQ(material.presentPhases, (std::vector<std::string>{"Vapor", "Liquid"}));
    EXPECT_EQ(material.statuses, (std::vector<LONG>{1, 1})); // CAPE_ATEQUILIBRIUM
}

TEST_F(PackageFlash, GivesPhasesInEquilibriumInTheMaterialsOrder)
{
    setMaterial();
    ASSERT_EQ(calculate(), S_OK);
    auto &written = material.written;
    for (const std::string phase : {"Vapor", "Liquid"}) {
        EXPECT_EQ(written[phase + "/temperature"].values, std::vector<double>{250.0});
        EXPECT_EQ(written[phase + "/temperature"].basis, "");
        EXPECT_EQ(written[phase + "/pressure"].values, std::vector<double>{3e6});
        EXPECT_EQ(written[phase + "/pressure"].basis, "");
        EXPECT_EQ(written[phase + "/fraction"].basis, "mole");
        EXPECT_EQ(written[phase + "/phaseFraction"].basis, "mole");
        ASSERT_EQ(written[phase + "/fraction"].values.size(), 3u);
    }
    const std::vector<double> vapor = written["Vapor/fraction"].values;
    const std::vector<double> liquid = written["Liquid/fraction"].values;
    const double amount = written["Vapor/phaseFraction"].values[0];
    EXPECT_NEAR(amount + written["Liquid/phaseFraction"].values[0], 1.0, 1e-15);
    for (int i = 0; i < 3; ++i)
        EXPECT_NEAR(amount * vapor[i] + (1.0 - amount) * liquid[i], material.composition[i], 1e-12);

    // Equal fugacities, by the package's own property calculation.
    std::vector<double> fugacities[2];
    for (const bool isLiquid : {false, true}) {
        material.composition = isLiquid ? liquid : vapor;
        const std::string phase = isLiquid ? "Liquid" : "Vapor";
        ASSERT_EQ(properties->CalcSinglePhaseProp(texts({"fugacity"}).get(), Text(phase).get()), S_OK);
        fugacities[isLiquid] = written[phase + "/fugacity"].values;
    }
    for (int i = 0; i < 3; ++i)
        EXPECT_NEAR(fugacities[0][i], fugacities[1][i], 1e-9 * fugacities[0][i]);
    EXPECT_LT(vapor[0], liquid[0]); // propane
    EXPECT_GT(vapor[2], liquid[2]); // nitrogen
}

TEST_F(PackageFlash, WritesOnePhaseWhereThereIsOne)
{
    setMaterial();
    material.temperature = 400.0;
    ASSERT_EQ(calculate(), S_OK);
    EXPECT_EQ(material.presentPhases, std::vector<std::string>{"Vapor"});
    EXPECT_EQ(material.statuses, std::vector<LONG>{1});
    EXPECT_EQ(material.written["Vapor/fraction"].values, material.composition);
    EXPECT_EQ(material.written["Vapor/phaseFraction"].values, std::vector<double>{1.0});
    EXPECT_EQ(material.written.size(), 4u);
    material.written.clear();
    material.presentPhases = {"Vapor", "Liquid"};
    material.temperature = 100.0;
    ASSERT_EQ(calculate(), S_OK);
    EXPECT_EQ(material.presentPhases, std::vector<std::string>{"Liquid"});
    EXPECT_EQ(material.written.count("Liquid/phaseFraction"), 1u);
    EXPECT_EQ(material.written.size(), 4u);
}

TEST_F(PackageFlash, TakesTheSpecificationsInAnyCaseAndOrder)
{
    setMaterial();
    EXPECT_EQ(calculate(givenPressure, givenTemperature), S_OK);
    EXPECT_EQ(calculate({"TEMPERATURE", "", "overall"}, {"pressure", "mole", "OVERALL"}, ""), S_OK);
    EXPECT_EQ(calculate({"temperature", "", "Overall", ""}, givenPressure, "normal"), S_OK);
    EXPECT_EQ(calculate(givenTemperature, givenPressure, "Retrograde"), S_OK);
    EXPECT_EQ(equilibrium->CalcEquilibrium(texts(givenTemperature).get(), texts(givenPressure).get(), nullptr), S_OK);
}

TEST_F(PackageFlash, ScalesAFeedThatDoesNotSumToOne)
{
    setMaterial();
    ASSERT_EQ(calculate(), S_OK);
    const double amount = material.written["Vapor/phaseFraction"].values[0];
    material.composition = {20.0, 50.0, 10.0};
    ASSERT_EQ(calculate(), S_OK);
    EXPECT_NEAR(material.written["Vapor/phaseFraction"].values[0], amount, 1e-12);
}

TEST_F(PackageFlash, UsesOnlyThePhasesThatTheMaterialLists)
{
    setMaterial();
    material.presentPhases = {"liquid"};
    ASSERT_EQ(calculate(), S_OK);
    EXPECT_EQ(material.presentPhases, std::vector<std::string>{"Liquid"});
    EXPECT_EQ(material.written["Liquid/phaseFraction"].values, std::vector<double>{1.0});
    EXPECT_EQ(material.written["Liquid/fraction"].values, material.composition);
    material.written.clear();
    material.presentPhases = {"Vapor"};
    ASSERT_EQ(calculate(), S_OK);
    EXPECT_EQ(material.written["Vapor/phaseFraction"].values, std::vector<double>{1.0});
    EXPECT_EQ(material.written.size(), 4u);
}

TEST_F(PackageFlash, RefusesPhasesItCannotUse)
{
    setMaterial();
    material.presentPhases = {};
    expectRefusal(calculate(), errors::invalidArgument, "The material lists no phase that the flash may use");
    material.presentPhases = {"Vapor", "Ice"};
    expectRefusal(calculate(), errors::invalidArgument, "There is no phase \"Ice\"");
}

TEST_F(PackageFlash, RefusesOtherKindsOfFlash)
{
    setMaterial();
    expectRefusal(calculate({"enthalpy", "", "Overall"}), errors::limitedImplementation, onlyTP);
    expectRefusal(calculate(givenTemperature, {"phaseFraction", "mole", "Vapor"}), errors::limitedImplementation,
                  onlyTP);
    expectRefusal(calculate({"temperature", "", "Vapor"}), errors::limitedImplementation, onlyTP);
    expectRefusal(calculate(givenPressure, givenPressure), errors::invalidArgument,
                  "The two flash specifications are the same");
    expectRefusal(calculate(givenTemperature, givenPressure, "Any"), errors::invalidArgument,
                  "The solution type must be Unspecified, Normal or Retrograde");
    const char *shape = "A flash specification must be an array of property, basis, phase and perhaps compound";
    expectRefusal(calculate({"temperature", ""}), errors::invalidArgument, shape);
    expectRefusal(equilibrium->CalcEquilibrium({}, texts(givenPressure).get(), nullptr), errors::invalidArgument,
                  shape);
    expectRefusal(equilibrium->CalcEquilibrium(texts(givenTemperature).get(), numbers({1.0, 2.0, 3.0}).get(), nullptr),
                  errors::invalidArgument, shape);
}

TEST_F(PackageFlash, TellsBeforehandWhatItRefuses)
{
    EXPECT_TRUE(isSupported(givenTemperature, givenPressure));
    EXPECT_TRUE(isSupported(givenPressure, givenTemperature, "Normal"));
    EXPECT_FALSE(isSupported(givenPressure, givenPressure));
    EXPECT_FALSE(isSupported(givenPressure, {"enthalpy", "", "Overall"}));
    EXPECT_FALSE(isSupported(givenTemperature, givenPressure, "Any"));
    EXPECT_FALSE(isSupported({"temperature"}, givenPressure));
    EXPECT_EQ(equilibrium->CheckEquilibriumSpec({}, {}, nullptr, nullptr), E_POINTER);
}

TEST_F(PackageFlash, RefusesConditionsThatMakeNoSense)
{
    expectRefusal(calculate(), errors::badInvocationOrder, "No material is set");
    setMaterial();
    material.composition = {0.5, -0.1, 0.6};
    expectRefusal(calculate(), errors::invalidArgument,
                  "The composition must be numbers that are not negative and not all zero");
    material.composition = {0.25, 0.625, 0.125};
    material.pressure = -1.0;
    expectRefusal(calculate(), errors::outOfBounds, "The pressure must be from 0.001 to 1e9 Pa");
}

TEST_F(PackageFlash, PassesOnWhatTheMaterialHasToSay)
{
    setMaterial();
    const auto expectWords = [&](const char *method, const ErrorKind &kind, const char *description) {
        material.refused = method;
        expectFailure(calculate(), kind, "ICapeThermoEquilibriumRoutine", "CalcEquilibrium", description);
        EXPECT_TRUE(material.written.empty());
    };
    expectWords("GetPresentPhases", errors::failedInitialisation,
                "The material does not tell its phases: GetPresentPhases is refused");
    expectWords("GetOverallTPFraction", errors::failedInitialisation,
                "The material does not give the overall conditions: GetOverallTPFraction is refused");
    expectWords("SetPresentPhases", errors::unknown,
                "The material does not take the equilibrium: SetPresentPhases is refused");
    expectWords("SetSinglePhaseProp", errors::unknown,
                "The material does not take the equilibrium: SetSinglePhaseProp is refused");
}
