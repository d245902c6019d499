#include "tests/reference/com/host.h"
#include "tests/support/mex_test.h"

#include <algorithm>
#include <cmath>

using namespace support;

namespace {

constexpr double R = 8.31446261815324; // J/mol/K

// The library of the reference packages, registered as long as a test runs.
class ReferencePackages : public MexTest {
protected:
    void SetUp() override
    {
        MexTest::SetUp();
        ASSERT_EQ(library.registerServer(), S_OK);
    }
    void TearDown() override
    {
        MexTest::TearDown();
        EXPECT_EQ(library.canUnloadNow(), S_OK);
        EXPECT_EQ(library.unregisterServer(), S_OK);
    }

    Array openPackage(const char *name) { return open("Verdanth Reference Packages", name); }
    std::vector<std::string> compoundsOf(const Array &package)
    {
        std::vector<std::string> names;
        for (const WideString &name : mustReturn(1, {Scalar(7), package})[0].texts())
            names.emplace_back(name.begin(), name.end());
        return names;
    }

    // A composition of the package's compounds from a few of them.
    std::vector<double> mixture(const Array &package, const std::vector<std::pair<std::string, double>> &parts)
    {
        const std::vector<std::string> names = compoundsOf(package);
        std::vector<double> fractions(names.size(), 0.0);
        for (const auto &[name, fraction] : parts) {
            const auto found = std::find(names.begin(), names.end(), name);
            EXPECT_NE(found, names.end()) << name;
            if (found != names.end())
                fractions[static_cast<std::size_t>(found - names.begin())] = fraction;
        }
        return fractions;
    }

    // Command 24: phases, their fractions and compositions, temperature, pressure.
    CallResult flash(const Array &package, const std::vector<double> &feed, const char *property1, double value1,
                     const char *property2, double value2, const char *type = "Unspecified")
    {
        return call(5, {Scalar(24), package, Row(feed), Text(property1), Scalar(value1), Text(property2),
                        Scalar(value2), Text(type)});
    }

    // Command 22 at one condition.
    std::vector<double> phaseProperty(const Array &package, const char *name, double temperature, double pressure,
                                      const std::vector<double> &fractions, const char *phase)
    {
        const CallResult result = mustReturn(1, {Scalar(22), Scalar(1), package, Text(name), Scalar(temperature),
                                                 Scalar(pressure), Row(fractions), Text(phase)});
        return result[0].element(0).numbers();
    }

    Library library;
};

} // namespace

TEST_F(ReferencePackages, AreListed)
{
    const CallResult list = mustReturn(1, {Scalar(2), Text("Verdanth Reference Packages")});
    std::vector<std::string> names;
    for (const WideString &name : list[0].texts())
        names.emplace_back(name.begin(), name.end());
    EXPECT_EQ(names,
              (std::vector<std::string>{"Natural gas", "Air", "Refinery gas", "Aromatics", "Refrigerants",
                                        "Water and light alcohols", "Wet gas and hydrocarbons",
                                        "All compounds (Peng-Robinson)", "All compounds (Soave-Redlich-Kwong)"}));
}

TEST_F(ReferencePackages, TellWhatAFlashCanBeGiven)
{
    const Array package = openPackage("Natural gas");
    const CallResult list = mustReturn(1, {Scalar(15), package});
    std::vector<std::string> names;
    for (const WideString &name : list[0].texts())
        names.emplace_back(name.begin(), name.end());
    EXPECT_EQ(names, (std::vector<std::string>{"Temperature", "Pressure", "vaporFraction", "volume", "enthalpy",
                                               "enthalpyF", "enthalpyNF", "entropy", "entropyF", "entropyNF",
                                               "gibbsEnergy", "helmholtzEnergy", "internalEnergy"}));
}

// Water boils at 373.12 K at one atmosphere, where methanol does at 337.6 K; a column for each
// compound, a row for each temperature. NIST Chemistry WebBook.
TEST_F(ReferencePackages, GiveVaporPressuresAndBoilingPointsOfAllCompounds)
{
    const Array package = openPackage("Water and light alcohols");
    const std::vector<std::string> names = compoundsOf(package);
    ASSERT_EQ(names[0], "water");
    ASSERT_EQ(names[1], "methanol");
    const CallResult pressures =
        mustReturn(1, {Scalar(20), Scalar(1), package, Text("vaporPressure"), Column({337.6, 373.124})});
    const auto table = pressures[0].element(0).matrix();
    ASSERT_EQ(table.size(), 2u);
    EXPECT_NEAR(table[1][0], 101325.0, 300.0);
    EXPECT_NEAR(table[0][1], 101325.0, 1000.0);
    const CallResult temperatures =
        mustReturn(1, {Scalar(21), Scalar(1), package, Text("boilingPointTemperature"), Scalar(101325.0)});
    EXPECT_NEAR(temperatures[0].element(0).matrix()[0][0], 373.124, 0.1);
    EXPECT_NEAR(temperatures[0].element(0).matrix()[0][1], 337.6, 0.3);
}

TEST_F(ReferencePackages, ComeBackToTheTemperatureFromTheEnthalpy)
{
    const Array package = openPackage("Natural gas");
    const std::vector<double> feed = mixture(package, {{"methane", 0.7}, {"propane", 0.25}, {"n-pentane", 0.05}});
    const CallResult start = flash(package, feed, "Temperature", 230.0, "Pressure", 2e6);
    ASSERT_TRUE(start.returned) << start.error;
    ASSERT_EQ(start[0].count(), 2u);
    for (const char *name : {"enthalpy", "enthalpyF", "entropy", "entropyF", "volume", "internalEnergy"}) {
        double value = 0.0;
        for (std::size_t phase = 0; phase < 2; ++phase) {
            const std::vector<std::vector<double>> compositions = start[2].matrix();
            value += start[1].numbers()[phase] *
                     phaseProperty(package, name, 230.0, 2e6, compositions[phase], phase == 0 ? "Vapor" : "Liquid")[0];
        }
        const CallResult back = flash(package, feed, "Pressure", 2e6, name, value);
        ASSERT_TRUE(back.returned) << name << ": " << back.error;
        EXPECT_NEAR(back[3].number(), 230.0, 1e-5) << name;
        EXPECT_EQ(back[4].number(), 2e6) << name;
        EXPECT_NEAR(back[1].numbers()[0], start[1].numbers()[0], 1e-6) << name;
    }
}

TEST_F(ReferencePackages, TakeVaporFractionsOfMassInMassBasis)
{
    const Array package = openPackage("Aromatics");
    useBasis("mass");
    const std::vector<double> feed = mixture(package, {{"benzene", 0.3}, {"p-xylene", 0.7}});
    const CallResult result = flash(package, feed, "Pressure", 101325.0, "vaporFraction", 0.4);
    ASSERT_TRUE(result.returned) << result.error;
    ASSERT_EQ(result[0].count(), 2u);
    EXPECT_NEAR(result[1].numbers()[0], 0.4, 1e-8);
    const auto compositions = result[2].matrix();
    for (std::size_t i = 0; i < feed.size(); ++i)
        EXPECT_NEAR(0.4 * compositions[0][i] + 0.6 * compositions[1][i], feed[i], 1e-8) << i;
    useBasis("mole");
}

TEST_F(ReferencePackages, GiveTheRatiosOfAFlashAsKValues)
{
    const Array package = openPackage("Refinery gas");
    const std::vector<double> feed =
        mixture(package, {{"hydrogen", 0.2}, {"propylene", 0.4}, {"n-butane", 0.3}, {"n-hexane", 0.1}});
    const CallResult split = flash(package, feed, "Temperature", 300.0, "Pressure", 1e6);
    ASSERT_TRUE(split.returned) << split.error;
    ASSERT_EQ(split[0].count(), 2u);
    const auto compositions = split[2].matrix();
    const CallResult pair = mustReturn(
        1, {Scalar(23), Scalar(3), package, Texts({"kvalue", "surfaceTension", "logKvalue.Dmoles"}), Scalar(300.0),
            Scalar(1e6), Row(compositions[0]), Row(compositions[1]), Text("Vapor"), Text("Liquid")});
    const std::vector<double> K = pair[0].element(0).numbers();
    ASSERT_EQ(K.size(), feed.size());
    for (std::size_t i = 0; i < feed.size(); ++i)
        if (feed[i] > 0.0) {
            EXPECT_NEAR(K[i] * compositions[1][i], compositions[0][i], 1e-8 * K[i]) << i;
        }
    const double tension = pair[0].element(1).number(); // of a light mixture, in N/m
    EXPECT_GT(tension, 2e-3);
    EXPECT_LT(tension, 20e-3);
    const Array byMoles = pair[0].element(2);
    ASSERT_EQ(byMoles.count(), 2u); // of the composition of each phase
    for (std::size_t phase = 0; phase < 2; ++phase)
        EXPECT_EQ(byMoles.element(phase).count(), feed.size() * feed.size());
}

TEST_F(ReferencePackages, SayWhyAFlashFails)
{
    const Array package = openPackage("Natural gas");
    const std::vector<double> feed = mixture(package, {{"methane", 1.0}});
    const CallResult impossible = flash(package, feed, "Pressure", 1e5, "enthalpy", 1e9);
    EXPECT_FALSE(impossible.returned);
    EXPECT_TRUE(impossible.error.starts_with("CalcEquilibrium failed: ")) << impossible.error;
    EXPECT_NE(impossible.error.find("enthalpy 1e+09"), std::string::npos) << impossible.error;
    EXPECT_NE(impossible.error.find("pressure 100000"), std::string::npos) << impossible.error;
    const CallResult outside = flash(package, feed, "Temperature", 5.0, "Pressure", 1e5);
    EXPECT_EQ(outside.error, "CalcEquilibrium failed: The temperature must be from 20 to 1500 K");
}

// The ideal gas at low pressure, in both bases.
TEST_F(ReferencePackages, ConvertToMassBasis)
{
    const Array package = openPackage("Air");
    const std::vector<double> air = mixture(package, {{"nitrogen", 0.7812}, {"oxygen", 0.2095}, {"argon", 0.0093}});
    EXPECT_NEAR(phaseProperty(package, "density", 300.0, 100.0, air, "Vapor")[0], 100.0 / (R * 300.0), 1e-7);
    useBasis("mass");
    const std::vector<double> byMass = mixture(package, {{"nitrogen", 0.7555}, {"oxygen", 0.2316}, {"argon", 0.0129}});
    EXPECT_NEAR(phaseProperty(package, "density", 300.0, 100.0, byMass, "Vapor")[0], 28.965e-3 * 100.0 / (R * 300.0),
                1e-6);
    useBasis("mole");
}
