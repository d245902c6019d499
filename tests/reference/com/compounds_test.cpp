#include "tests/reference/com/package_fixture.h"

#include <cmath>

using namespace reference;

namespace {

class PackageCompounds : public PackageFixture {
protected:
    HRESULT getConstant(const std::vector<std::string> &names, const std::vector<std::string> &ids, Argument &values)
    {
        return compounds->GetCompoundConstant(texts(names).get(), ids.empty() ? VARIANT{} : texts(ids).get(),
                                              values.out());
    }
};

} // namespace

TEST_F(PackageCompounds, AreListedWithAllColumns)
{
    Argument ids;
    Argument formulae;
    Argument names;
    Argument boiling;
    Argument weights;
    Argument casNumbers;
    ASSERT_EQ(compounds->GetCompoundList(ids.out(), formulae.out(), names.out(), boiling.out(), weights.out(),
                                         casNumbers.out()),
              S_OK);
    const std::vector<std::string> expected = {"methane",   "ethane",         "propane",         "n-butane",
                                               "isobutane", "n-pentane",      "isopentane",      "n-hexane",
                                               "nitrogen",  "carbon dioxide", "hydrogen sulfide"};
    EXPECT_EQ(textsOf(ids.get()), expected);
    LONG count = 0;
    ASSERT_EQ(compounds->GetNumCompounds(&count), S_OK);
    EXPECT_EQ(count, 11);
    EXPECT_EQ(textsOf(formulae.get())[4], "C4H10");
    EXPECT_EQ(textsOf(names.get())[4], "2-methylpropane");
    EXPECT_EQ(textsOf(casNumbers.get())[4], "75-28-5");
    EXPECT_EQ(numbersOf(boiling.get())[4], 261.401);
    EXPECT_TRUE(std::isnan(numbersOf(boiling.get())[9])); // carbon dioxide sublimes
    for (const double weight : numbersOf(weights.get()))
        EXPECT_GT(weight, 16.0);
    EXPECT_EQ(numbersOf(weights.get()).size(), 11u);
}

TEST_F(PackageCompounds, TouchNothingWhenAPointerIsNull)
{
    Argument values[6];
    for (int missing = 0; missing < 6; ++missing) {
        VARIANT *pointers[6];
        for (int i = 0; i < 6; ++i)
            pointers[i] = i == missing ? nullptr : values[i].out();
        EXPECT_EQ(
            compounds->GetCompoundList(pointers[0], pointers[1], pointers[2], pointers[3], pointers[4], pointers[5]),
            E_POINTER);
    }
    for (const Argument &value : values)
        EXPECT_EQ(value.get().vt, VT_EMPTY);
    EXPECT_EQ(compounds->GetNumCompounds(nullptr), E_POINTER);
    EXPECT_EQ(compounds->GetConstPropList(nullptr), E_POINTER);
    EXPECT_EQ(compounds->GetTDependentPropList(nullptr), E_POINTER);
    EXPECT_EQ(compounds->GetPDependentPropList(nullptr), E_POINTER);
    EXPECT_EQ(compounds->GetCompoundConstant({}, {}, nullptr), E_POINTER);
    EXPECT_EQ(compounds->GetTDependentProperty({}, 300.0, {}, nullptr), E_POINTER);
    EXPECT_EQ(compounds->GetPDependentProperty({}, 1e5, {}, nullptr), E_POINTER);
}

TEST_F(PackageCompounds, FreeWhatAnInOutArgumentHeld)
{
    Argument values[6];
    for (Argument &value : values)
        value.setText("to be freed");
    EXPECT_EQ(compounds->GetCompoundList(values[0].out(), values[1].out(), values[2].out(), values[3].out(),
                                         values[4].out(), values[5].out()),
              S_OK);
    EXPECT_EQ(textsOf(values[0].get()).size(), 11u); // the leak checker sees the texts
}

TEST_F(PackageCompounds, GiveConstantsPropertyByProperty)
{
    Argument values;
    ASSERT_EQ(getConstant({"MolecularWeight", "chemicalFormula"}, {"N-BUTANE", "methane"}, values), S_OK);
    ArrayView<VARIANT, VT_VARIANT> list;
    ASSERT_TRUE(list.open(values.get()));
    ASSERT_EQ(list.size(), 4);
    ASSERT_EQ(list[0].vt, VT_R8);
    EXPECT_EQ(list[0].dblVal, 58.1222);
    EXPECT_EQ(list[1].dblVal, 16.04246);
    ASSERT_EQ(list[2].vt, VT_BSTR);
    EXPECT_EQ(narrow(list[2].bstrVal), "C4H10");
    EXPECT_EQ(narrow(list[3].bstrVal), "CH4");
}

TEST_F(PackageCompounds, LeaveAnUndefinedConstantEmpty)
{
    Argument values;
    ASSERT_EQ(getConstant({"normalBoilingPoint"}, {}, values), S_OK);
    ArrayView<VARIANT, VT_VARIANT> list;
    ASSERT_TRUE(list.open(values.get()));
    ASSERT_EQ(list.size(), 11);
    for (int i = 0; i < 11; ++i)
        EXPECT_EQ(list[i].vt, i == 9 ? VT_EMPTY : VT_R8) << i; // carbon dioxide
}

// Hydrogen sulfide. Critical point: Lemmon, Span, J. Chem. Eng. Data 51 (2006) 785. Formation:
// CODATA Key Values for Thermodynamics (1989), -20.6(5) kJ/mol and 205.81(5) J/mol/K. Dipole moment:
// NIST Computational Chemistry Comparison and Benchmark Database, 0.97 D. Heat of vaporization: CRC
// Handbook of Chemistry and Physics, 95th ed. (2014).
TEST_F(PackageCompounds, GiveEveryConstantThatIsListed)
{
    const struct {
        std::string name;
        double value;
        double tolerance;
    } numbersExpected[] = {{"molecularWeight", 34.08, 0.01},
                           {"criticalTemperature", 373.1, 0.0},
                           {"criticalPressure", 9e6, 0.0},
                           {"criticalVolume", 1.0 / 10.19e3, 1e-12},
                           {"criticalDensity", 10.19e3, 1e-6},
                           {"criticalCompressibilityFactor", 0.2847, 1e-4},
                           {"acentricFactor", 0.1005, 0.0},
                           {"normalBoilingPoint", 212.85, 0.01},
                           {"normalFreezingPoint", 187.7, 0.1},
                           {"triplePointTemperature", 187.7, 0.1},
                           {"triplePointPressure", 23250.0, 100.0},
                           {"standardFormationEnthalpyGas", -20.6e3, 500.0},
                           {"standardFormationGibbsEnergyGas", -33.4e3, 500.0},
                           {"standardEntropyGas", 205.81, 0.3},
                           {"idealGasEnthalpyOfFormationAt25C", -20.6e3, 500.0},
                           {"idealGasGibbsFreeEnergyOfFormationAt25C", -33.4e3, 500.0},
                           {"dipoleMoment", 0.97 * 3.33564e-30, 1e-32},
                           {"parachor", 80.1 * 1e-6 * std::pow(1e-3, 0.25), 1e-9},
                           {"diffusionVolume", 27.52e-6, 1e-12},
                           {"liquidDensityAt25C", 22.8e3, 300.0},
                           {"liquidVolumeAt25C", 1.0 / 22.8e3, 1e-6},
                           {"heatOfVaporizationAtNormalBoilingPoint", 18.67e3, 500.0}};
    const std::pair<std::string, std::string> textsExpected[] = {{"casRegistryNumber", "7783-06-4"},
                                                                 {"chemicalFormula", "H2S"},
                                                                 {"iupacName", "hydrogen sulfide"},
                                                                 {"SMILESformula", "S"}};
    std::vector<std::string> names;
    for (const auto &each : numbersExpected)
        names.push_back(each.name);
    for (const auto &each : textsExpected)
        names.push_back(each.first);
    Argument list;
    ASSERT_EQ(compounds->GetConstPropList(list.out()), S_OK);
    EXPECT_EQ(textsOf(list.get()), names);
    Argument values;
    ASSERT_EQ(getConstant(names, {"hydrogen sulfide"}, values), S_OK);
    ArrayView<VARIANT, VT_VARIANT> elements;
    ASSERT_TRUE(elements.open(values.get()));
    ASSERT_EQ(elements.size(), static_cast<int>(names.size()));
    int next = 0;
    for (const auto &each : numbersExpected) {
        ASSERT_EQ(elements[next].vt, VT_R8) << each.name;
        EXPECT_NEAR(elements[next++].dblVal, each.value, each.tolerance) << each.name;
    }
    for (const auto &each : textsExpected) {
        ASSERT_EQ(elements[next].vt, VT_BSTR) << each.first;
        EXPECT_EQ(narrow(elements[next++].bstrVal), each.second) << each.first;
    }
}

TEST_F(PackageCompounds, RefuseUnknownNames)
{
    const auto *interfaceName = "ICapeThermoCompounds";
    Argument values;
    expectFailure(getConstant({"charge"}, {}, values), errors::limitedImplementation, interfaceName,
                  "GetCompoundConstant", "Compounds have no property \"charge\" here");
    expectFailure(getConstant({"molecularWeight"}, {"water"}, values), errors::invalidArgument, interfaceName,
                  "GetCompoundConstant", "There is no compound \"water\"");
    expectFailure(getConstant({}, {}, values), errors::invalidArgument, interfaceName, "GetCompoundConstant",
                  "The properties must be an array of one name or more");
    expectFailure(compounds->GetCompoundConstant(texts({"molecularWeight"}).get(), numbers({1.0}).get(), values.out()),
                  errors::invalidArgument, interfaceName, "GetCompoundConstant",
                  "The compounds must be an array of ids, or empty for all");
    EXPECT_EQ(values.get().vt, VT_EMPTY);
}

// NIST WebBook: methane 35.7, nitrogen 29.12 J/mol/K at 298.15 K.
TEST_F(PackageCompounds, GiveTheIdealGasHeatCapacity)
{
    Argument values;
    ASSERT_EQ(compounds->GetTDependentProperty(texts({"idealGasHeatCapacity"}).get(), 298.15,
                                               texts({"nitrogen", "methane"}).get(), values.out()),
              S_OK);
    const std::vector<double> heat = numbersOf(values.get());
    ASSERT_EQ(heat.size(), 2u);
    EXPECT_NEAR(heat[0], 29.12, 0.1);
    EXPECT_NEAR(heat[1], 35.7, 0.2);
    Argument all;
    ASSERT_EQ(compounds->GetTDependentProperty(texts({"IDEALGASHEATCAPACITY"}).get(), 298.15, {}, all.out()), S_OK);
    EXPECT_EQ(numbersOf(all.get()).size(), 11u);
}

TEST_F(PackageCompounds, ListWhatDependsOnTemperatureAndOnPressure)
{
    Argument byTemperature;
    ASSERT_EQ(compounds->GetTDependentPropList(byTemperature.out()), S_OK);
    EXPECT_EQ(textsOf(byTemperature.get()),
              (std::vector<std::string>{"idealGasHeatCapacity", "idealGasEnthalpy", "idealGasEntropy", "vaporPressure",
                                        "volumeOfLiquid", "heatOfVaporization", "volumeChangeUponVaporization",
                                        "heatCapacityOfLiquid", "fugacityCoefficientOfVapor", "surfaceTensionSatLiquid",
                                        "viscosityOfLiquid", "viscosityOfVapor", "thermalConductivityOfLiquid",
                                        "thermalConductivityOfVapor", "virialCoefficient"}));
    Argument byPressure;
    ASSERT_EQ(compounds->GetPDependentPropList(byPressure.out()), S_OK);
    EXPECT_EQ(textsOf(byPressure.get()), std::vector<std::string>{"boilingPointTemperature"});
}

// Nitrogen from 298.15 K to 500 K: 5.911 kJ/mol and 206.739 - 191.609 J/mol/K. Chase, NIST-JANAF
// Thermochemical Tables, 4th ed. (1998). Both are zero at 298.15 K.
TEST_F(PackageCompounds, GiveIdealGasEnthalpyAndEntropyOverThoseAtRoomTemperature)
{
    const Argument names = texts({"idealGasEnthalpy", "idealGasEntropy"});
    Argument warm;
    ASSERT_EQ(compounds->GetTDependentProperty(names.get(), 500.0, texts({"nitrogen"}).get(), warm.out()), S_OK);
    EXPECT_NEAR(numbersOf(warm.get())[0], 5911.0, 10.0);
    EXPECT_NEAR(numbersOf(warm.get())[1], 206.739 - 191.609, 0.03);
    Argument room;
    ASSERT_EQ(compounds->GetTDependentProperty(names.get(), 298.15, texts({"nitrogen"}).get(), room.out()), S_OK);
    EXPECT_NEAR(numbersOf(room.get())[0], 0.0, 1e-9);
    EXPECT_NEAR(numbersOf(room.get())[1], 0.0, 1e-12);
}

// Propane at 300 K: 0.9978 MPa, 489.5 kg/m3 of liquid; methane at 120 K: 0.1914 MPa, 410.0 kg/m3.
// NIST Chemistry WebBook, thermophysical properties of fluid systems.
TEST_F(PackageCompounds, GiveVaporPressureAndLiquidVolume)
{
    const Argument names = texts({"vaporPressure", "volumeOfLiquid"});
    Argument propane;
    ASSERT_EQ(compounds->GetTDependentProperty(names.get(), 300.0, texts({"propane"}).get(), propane.out()), S_OK);
    ASSERT_EQ(numbersOf(propane.get()).size(), 2u);
    EXPECT_NEAR(numbersOf(propane.get())[0], 0.9978e6, 0.001e6);
    EXPECT_NEAR(numbersOf(propane.get())[1], 44.09562e-3 / 489.5, 3e-7);
    Argument methane;
    ASSERT_EQ(compounds->GetTDependentProperty(names.get(), 120.0, texts({"methane"}).get(), methane.out()), S_OK);
    EXPECT_NEAR(numbersOf(methane.get())[0], 0.1914e6, 0.0003e6);
    EXPECT_NEAR(numbersOf(methane.get())[1], 16.04246e-3 / 410.0, 3e-7);
}

// n-Hexane at 298.15 K, CRC Handbook of Chemistry and Physics, 95th ed. (2014): heat of vaporization 31.56
// kJ/mol, heat capacity 195.6 J/mol/K, surface tension 17.89 mN/m, viscosity 0.300 mPa s, thermal
// conductivity 0.120 W/m/K; its vapor is nearly ideal, 20.2 kPa. The equations of the liquid's
// transport are good for some ten percent.
TEST_F(PackageCompounds, GiveWhatABoilingCompoundHas)
{
    const struct {
        const char *name;
        double value;
        double tolerance;
    } expected[] = {{"heatOfVaporization", 31.56e3, 0.7e3},      {"volumeChangeUponVaporization", 0.1186, 0.004},
                    {"heatCapacityOfLiquid", 195.6, 15.0},       {"fugacityCoefficientOfVapor", 0.985, 0.01},
                    {"surfaceTensionSatLiquid", 17.89e-3, 3e-3}, {"viscosityOfLiquid", 0.300e-3, 0.1e-3},
                    {"thermalConductivityOfLiquid", 0.120, 0.03}};
    for (const auto &each : expected) {
        Argument value;
        ASSERT_EQ(
            compounds->GetTDependentProperty(texts({each.name}).get(), 298.15, texts({"n-hexane"}).get(), value.out()),
            S_OK)
            << each.name;
        EXPECT_NEAR(numbersOf(value.get())[0], each.value, each.tolerance) << each.name;
    }
    Argument none;
    expectFailure(compounds->GetTDependentProperty(texts({"heatOfVaporization"}).get(), 298.15,
                                                   texts({"methane"}).get(), none.out()),
                  errors::outOfBounds, "ICapeThermoCompounds", "GetTDependentProperty",
                  "The temperature must be from 90.6941 to 190.564 K for heatOfVaporization of methane");
}

// Methane at 300 K and low pressure: 11.1 uPa s and 34.4 mW/m/K (NIST Chemistry WebBook), -42 cm3/mol
// (Dymond, Smith, The Virial Coefficients of Pure Gases and Mixtures, 1980), which the equation overstates.
TEST_F(PackageCompounds, GiveWhatACompoundHasAsThinGas)
{
    Argument values;
    ASSERT_EQ(compounds->GetTDependentProperty(
                  texts({"viscosityOfVapor", "thermalConductivityOfVapor", "virialCoefficient"}).get(), 300.0,
                  texts({"methane"}).get(), values.out()),
              S_OK);
    EXPECT_NEAR(numbersOf(values.get())[0], 11.1e-6, 0.6e-6);
    EXPECT_NEAR(numbersOf(values.get())[1], 34.4e-3, 3e-3);
    EXPECT_NEAR(numbersOf(values.get())[2], -42e-6, 15e-6);
}

// Property by property. Where a compound is out of the range of a correlation there is no number.
TEST_F(PackageCompounds, LeaveOutValuesOutOfRange)
{
    Argument values;
    ASSERT_EQ(compounds->GetTDependentProperty(texts({"vaporPressure", "idealGasHeatCapacity"}).get(), 300.0,
                                               texts({"methane", "propane"}).get(), values.out()),
              S_OK);
    const std::vector<double> list = numbersOf(values.get());
    ASSERT_EQ(list.size(), 4u);
    EXPECT_TRUE(std::isnan(list[0])); // methane is above its critical temperature
    EXPECT_NEAR(list[1], 0.9978e6, 0.001e6);
    EXPECT_NEAR(list[2], 35.76, 0.2);
    EXPECT_GT(list[3], 70.0);
    Argument all;
    ASSERT_EQ(compounds->GetTDependentProperty(texts({"vaporPressure"}).get(), 300.0, {}, all.out()), S_OK);
    ASSERT_EQ(numbersOf(all.get()).size(), 11u);
    EXPECT_TRUE(std::isnan(numbersOf(all.get())[0]));
    EXPECT_EQ(numbersOf(all.get())[2], list[1]);
}

TEST_F(PackageCompounds, RefuseConditionsAtWhichNothingIsKnown)
{
    const auto *interfaceName = "ICapeThermoCompounds";
    Argument values;
    const auto ask = [&](const char *name, double temperature) {
        return compounds->GetTDependentProperty(texts({name}).get(), temperature, texts({"methane"}).get(),
                                                values.out());
    };
    expectFailure(ask("vaporPressure", 200.0), errors::outOfBounds, interfaceName, "GetTDependentProperty",
                  "The temperature must be from 90.6941 to 190.564 K for vaporPressure of methane");
    expectFailure(ask("idealGasHeatCapacity", 10.0), errors::outOfBounds, interfaceName, "GetTDependentProperty",
                  "The temperature must be from 20 to 1500 K for idealGasHeatCapacity of methane");
    for (const double impossible : {0.0, -300.0, HUGE_VAL, -HUGE_VAL})
        expectFailure(ask("vaporPressure", impossible), errors::outOfBounds, interfaceName, "GetTDependentProperty",
                      "The temperature must be a finite number above zero");
    expectFailure(ask("vaporPressure", NAN), errors::invalidArgument, interfaceName, "GetTDependentProperty",
                  "The temperature is not a number");
    expectFailure(ask("heatOfSublimation", 150.0), errors::limitedImplementation, interfaceName,
                  "GetTDependentProperty", "Compounds have no property \"heatOfSublimation\" here");
    expectFailure(
        compounds->GetTDependentProperty(texts({"vaporPressure"}).get(), 150.0, texts({"air"}).get(), values.out()),
        errors::invalidArgument, interfaceName, "GetTDependentProperty", "There is no compound \"air\"");
    // Within the range of the compound, but its vapor pressure is below the lowest of the package.
    expectFailure(compounds->GetTDependentProperty(texts({"heatOfVaporization"}).get(), 125.0,
                                                   texts({"isopentane"}).get(), values.out()),
                  errors::propertyNotAvailable, interfaceName, "GetTDependentProperty",
                  "There is no heatOfVaporization of isopentane at 125 K");
    EXPECT_EQ(values.get().vt, VT_EMPTY);
}

TEST_F(PackageCompounds, BoilAtOneAtmosphereAtTheirNormalBoilingPoints)
{
    Argument constants;
    ASSERT_EQ(getConstant({"normalBoilingPoint"}, {}, constants), S_OK);
    ArrayView<VARIANT, VT_VARIANT> boilingPoints;
    ASSERT_TRUE(boilingPoints.open(constants.get()));
    Argument values;
    ASSERT_EQ(compounds->GetPDependentProperty(texts({"BoilingPointTemperature"}).get(), 101325.0, {}, values.out()),
              S_OK);
    const std::vector<double> temperatures = numbersOf(values.get());
    ASSERT_EQ(temperatures.size(), 11u);
    for (int i = 0; i < 11; ++i) {
        if (i == 9)
            EXPECT_TRUE(std::isnan(temperatures[9])); // carbon dioxide sublimes
        else
            EXPECT_NEAR(temperatures[i], boilingPoints[i].dblVal, 0.1) << i;
    }
}

TEST_F(PackageCompounds, BoilWhereTheirVaporPressureIsTheGivenOne)
{
    for (const double pressure : {2e4, 3e5, 4.2512e6 * (1.0 - 1e-9)}) {
        Argument temperature;
        ASSERT_EQ(compounds->GetPDependentProperty(texts({"boilingPointTemperature"}).get(), pressure,
                                                   texts({"propane"}).get(), temperature.out()),
                  S_OK);
        Argument back;
        ASSERT_EQ(compounds->GetTDependentProperty(texts({"vaporPressure"}).get(), numbersOf(temperature.get())[0],
                                                   texts({"propane"}).get(), back.out()),
                  S_OK);
        EXPECT_NEAR(numbersOf(back.get())[0], pressure, 1e-10 * pressure);
    }
}

TEST_F(PackageCompounds, DoNotBoilAboveTheirCriticalPressure)
{
    Argument values;
    const auto ask = [&](double pressure) {
        return compounds->GetPDependentProperty(texts({"boilingPointTemperature"}).get(), pressure,
                                                texts({"methane"}).get(), values.out());
    };
    expectFailure(ask(6e6), errors::outOfBounds, "ICapeThermoCompounds", "GetPDependentProperty",
                  "The pressure must be from 11696 to 4.5992e+06 Pa for boilingPointTemperature of methane");
    expectFailure(ask(0.0), errors::outOfBounds, "ICapeThermoCompounds", "GetPDependentProperty",
                  "The pressure must be a finite number above zero");
    EXPECT_EQ(values.get().vt, VT_EMPTY);
}
