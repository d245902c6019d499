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

TEST_F(PackageCompounds, GiveEveryConstantThatIsListed)
{
    Argument list;
    ASSERT_EQ(compounds->GetConstPropList(list.out()), S_OK);
    const std::vector<std::string> names = textsOf(list.get());
    EXPECT_EQ(names,
              (std::vector<std::string>{"molecularWeight", "criticalTemperature", "criticalPressure", "acentricFactor",
                                        "normalBoilingPoint", "casRegistryNumber", "chemicalFormula", "iupacName"}));
    Argument values;
    ASSERT_EQ(getConstant(names, {"hydrogen sulfide"}, values), S_OK);
    ArrayView<VARIANT, VT_VARIANT> elements;
    ASSERT_TRUE(elements.open(values.get()));
    ASSERT_EQ(elements.size(), 8);
    EXPECT_EQ(elements[1].dblVal, 373.1);
    EXPECT_EQ(elements[2].dblVal, 9e6);
    EXPECT_EQ(elements[3].dblVal, 0.1005);
    EXPECT_EQ(elements[4].dblVal, 212.85);
    EXPECT_EQ(narrow(elements[5].bstrVal), "7783-06-4");
    EXPECT_EQ(narrow(elements[6].bstrVal), "H2S");
    EXPECT_EQ(narrow(elements[7].bstrVal), "hydrogen sulfide");
}

TEST_F(PackageCompounds, RefuseUnknownNames)
{
    const auto *interfaceName = "ICapeThermoCompounds";
    Argument values;
    expectFailure(getConstant({"criticalVolume"}, {}, values), errors::limitedImplementation, interfaceName,
                  "GetCompoundConstant", "Compounds have no property \"criticalVolume\" here");
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
    Argument list;
    ASSERT_EQ(compounds->GetTDependentPropList(list.out()), S_OK);
    EXPECT_EQ(textsOf(list.get()), std::vector<std::string>{"idealGasHeatCapacity"});
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

TEST_F(PackageCompounds, RefuseTemperaturesOutOfRange)
{
    Argument values;
    const Argument names = texts({"idealGasHeatCapacity"});
    const auto *interfaceName = "ICapeThermoCompounds";
    for (const double temperature : {0.0, -300.0, 19.9, 1500.1, HUGE_VAL})
        expectFailure(compounds->GetTDependentProperty(names.get(), temperature, {}, values.out()), errors::outOfBounds,
                      interfaceName, "GetTDependentProperty", "The temperature must be from 20 to 1500 K");
    expectFailure(compounds->GetTDependentProperty(names.get(), NAN, {}, values.out()), errors::invalidArgument,
                  interfaceName, "GetTDependentProperty", "The temperature is not a number");
    expectFailure(compounds->GetTDependentProperty(texts({"vaporPressure"}).get(), 300.0, {}, values.out()),
                  errors::limitedImplementation, interfaceName, "GetTDependentProperty",
                  "Compounds have no property \"vaporPressure\" here");
    expectFailure(compounds->GetTDependentProperty(names.get(), 300.0, texts({"air"}).get(), values.out()),
                  errors::invalidArgument, interfaceName, "GetTDependentProperty", "There is no compound \"air\"");
}

TEST_F(PackageCompounds, HaveNoPressureDependentProperties)
{
    Argument list;
    EXPECT_EQ(compounds->GetPDependentPropList(list.out()), S_OK);
    EXPECT_EQ(list.get().vt, VT_EMPTY);
    Argument values;
    expectFailure(compounds->GetPDependentProperty(texts({"boilingPointTemperature"}).get(), 1e5, {}, values.out()),
                  errors::noImplementation, "ICapeThermoCompounds", "GetPDependentProperty",
                  "There are no pressure-dependent properties");
}
