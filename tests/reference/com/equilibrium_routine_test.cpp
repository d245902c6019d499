#include "reference/engine/flash/flash.h"
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
        return equilibrium->CalcEquilibrium(texts(first).get(), texts(second).get(), Bstr(solutionType).get());
    }
    bool isSupported(const Specification &first, const Specification &second,
                     std::string_view solutionType = "Unspecified")
    {
        VARIANT_BOOL supported = 7;
        EXPECT_EQ(equilibrium->CheckEquilibriumSpec(texts(first).get(), texts(second).get(), Bstr(solutionType).get(),
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
        ASSERT_EQ(properties->CalcSinglePhaseProp(texts({"fugacity"}).get(), Bstr(phase).get()), S_OK);
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
    expectRefusal(calculate(), errors::failedInitialization, "The material lists no phase that the flash may use");
    material.presentPhases = {"Vapor", "Ice"};
    expectRefusal(calculate(), errors::failedInitialization, "There is no phase \"Ice\"");
}

TEST_F(PackageFlash, RefusesOtherKindsOfFlash)
{
    setMaterial();
    expectRefusal(calculate({"viscosity", "", "Overall"}), errors::limitedImplementation,
                  "A flash can't be given the property \"viscosity\"");
    expectRefusal(calculate({"temperature", "", "Vapor"}), errors::limitedImplementation,
                  "A flash can be given the temperature of the phase \"Overall\", and not of \"Vapor\"");
    expectRefusal(calculate({"phaseFraction", "mole", "Overall"}), errors::invalidArgument,
                  "A flash can be given the fraction of a phase of the package, and not of \"Overall\"");
    expectRefusal(calculate({"phaseFraction", "volume", "Vapor"}), errors::invalidArgument,
                  "The basis of a phase fraction must be mole or mass, and not \"volume\"");
    expectRefusal(calculate(givenPressure, givenPressure), errors::invalidArgument,
                  "The two flash specifications are the same");
    expectRefusal(calculate({"phaseFraction", "mole", "Liquid"}, {"phaseFraction", "", "vapor"}),
                  errors::invalidArgument, "The two flash specifications are the same");
    expectRefusal(calculate({"phaseFraction", "mass", "Vapor"}, {"phaseFraction", "mole", "Vapor"}),
                  errors::limitedImplementation,
                  "A vapor fraction and a vapor mass fraction do not determine a temperature");
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
    EXPECT_TRUE(isSupported(givenPressure, {"ENTHALPY", "", "overall"}));
    EXPECT_TRUE(isSupported({"phaseFraction", "Mass", "vapor"}, givenPressure, "Retrograde"));
    EXPECT_FALSE(isSupported(givenPressure, givenPressure));
    EXPECT_FALSE(isSupported(givenPressure, {"enthalpy", "", "Liquid"}));
    EXPECT_FALSE(isSupported(givenPressure, {"viscosity", "", "Overall"}));
    EXPECT_FALSE(isSupported(givenPressure, {"phaseFraction", "", "Solid"}));
    EXPECT_FALSE(isSupported(givenTemperature, givenPressure, "Any"));
    EXPECT_FALSE(isSupported({"temperature"}, givenPressure));
    EXPECT_EQ(equilibrium->CheckEquilibriumSpec({}, {}, nullptr, nullptr), E_POINTER);
}

TEST_F(PackageFlash, RefusesConditionsThatMakeNoSense)
{
    expectRefusal(calculate(), errors::badInvocationOrder, "No material is set");
    setMaterial();
    material.composition = {0.5, -0.1, 0.6};
    expectRefusal(calculate(), errors::failedInitialization,
                  "The composition must be numbers that are not negative and not all zero");
    material.composition = {0.25, 0.625, 0.125};
    material.pressure = -1.0;
    expectRefusal(calculate(), errors::outOfBounds, "The pressure must be from 0.01 to 1e8 Pa");
}

TEST_F(PackageFlash, PassesOnWhatTheMaterialHasToSay)
{
    setMaterial();
    const auto expectWords = [&](const char *method, const ErrorKind &kind, const char *description) {
        material.refused = method;
        expectFailure(calculate(), kind, "ICapeThermoEquilibriumRoutine", "CalcEquilibrium", description);
        EXPECT_TRUE(material.written.empty());
    };
    expectWords("GetPresentPhases", errors::failedInitialization,
                "The material does not tell its phases: GetPresentPhases is refused");
    expectWords("GetOverallTPFraction", errors::failedInitialization,
                "The material does not give the overall conditions: GetOverallTPFraction is refused");
    expectWords("SetPresentPhases", errors::unknown,
                "The material does not take the equilibrium: SetPresentPhases is refused");
    expectWords("SetSinglePhaseProp", errors::unknown,
                "The material does not take the equilibrium: SetSinglePhaseProp is refused");
}

namespace {

const char *const molarNames[] = {"enthalpy", "entropy", "volume", "internalEnergy", "gibbsEnergy", "helmholtzEnergy"};

Specification overallOf(const std::string &name) { return {name, "", "Overall"}; }

class PackageFlashPairs : public PackageFlash {
protected:
    void SetUp() override
    {
        PackageFlash::SetUp();
        setMaterial();
    }

    // What the state that the last flash wrote has of a property, by the package's own calculation for
    // each of its phases.
    double valueOf(const std::string &name)
    {
        const auto phases = material.presentPhases;
        const auto written = [&](const std::string &key) { return material.written.at(key).values; };
        if (name == "temperature" || name == "pressure")
            return written(phases[0] + "/" + name)[0];
        if (name == "phaseFraction")
            return material.written.count("Vapor/phaseFraction") ? written("Vapor/phaseFraction")[0] : 0.0;
        double sum = 0.0;
        for (const std::string &phase : phases) {
            material.temperature = written(phase + "/temperature")[0];
            material.pressure = written(phase + "/pressure")[0];
            material.ownCompositions[phase] = written(phase + "/fraction");
            EXPECT_EQ(properties->CalcSinglePhaseProp(texts({name}).get(), Bstr(phase).get()), S_OK) << name;
            sum += written(phase + "/phaseFraction")[0] * written(phase + "/" + name)[0];
        }
        return sum;
    }
    void giveOverall(const std::string &name, double value)
    {
        if (name == "phaseFraction")
            material.given["Vapor/phaseFraction/mole"] = value;
        else if (name == "temperature")
            material.given["Overall/temperature/"] = material.temperature = value;
        else if (name == "pressure")
            material.given["Overall/pressure/"] = material.pressure = value;
        else
            material.given["Overall/" + name + "/mole"] = value;
    }
    static Specification specificationOf(const std::string &name)
    {
        return name == "phaseFraction" ? Specification{name, "mole", "Vapor"} : overallOf(name);
    }
    void forgetResults()
    {
        material.written.clear();
        material.presentPhases = {"Vapor", "Liquid"};
        material.temperature = material.pressure = NAN;
        material.given.clear();
    }
};

} // namespace

// A gas that is partly condensed: what it has of everything, found at its temperature and pressure,
// determines it again, two by two.
TEST_F(PackageFlashPairs, LeadToAStateWithTheGivenValues)
{
    std::vector<std::string> names = {"temperature", "pressure", "phaseFraction"};
    names.insert(names.end(), std::begin(molarNames), std::end(molarNames));
    ASSERT_EQ(calculate(), S_OK);
    std::vector<double> values;
    for (const std::string &name : names)
        values.push_back(valueOf(name));
    ASSERT_GT(values[2], 0.1);
    ASSERT_LT(values[2], 0.9);
    for (std::size_t i = 0; i < names.size(); ++i)
        for (std::size_t j = 0; j < i; ++j) {
            SCOPED_TRACE(names[i] + " and " + names[j]);
            forgetResults();
            giveOverall(names[i], values[i]);
            giveOverall(names[j], values[j]);
            EXPECT_TRUE(isSupported(specificationOf(names[i]), specificationOf(names[j])));
            ASSERT_EQ(calculate(specificationOf(names[i]), specificationOf(names[j])), S_OK)
                << lastFailure(equilibrium.get()).description;
            for (const std::size_t k : {i, j}) {
                const double naturalSize = names[k] == "volume" || k < 3 ? 0.0 : names[k] == "entropy" ? 8.3 : 2000.0;
                EXPECT_NEAR(valueOf(names[k]), values[k], 2e-9 * (std::fabs(values[k]) + naturalSize)) << names[k];
            }
            for (const char *condition : {"temperature", "pressure"}) {
                const bool given = names[i] == condition || names[j] == condition;
                ASSERT_EQ(material.written.count(std::string("Overall/") + condition), given ? 0u : 1u) << condition;
                if (!given) {
                    EXPECT_EQ(material.written.at(std::string("Overall/") + condition).values[0], valueOf(condition));
                }
            }
        }
}

TEST_F(PackageFlashPairs, TakeEnthalpyAndEntropyWithAndWithoutFormation)
{
    ASSERT_EQ(calculate(), S_OK);
    for (const char *name : {"enthalpyF", "enthalpyNF", "entropyF", "entropyNF"}) {
        SCOPED_TRACE(name);
        forgetResults();
        giveOverall("pressure", 3e6);
        giveOverall("temperature", 250.0);
        ASSERT_EQ(calculate(), S_OK);
        const double value = valueOf(name);
        forgetResults();
        giveOverall("pressure", 3e6);
        giveOverall(name, value);
        ASSERT_EQ(calculate(givenPressure, overallOf(name)), S_OK) << lastFailure(equilibrium.get()).description;
        EXPECT_NEAR(valueOf("temperature"), 250.0, 1e-5);
    }
}

TEST_F(PackageFlashPairs, TakeTheFractionOfTheLiquidAndFractionsByMass)
{
    ASSERT_EQ(calculate(), S_OK);
    const double pressure = 3e6;
    const double liquid = material.written.at("Liquid/phaseFraction").values[0];
    const std::vector<double> weights = {44.09562, 16.04246, 28.0134}; // propane, methane, nitrogen
    double liquidMass = 0.0;
    double mass = 0.0;
    for (std::size_t i = 0; i < weights.size(); ++i) {
        liquidMass += liquid * material.written.at("Liquid/fraction").values[i] * weights[i];
        mass += material.composition[i] * weights[i];
    }
    const struct {
        const char *basis;
        const char *phase;
        double value;
    } cases[] = {{"", "Liquid", liquid},
                 {"Mole", "liquid", liquid},
                 {"mass", "Liquid", liquidMass / mass},
                 {"MASS", "Vapor", 1.0 - liquidMass / mass}};
    for (const auto &each : cases) {
        SCOPED_TRACE(std::string(each.basis) + " " + each.phase);
        forgetResults();
        giveOverall("pressure", pressure);
        const std::string phase = std::string_view(each.phase) == "liquid" ? "Liquid" : each.phase;
        const bool byMass = std::string_view(each.basis).size() == 4 && std::tolower(each.basis[1]) == 'a';
        material.given[phase + "/phaseFraction/" + (byMass ? "mass" : "mole")] = each.value;
        ASSERT_EQ(calculate({"phaseFraction", each.basis, each.phase}, givenPressure), S_OK)
            << lastFailure(equilibrium.get()).description;
        EXPECT_NEAR(valueOf("temperature"), 250.0, 1e-5);
    }
}

// At its dew point a gas is in equilibrium with a liquid of which there is nothing.
TEST_F(PackageFlashPairs, WriteThePhaseThatIsJustAboutToForm)
{
    giveOverall("pressure", 1e6);
    giveOverall("phaseFraction", 1.0);
    ASSERT_EQ(calculate(givenPressure, {"phaseFraction", "mole", "Vapor"}), S_OK);
    EXPECT_EQ(material.presentPhases, (std::vector<std::string>{"Vapor", "Liquid"}));
    EXPECT_EQ(material.written.at("Liquid/phaseFraction").values[0], 0.0);
    EXPECT_EQ(material.written.at("Vapor/phaseFraction").values[0], 1.0);
    EXPECT_GT(material.written.at("Liquid/fraction").values[0], 0.9); // propane
}

// A gas at 250 K that holds as much propane as possible condenses at two pressures.
TEST_F(PackageFlashPairs, FollowTheSolutionType)
{
    material.composition = {0.2, 0.8, 0.0};
    const Specification dew = {"phaseFraction", "mole", "Vapor"};
    const auto pressureOf = [&](const char *type) {
        forgetResults();
        giveOverall("temperature", 275.0);
        giveOverall("phaseFraction", 1.0);
        EXPECT_EQ(calculate(givenTemperature, dew, type), S_OK) << lastFailure(equilibrium.get()).description;
        return valueOf("pressure");
    };
    const double normal = pressureOf("Normal");
    const double retrograde = pressureOf("Retrograde");
    EXPECT_GT(retrograde, 1.5 * normal);
    EXPECT_EQ(pressureOf("Unspecified"), normal);
}

// Where the material allows the vapor alone, the feed is one, as warm as its enthalpy tells.
TEST_F(PackageFlashPairs, KeepToThePhaseThatIsAllowed)
{
    material.presentPhases = {"Vapor"};
    ASSERT_EQ(calculate(), S_OK);
    const double enthalpy = valueOf("enthalpy");
    forgetResults();
    material.presentPhases = {"Vapor"};
    giveOverall("pressure", 3e6);
    giveOverall("enthalpy", enthalpy);
    ASSERT_EQ(calculate(givenPressure, overallOf("enthalpy")), S_OK) << lastFailure(equilibrium.get()).description;
    EXPECT_EQ(material.presentPhases, std::vector<std::string>{"Vapor"});
    EXPECT_EQ(material.written.at("Vapor/phaseFraction").values[0], 1.0);
    EXPECT_NEAR(material.written.at("Overall/temperature").values[0], 250.0, 1e-6);
}

TEST_F(PackageFlashPairs, SayWhichSpecificationFailsAndLeaveTheMaterial)
{
    const auto expectReason = [&](const Specification &first, const Specification &second, const ErrorKind &kind,
                                  const std::vector<std::string> &words) {
        EXPECT_EQ(calculate(first, second), kind.result);
        const std::string description = lastFailure(equilibrium.get()).description;
        for (const std::string &word : words)
            EXPECT_NE(description.find(word), std::string::npos) << word << " in: " << description;
        EXPECT_TRUE(material.written.empty());
        EXPECT_TRUE(material.statuses.empty());
        EXPECT_EQ(material.presentPhases, (std::vector<std::string>{"Vapor", "Liquid"}));
    };
    giveOverall("pressure", 1e5);
    giveOverall("enthalpy", 1e9);
    expectReason(givenPressure, overallOf("enthalpy"), errors::solvingError, {"pressure", "enthalpy", "1e+09"});
    giveOverall("phaseFraction", 1.5);
    expectReason(givenPressure, {"phaseFraction", "mole", "Vapor"}, errors::outOfBounds, {"fraction", "1.5"});
    giveOverall("temperature", 600.0); // above the cricondentherm
    giveOverall("phaseFraction", 0.5);
    expectReason({"phaseFraction", "mole", "Vapor"}, givenTemperature, errors::solvingError,
                 {"fraction", "0.5", "temperature", "600"});
    giveOverall("volume", -1.0);
    expectReason(givenPressure, overallOf("volume"), errors::outOfBounds, {"volume", "-1"});
}

TEST_F(PackageFlashPairs, RefuseValuesThatTheMaterialDoesNotGive)
{
    giveOverall("pressure", 1e5);
    expectRefusal(calculate(givenPressure, overallOf("entropy")), errors::failedInitialization,
                  "The material does not give the entropy that the flash is given: The value is not set");
    giveOverall("entropy", NAN);
    expectRefusal(calculate(givenPressure, overallOf("entropy")), errors::failedInitialization,
                  "The entropy that the flash is given is not a number");
    material.presentPhases = {"Vapor"};
    giveOverall("phaseFraction", 0.5);
    expectRefusal(calculate(givenPressure, {"phaseFraction", "mole", "Vapor"}), errors::invalidArgument,
                  "A flash can be given the fraction of a phase only where it may use that phase, and vapor as well as "
                  "liquid");
}
