// Properties of a pair of phases.
#include "tests/reference/com/package_fixture.h"

#include <algorithm>
#include <cmath>

using namespace reference;

namespace {

constexpr std::size_t compoundCount = 3;
const std::vector<std::string> vaporAndLiquid = {"Vapor", "Liquid"};

class PackagePair : public PackageFixture {
protected:
    void SetUp() override
    {
        PackageFixture::SetUp();
        material.ownCompositions = {{"Vapor", {0.1, 0.7, 0.2}}, {"Liquid", {0.6, 0.35, 0.05}}};
    }
    HRESULT calculate(const std::vector<std::string> &names, const std::vector<std::string> &labels = vaporAndLiquid)
    {
        return properties->CalcTwoPhaseProp(texts(names).get(), texts(labels).get());
    }
    std::vector<double> valuesOf(const std::string &name, const std::vector<std::string> &labels = vaporAndLiquid)
    {
        EXPECT_EQ(calculate({name}, labels), S_OK) << name;
        const WrittenProperty &written = material.written[labels[0] + "," + labels[1] + "/" + name];
        EXPECT_EQ(written.basis, "") << name;
        return written.values;
    }
    bool isValid(std::string_view name, const std::vector<std::string> &labels)
    {
        VARIANT_BOOL valid = 7;
        EXPECT_EQ(properties->CheckTwoPhasePropSpec(Bstr(name).get(), texts(labels).get(), &valid), S_OK);
        return valid == VARIANT_TRUE;
    }
    void expectRefusal(HRESULT result, const ErrorKind &kind, const char *description)
    {
        expectFailure(result, kind, "ICapeThermoPropertyRoutine", "CalcTwoPhaseProp", description);
        EXPECT_TRUE(material.written.empty());
    }

    // Central difference of a property when `place` changes.
    std::vector<double> difference(const std::string &name, double &place, double step)
    {
        const double middle = place;
        place = middle - step;
        std::vector<double> slope = valuesOf(name);
        place = middle + step;
        const std::vector<double> above = valuesOf(name);
        place = middle;
        for (std::size_t i = 0; i < slope.size(); ++i)
            slope[i] = (above[i] - slope[i]) / (2.0 * step);
        return slope;
    }
};

const std::vector<std::string> pairNames = {"kvalue", "logKvalue", "surfaceTension"};

} // namespace

TEST_F(PackagePair, HasPropertiesWithFourDerivativesEach)
{
    std::vector<std::string> expected;
    for (const std::string &name : pairNames)
        for (const char *suffix : {"", ".Dtemperature", ".Dpressure", ".Dmoles", ".DmolFraction"})
            expected.push_back(name + suffix);
    Argument list;
    ASSERT_EQ(properties->GetTwoPhasePropList(list.out()), S_OK);
    EXPECT_EQ(textsOf(list.get()), expected);
    for (const std::string &name : expected) {
        EXPECT_TRUE(isValid(name, vaporAndLiquid)) << name;
        EXPECT_TRUE(isValid(name, {"LIQUID", "vapor"})) << name;
    }
    for (const char *name : {"volume", "kvalue.Dvolume", "kvalue.", "", "interfacialArea"})
        EXPECT_FALSE(isValid(name, vaporAndLiquid)) << name;
    for (const std::vector<std::string> &labels : std::vector<std::vector<std::string>>{
             {"Vapor"}, {"Vapor", "Vapor"}, {"Vapor", "vapor"}, {"Vapor", "Solid"}, {"Vapor", "Liquid", "Liquid"}})
        EXPECT_FALSE(isValid("kvalue", labels));
    VARIANT_BOOL valid = VARIANT_TRUE;
    EXPECT_EQ(properties->CheckTwoPhasePropSpec(nullptr, {}, &valid), S_OK);
    EXPECT_EQ(valid, VARIANT_FALSE);
}

// The ratio of the second phase's fugacity coefficients to the first's.
TEST_F(PackagePair, HasTheRatiosOfItsFugacityCoefficients)
{
    setMaterial();
    for (const std::string &phase : vaporAndLiquid)
        ASSERT_EQ(properties->CalcSinglePhaseProp(texts({"logFugacityCoefficient"}).get(), Bstr(phase).get()), S_OK);
    const std::vector<double> vapor = material.written["Vapor/logFugacityCoefficient"].values;
    const std::vector<double> liquid = material.written["Liquid/logFugacityCoefficient"].values;
    const std::vector<double> K = valuesOf("kvalue");
    const std::vector<double> logK = valuesOf("logKvalue");
    const std::vector<double> reverse = valuesOf("KVALUE", {"Liquid", "Vapor"});
    ASSERT_EQ(K.size(), 3u);
    ASSERT_EQ(logK.size(), 3u);
    ASSERT_EQ(reverse.size(), 3u);
    for (std::size_t i = 0; i < compoundCount; ++i) {
        EXPECT_DOUBLE_EQ(logK[i], liquid[i] - vapor[i]);
        EXPECT_DOUBLE_EQ(K[i], std::exp(logK[i]));
        EXPECT_DOUBLE_EQ(K[i] * reverse[i], 1.0);
    }
    EXPECT_LT(K[0], 1.0); // propane
    EXPECT_GT(K[2], 1.0); // nitrogen
}

TEST_F(PackagePair, HasTheRatiosOfMoleFractionsAtEquilibrium)
{
    setMaterial();
    material.ownCompositions.clear();
    const Argument temperature = texts({"temperature", "", "Overall"});
    const Argument pressure = texts({"pressure", "", "Overall"});
    ASSERT_EQ(equilibrium->CalcEquilibrium(temperature.get(), pressure.get(), nullptr), S_OK);
    for (const std::string &phase : vaporAndLiquid)
        material.ownCompositions[phase] = material.written[phase + "/fraction"].values;
    const std::vector<double> K = valuesOf("kvalue");
    for (std::size_t i = 0; i < compoundCount; ++i)
        EXPECT_NEAR(K[i], material.ownCompositions["Vapor"][i] / material.ownCompositions["Liquid"][i], 1e-9 * K[i]);
}

// Methane at its normal boiling point: 13.1 mN/m (NIST Chemistry WebBook). The fourth power of a
// density that is right to some percent.
TEST_F(PackagePair, HasASurfaceTensionInNewtonPerMeter)
{
    material.temperature = 111.667;
    material.pressure = 101325.0;
    material.ownCompositions = {{"Vapor", {0.0, 1.0, 0.0}}, {"Liquid", {0.0, 1.0, 0.0}}};
    setMaterial();
    const std::vector<double> tension = valuesOf("surfaceTension");
    ASSERT_EQ(tension.size(), 1u);
    EXPECT_NEAR(tension[0], 13.1e-3, 4e-3);
    EXPECT_EQ(valuesOf("surfaceTension", {"Liquid", "Vapor"})[0], tension[0]);
}

TEST_F(PackagePair, HasTheSlopesThatDifferencesGive)
{
    setMaterial();
    for (const std::string &name : pairNames) {
        const std::vector<double> byTemperature = valuesOf(name + ".Dtemperature");
        const std::vector<double> byPressure = valuesOf(name + ".Dpressure");
        const std::vector<double> temperatureSlope = difference(name, material.temperature, 1e-2);
        const std::vector<double> pressureSlope = difference(name, material.pressure, 100.0);
        ASSERT_EQ(byTemperature.size(), temperatureSlope.size()) << name;
        ASSERT_EQ(byPressure.size(), pressureSlope.size()) << name;
        for (std::size_t i = 0; i < byTemperature.size(); ++i) {
            EXPECT_NEAR(byTemperature[i], temperatureSlope[i], 1e-6 * std::fabs(temperatureSlope[i])) << name << i;
            EXPECT_NEAR(byPressure[i], pressureSlope[i], 1e-6 * std::fabs(pressureSlope[i])) << name << i;
        }
    }
}

// The whole block for the first phase's composition, then that for the second's; in each the
// derivatives of all values by one compound together. What sums to one is scaled back to one, so that
// a step in one amount is a step of moles.
TEST_F(PackagePair, HasCompositionDerivativesPhaseByPhaseAndCompoundByCompound)
{
    setMaterial();
    for (const std::vector<std::string> &labels : {vaporAndLiquid, std::vector<std::string>{"Liquid", "Vapor"}}) {
        for (const std::string &name : pairNames) {
            const std::vector<double> byMoles = valuesOf(name + ".Dmoles", labels);
            const std::vector<double> byFraction = valuesOf(name + ".DmolFraction", labels);
            const std::vector<double> values = valuesOf(name, labels);
            const std::size_t block = values.size();
            double largest = 0.0;
            for (const double value : values)
                largest = std::max(largest, std::fabs(value));
            ASSERT_EQ(byMoles.size(), 2 * compoundCount * block);
            ASSERT_EQ(byFraction.size(), byMoles.size());
            for (std::size_t phase = 0; phase < 2; ++phase) {
                const std::size_t start = phase * compoundCount * block;
                for (std::size_t j = 0; j < compoundCount; ++j) {
                    double &amount = material.ownCompositions[labels[phase]][j];
                    const double middle = amount;
                    amount = middle - 1e-5;
                    std::vector<double> slope = valuesOf(name, labels);
                    amount = middle + 1e-5;
                    const std::vector<double> above = valuesOf(name, labels);
                    amount = middle;
                    for (std::size_t i = 0; i < block; ++i) {
                        slope[i] = (above[i] - slope[i]) / 2e-5;
                        EXPECT_NEAR(byMoles[start + i + block * j], slope[i],
                                    1e-6 * std::fabs(slope[i]) + 1e-9 * largest)
                            << name << " " << i << " by " << j << " of " << labels[phase];
                    }
                }
                // A step from the last compound to another one is the same for amounts and fractions.
                for (std::size_t j = 0; j + 1 < compoundCount; ++j)
                    for (std::size_t i = 0; i < block; ++i) {
                        const auto step = [&](const std::vector<double> &values) {
                            return values[start + i + block * j] - values[start + i + block * (compoundCount - 1)];
                        };
                        EXPECT_NEAR(step(byFraction), step(byMoles), 1e-9 * (largest + std::fabs(step(byMoles))))
                            << name;
                    }
            }
        }
    }
}

TEST_F(PackagePair, ReadsBothPhasesAndWritesWhatIsAskedFor)
{
    setMaterial();
    material.calls.clear();
    ASSERT_EQ(calculate({"kvalue", "LogKvalue.dpressure"}, {"vapor", "LIQUID"}), S_OK);
    EXPECT_EQ(material.calls, (std::vector<std::string>{"GetTPFraction vapor", "GetTPFraction LIQUID",
                                                        "SetTwoPhaseProp vapor,LIQUID/kvalue",
                                                        "SetTwoPhaseProp vapor,LIQUID/LogKvalue.dpressure"}));
}

TEST_F(PackagePair, RefusesWrongArguments)
{
    expectRefusal(calculate({"kvalue"}), errors::badInvocationOrder, "No material is set");
    setMaterial();
    expectRefusal(calculate({"kvalue"}, {"Vapor"}), errors::invalidArgument,
                  "The phases must be an array of two labels");
    expectRefusal(properties->CalcTwoPhaseProp(texts({"kvalue"}).get(), {}), errors::invalidArgument,
                  "The phases must be an array of two labels");
    expectRefusal(calculate({"kvalue"}, {"Vapor", "Solid"}), errors::invalidArgument, "There is no phase \"Solid\"");
    expectRefusal(calculate({"kvalue"}, {"Vapor", "vapor"}), errors::invalidArgument, "The two phases are the same");
    expectRefusal(calculate({}), errors::invalidArgument, "The properties must be an array of one name or more");
    expectRefusal(calculate({"kvalue", "volume"}), errors::limitedImplementation,
                  "Pairs of phases have no property \"volume\" here");
    material.ownCompositions["Liquid"] = {1.0};
    expectRefusal(calculate({"kvalue"}), errors::failedInitialization,
                  "The composition must be an array of one number for each compound of the material");
}

TEST_F(PackagePair, PassesOnWhatTheMaterialHasToSay)
{
    setMaterial();
    material.refused = "GetTPFraction";
    expectRefusal(calculate({"kvalue"}), errors::failedInitialization,
                  "The material does not give the conditions of the phase: GetTPFraction is refused");
    material.refused = "SetTwoPhaseProp";
    expectRefusal(calculate({"kvalue"}), errors::unknown,
                  "The material does not take a property: SetTwoPhaseProp is refused");
}
