// The packages of the manager: what is in them, by which model, and that they leave each other alone.
#include "reference/engine/phase/mixture_model.h"
#include "reference/package/package_table.h"
#include "reference/server/class_table.h"
#include "tests/reference/com/opened_package.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <set>

using namespace reference;

namespace {

// For each package a mixture of its own that has two phases.
const struct {
    std::string name;
    std::vector<std::string> compounds;
    std::vector<double> composition;
    double temperature;
    double pressure;
} mixtures[] = {
    {"Natural gas", {"methane", "propane", "nitrogen"}, {0.6, 0.35, 0.05}, 240.0, 3e6},
    {"Air", {"oxygen", "nitrogen", "argon"}, {0.2095, 0.7812, 0.0093}, 81.0, 101325.0},
    {"Refinery gas", {"hydrogen", "propylene", "n-butane"}, {0.2, 0.4, 0.4}, 300.0, 1e6},
    {"Aromatics", {"benzene", "toluene"}, {0.5, 0.5}, 368.0, 101325.0},
    {"Refrigerants", {"R-32", "R-134a"}, {0.5, 0.5}, 260.0, 3.3e5},
    {"Water and light alcohols", {"methanol", "water"}, {0.5, 0.5}, 350.0, 85e3},
    {"Wet gas and hydrocarbons", {"methane", "n-hexane", "water"}, {0.5, 0.2, 0.3}, 410.0, 2e6},
    {"All compounds (Peng-Robinson)", {"methane", "benzene", "ammonia"}, {0.4, 0.4, 0.2}, 300.0, 1e6},
    {"All compounds (Soave-Redlich-Kwong)", {"methane", "benzene", "ammonia"}, {0.4, 0.4, 0.2}, 300.0, 1e6},
};

} // namespace

TEST(Packages, AreAllOfThese)
{
    std::vector<std::string_view> names;
    for (const PackageDefinition &definition : packageTable())
        names.push_back(definition.name);
    std::vector<std::string_view> expected;
    for (const auto &mixture : mixtures)
        expected.push_back(mixture.name);
    EXPECT_EQ(names, expected);
    EXPECT_EQ(naturalGas().name, "Natural gas");
}

TEST(Packages, HaveCompoundsOfTheTableEachOnce)
{
    Library library;
    for (const PackageDefinition &definition : packageTable()) {
        for (const std::string_view id : definition.compounds)
            EXPECT_NE(findCompound(id), nullptr) << id << " of " << definition.name;
        const std::vector<std::string> ids = OpenedPackage(library, definition.name).ids();
        EXPECT_EQ(std::set<std::string>(ids.begin(), ids.end()).size(), ids.size()) << definition.name;
        EXPECT_LE(ids.size(), static_cast<std::size_t>(maximumCompounds)) << definition.name;
    }
    for (const char *all : {"All compounds (Peng-Robinson)", "All compounds (Soave-Redlich-Kwong)"})
        EXPECT_GE(OpenedPackage(library, all).ids().size(), 40u) << all;
}

TEST(Packages, SplitMixturesOfTheirsIntoTwoPhasesInEquilibrium)
{
    Library library;
    for (const auto &mixture : mixtures) {
        SCOPED_TRACE(mixture.name);
        OpenedPackage package(library, mixture.name);
        package.setMaterial(mixture.compounds, mixture.temperature, mixture.pressure, mixture.composition);
        const auto written = package.flash();
        ASSERT_EQ(written.size(), 8u);
        package.expectEquilibrium(written, {"Vapor", "Liquid"});
    }
}

// Gas, condensate and water of a well at 313 K and 60 bar.
TEST(Packages, SplitAWetGasIntoThreePhases)
{
    Library library;
    OpenedPackage package(library, "Wet gas and hydrocarbons");
    package.setMaterial({"methane", "propane", "n-decane", "carbon dioxide", "water"}, 313.15, 6e6,
                        {0.6, 0.1, 0.1, 0.05, 0.15});
    const std::vector<std::string> all = {"Vapor", "Liquid", "Liquid2"};
    const auto written = package.flash(all);
    package.expectEquilibrium(written, all);
    EXPECT_GT(written.at("Vapor/fraction").values[0], 0.8);    // methane
    EXPECT_GT(written.at("Liquid/fraction").values[2], 0.4);   // n-decane
    EXPECT_GT(written.at("Liquid2/fraction").values[4], 0.99); // water
}

// At the critical point of a pure compound the compressibility factor is that of its equation: 0.3074
// by Peng and Robinson, 1/3 by Soave, Redlich and Kwong. It changes steeply there.
TEST(Packages, UseTheEquationOfTheirName)
{
    Library library;
    const struct {
        const char *name;
        double factor;
    } equations[] = {{"All compounds (Peng-Robinson)", 0.30740}, {"All compounds (Soave-Redlich-Kwong)", 1.0 / 3.0}};
    for (const auto &equation : equations) {
        OpenedPackage package(library, equation.name);
        package.setMaterial({"propane"}, 369.89, 4.2512e6, {1.0});
        EXPECT_NEAR(package.valuesOf("compressibilityFactor", "Vapor")[0], equation.factor, 2e-4) << equation.name;
    }
}

// Where each compound boils: a vapor pressure, a heat of vaporization, and whatever else belongs to it
// but for surface tensions without a parachor. Helium boils below the range of the packages, and carbon
// dioxide not at this reduced temperature.
TEST(Packages, KnowWhatEveryCompoundHasWhereItBoils)
{
    Library library;
    OpenedPackage package(library, "All compounds (Peng-Robinson)");
    const std::vector<std::string> ids = package.ids();
    const std::vector<std::string> names = {
        "vaporPressure",        "volumeOfLiquid",       "heatOfVaporization",          "viscosityOfVapor",
        "heatCapacityOfLiquid", "idealGasHeatCapacity", "volumeChangeUponVaporization"};
    Argument constants;
    ASSERT_EQ(package.compounds->GetCompoundConstant(texts({"criticalTemperature"}).get(), {}, constants.out()), S_OK);
    ArrayView<VARIANT, VT_VARIANT> criticalTemperatures;
    ASSERT_TRUE(criticalTemperatures.open(constants.get()));
    for (std::size_t i = 0; i < ids.size(); ++i) {
        if (ids[i] == "helium")
            continue;
        const double temperature =
            (ids[i] == "carbon dioxide" ? 0.8 : 0.7) * criticalTemperatures[static_cast<int>(i)].dblVal;
        Argument values;
        ASSERT_EQ(package.compounds->GetTDependentProperty(texts(names).get(), temperature, texts({ids[i]}).get(),
                                                           values.out()),
                  S_OK)
            << ids[i] << ": " << lastFailure(package.compounds.get()).description;
        for (std::size_t k = 0; k < names.size(); ++k)
            EXPECT_GT(numbersOf(values.get())[k], 0.0) << names[k] << " of " << ids[i];
    }
}

// The liquid of an ideal mixture does not yield to pressure; what it lacks is not promised, and refused.
TEST(Packages, DoNotPromiseWhatTheirModelLacks)
{
    Library library;
    OpenedPackage package(library, "Water and light alcohols");
    package.setMaterial({"ethanol", "water"}, 340.0, 1e5, {0.5, 0.5});
    const auto isValid = [&](const char *name, std::string_view phase) {
        VARIANT_BOOL valid = VARIANT_FALSE;
        EXPECT_EQ(
            package.properties->CheckSinglePhasePropSpec(Bstr(std::string_view(name)).get(), Bstr(phase).get(), &valid),
            S_OK);
        return valid == VARIANT_TRUE;
    };
    for (const char *name : {"speedOfSound", "heatCapacityCv", "heatCapacityCv.Dtemperature"}) {
        EXPECT_FALSE(isValid(name, "Liquid")) << name;
        EXPECT_TRUE(isValid(name, "Vapor")) << name;
        EXPECT_EQ(package.properties->CalcSinglePhaseProp(texts({"enthalpy", name}).get(),
                                                          Bstr(std::string_view("Liquid")).get()),
                  errors::propertyNotAvailable.result)
            << name;
        EXPECT_TRUE(package.material.written.empty()) << name; // not the enthalpy either
        EXPECT_EQ(package.properties->CalcSinglePhaseProp(texts({name}).get(), Bstr(std::string_view("Vapor")).get()),
                  S_OK)
            << name;
        package.material.written.clear();
    }
}

// R-1234yf has no enthalpy of formation here. Where there is nothing of it in the mixture that does not
// matter, and only the derivative by its moles is not known; where there is, the property is refused.
TEST(Packages, MissAConstantOnlyWhereItsCompoundIs)
{
    Library library;
    OpenedPackage package(library, "All compounds (Peng-Robinson)");
    const std::vector<std::string> ids = {"propane", "R-1234yf", "n-butane"};
    package.setMaterial(ids, 300.0, 4e5, {0.5, 0.0, 0.5});
    const double enthalpy = package.valuesOf("enthalpyF", "Vapor")[0];
    EXPECT_NEAR(enthalpy, -0.5 * 104.7e3 - 0.5 * 125.8e3, 2e3); // of formation, mostly
    EXPECT_LT(package.valuesOf("enthalpyF.Dpressure", "Vapor")[0], 0.0);
    const Bstr vapor(std::string_view("Vapor"));
    const auto calculate = [&](const char *name) {
        return package.properties->CalcSinglePhaseProp(texts({name}).get(), vapor.get());
    };
    const std::vector<double> partial = package.valuesOf("enthalpyF.Dmoles", "Vapor");
    EXPECT_NEAR(0.5 * partial.at(0) + 0.5 * partial.at(2), enthalpy, 1e-6);
    EXPECT_TRUE(std::isnan(partial.at(1)));
    package.material.given = {{"Overall/enthalpyF/mole", enthalpy}, {"Overall/pressure/", 4e5}};
    package.material.written.clear();
    ASSERT_EQ(package.equilibrium->CalcEquilibrium(texts({"enthalpyF", "", "Overall"}).get(),
                                                   texts({"pressure", "", "Overall"}).get(), nullptr),
              S_OK)
        << lastFailure(package.equilibrium.get()).description;
    EXPECT_NEAR(package.material.written.at("Overall/temperature").values[0], 300.0, 20.0);

    package.material.composition = {0.5, 0.1, 0.4};
    EXPECT_EQ(calculate("enthalpyF"), errors::propertyNotAvailable.result);
    EXPECT_EQ(lastFailure(package.properties.get()).description,
              "There is no \"enthalpyF\" here: the enthalpy of formation of R-1234yf is not known");
    EXPECT_EQ(calculate("enthalpy"), S_OK);
}

TEST(Packages, DoNotDisturbEachOtherWhileSeveralAreOpen)
{
    Library library;
    std::vector<std::map<std::string, WrittenProperty>> alone;
    for (const auto &mixture : mixtures) {
        OpenedPackage package(library, mixture.name);
        package.setMaterial(mixture.compounds, mixture.temperature, mixture.pressure, mixture.composition);
        alone.push_back(package.flash());
    }
    std::vector<std::unique_ptr<OpenedPackage>> opened;
    for (int copy = 0; copy < 2; ++copy)
        for (const auto &mixture : mixtures) {
            opened.push_back(std::make_unique<OpenedPackage>(library, mixture.name));
            opened.back()->setMaterial(mixture.compounds, mixture.temperature, mixture.pressure, mixture.composition);
        }
    for (int round = 0; round < 2; ++round)
        for (std::size_t i = 0; i < opened.size(); ++i) {
            const auto together = opened[i]->flash();
            const auto &expected = alone[i % std::size(mixtures)];
            ASSERT_EQ(together.size(), expected.size());
            for (const auto &[key, property] : expected)
                EXPECT_EQ(together.at(key).values, property.values) << mixtures[i % std::size(mixtures)].name << key;
        }
}
