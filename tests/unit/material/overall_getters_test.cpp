// What a package reads of the Overall phase. The compounds weigh 18 and 36 g/mol: an equimolar
// mixture has a mean molar mass of 27 g/mol, 0.027 kg/mol, and mass fractions 1/3 and 2/3.
#include "tests/unit/material/material_test.h"

#include <cstring>

namespace {

std::string refusedByGetOverall(const std::string &name, const std::string &description)
{
    return refusedBy("GetOverallProp", name, description);
}

using GetOverallProp = MaterialTest;
using GetOverallTPFraction = MaterialTest;

TEST_F(GetOverallProp, RefusesANullOutPointer)
{
    EXPECT_EQ(view->GetOverallProp(nullptr, nullptr, nullptr), E_POINTER);
    EXPECT_EQ(view.errorState(), " |  |  | ");
}

TEST_F(GetOverallProp, RefusesAnUnknownBasisBeforeAnythingElse)
{
    const std::string text = refusedByGetOverall("Invalid basis", "Invalid or unsupported basis: volume");
    EXPECT_EQ(view.overall(OLESTR("flow"), OLESTR("volume")).refusal, text);
    EXPECT_EQ(view.overall(nullptr, OLESTR("volume")).refusal, text);
    EXPECT_EQ(view.overall(OLESTR("temperature"), OLESTR("volume")).refusal, text);
}

TEST_F(GetOverallProp, GivesTheConditionsUnderTheirNamesInAnyCase)
{
    material->temperature = 300.25;
    material->pressure = 1.5e5;
    EXPECT_EQ(view.overall(OLESTR("Temperature"), none).values, std::vector<double>{300.25});
    EXPECT_EQ(view.overall(OLESTR("temperature"), OLESTR("")).values, std::vector<double>{300.25});
    EXPECT_EQ(view.overall(OLESTR("PRESSURE"), none).values, std::vector<double>{1.5e5});
}

TEST_F(GetOverallProp, RefusesConditionsThatAreNotSet)
{
    EXPECT_EQ(view.overall(OLESTR("temperature"), none).refusal,
              refusedByGetOverall("Missing value", "Temperature is not set"));
    EXPECT_EQ(view.overall(OLESTR("pressure"), none).refusal,
              refusedByGetOverall("Missing value", "Pressure is not set"));
}

TEST_F(GetOverallProp, RefusesABasisForConditionsEvenWhenTheyAreNotSet)
{
    EXPECT_EQ(view.overall(OLESTR("temperature"), mole).refusal,
              refusedByGetOverall("Invalid basis", "Invalid basis for temperature; no basis expected"));
    EXPECT_EQ(view.overall(OLESTR("pressure"), mass).refusal,
              refusedByGetOverall("Invalid basis", "Invalid basis for pressure; no basis expected"));
}

TEST_F(GetOverallProp, LeavesDerivativesOfReservedNamesToTheParser)
{
    material->temperature = 300;
    EXPECT_EQ(view.overall(OLESTR("temperature.Dpressure"), none).refusal,
              refusedByGetOverall("Invalid property", "Invalid or unsupported single phase property: temperature"));
    EXPECT_EQ(view.overall(OLESTR("Fraction.Dmoles"), mole).refusal,
              refusedByGetOverall("Invalid property", "Invalid or unsupported single phase property: fraction"));
}

TEST_F(GetOverallProp, HasNoFlowWithAnyBasis)
{
    for (LPCWSTR basis : {none, mole, mass}) {
        EXPECT_EQ(view.overall(OLESTR("Flow"), basis).refusal,
                  refusedByGetOverall("Not supported", "Flow is not supported by this material object"));
        EXPECT_EQ(view.overall(OLESTR("totalflow"), basis).refusal,
                  refusedByGetOverall("Not supported", "Total flow is not supported by this material object"));
        EXPECT_EQ(view.overall(OLESTR("phaseFraction"), basis).refusal,
                  refusedByGetOverall("Not supported", "Phase fraction is not supported for the Overall phase"));
    }
}

TEST_F(GetOverallProp, RefusesFractionsWithoutBasisEvenWhenTheyAreSet)
{
    material.setOverallComposition({0.5, 0.5}, 0);
    EXPECT_EQ(view.overall(OLESTR("fraction"), none).refusal,
              refusedByGetOverall("Invalid basis", "Invalid basis for fraction; expected mole or mass basis"));
    EXPECT_EQ(view.overall(OLESTR("fraction"), OLESTR("")).refusal,
              refusedByGetOverall("Invalid basis", "Invalid basis for fraction; expected mole or mass basis"));
}

TEST_F(GetOverallProp, RefusesFractionsOfWhichOneIsMissing)
{
    const std::string text = refusedByGetOverall("Missing values", "One or more missing values for composition");
    EXPECT_EQ(view.overall(OLESTR("fraction"), mole).refusal, text);
    material.setOverallComposition({0.5, -1.7976931348623157e308}, 0);
    EXPECT_EQ(view.overall(OLESTR("fraction"), mole).refusal, text);
}

TEST_F(GetOverallProp, GivesFractionsOfTheBasisTheyHaveToTheBit)
{
    material.setOverallComposition({0.1, 0.7}, 0); // not normalized
    EXPECT_EQ(view.overall(OLESTR("fraction"), mole).values, (std::vector<double>{0.1, 0.7}));
    material.setOverallComposition({0.3, 0.3}, 1);
    EXPECT_EQ(view.overall(OLESTR("Fraction"), OLESTR("MASS")).values, (std::vector<double>{0.3, 0.3}));
}

TEST_F(GetOverallProp, ConvertsFractionsAndNormalizesThem)
{
    material.setOverallComposition({0.5, 0.5}, 0);
    auto values = view.overall(OLESTR("fraction"), mass).values;
    ASSERT_EQ(values.size(), 2u);
    EXPECT_DOUBLE_EQ(values[0], 1.0 / 3);
    EXPECT_DOUBLE_EQ(values[1], 2.0 / 3);
    material.setOverallComposition({0.5, 0.5}, 1);
    values = view.overall(OLESTR("fraction"), mole).values;
    ASSERT_EQ(values.size(), 2u);
    EXPECT_DOUBLE_EQ(values[0], 2.0 / 3);
    EXPECT_DOUBLE_EQ(values[1], 1.0 / 3);
    EXPECT_EQ(material->overallComposition[0], 0.5);
}

TEST_F(GetOverallProp, RefusesFractionsThatCannotBeConverted)
{
    material.setOverallComposition({0, 0}, 0);
    EXPECT_EQ(view.overall(OLESTR("fraction"), mass).refusal,
              refusedByGetOverall("Conversion error", "Zero or negative total composition in basis conversion"));
    material.setOverallComposition({0.5, 0.5}, 1);
    material.package().molecularWeights[1] = QuietNaN;
    EXPECT_EQ(view.overall(OLESTR("fraction"), mole).refusal,
              refusedByGetOverall("Conversion error", "One or more missing molecular weights in basis conversion"));
}

TEST_F(GetOverallProp, RefusesNamesOutsideTheVocabulary)
{
    EXPECT_EQ(view.overall(OLESTR("Nonsense"), none).refusal,
              refusedByGetOverall("Invalid property", "Invalid or unsupported single phase property: nonsense"));
    EXPECT_EQ(view.overall(OLESTR("kvalue"), none).refusal,
              refusedByGetOverall("Invalid property", "Invalid or unsupported single phase property: kvalue"));
    EXPECT_EQ(view.overall(OLESTR("enthalpy.Dfoo"), mole).refusal,
              refusedByGetOverall("Invalid property", "Invalid or unsuppored derivative \"Dfoo\""));
    EXPECT_EQ(view.overall(nullptr, none).refusal, refusedByGetOverall("Invalid property", "Property name is empty"));
    EXPECT_EQ(view.overall(OLESTR(""), none).refusal,
              refusedByGetOverall("Invalid property", "Invalid or unsupported single phase property: "));
}

TEST_F(GetOverallProp, NamesAnUnsetPropertyAsTheCallerWroteIt)
{
    EXPECT_EQ(view.overall(OLESTR("Enthalpy.DTemperature"), none).refusal,
              refusedByGetOverall("No values", "Values not set for property Enthalpy.DTemperature"));
}

TEST_F(GetOverallProp, RefusesABasisWhereNoneBelongsButOnlyOnceAValueIsStored)
{
    EXPECT_EQ(view.overall(OLESTR("Viscosity"), mole).refusal,
              refusedByGetOverall("No values", "Values not set for property Viscosity"));
    EXPECT_EQ(view.setOverall(OLESTR("viscosity"), none, DoubleArgument({1e-3})), "");
    EXPECT_EQ(view.overall(OLESTR("Viscosity"), mole).refusal,
              refusedByGetOverall("Invalid property", "Invalid basis for Viscosity; expected no basis"));
    EXPECT_EQ(view.overall(OLESTR("Viscosity"), none).values, std::vector<double>{1e-3});
}

TEST_F(GetOverallProp, RefusesToDoWithoutABasisWhereOneBelongs)
{
    EXPECT_EQ(view.setOverall(OLESTR("enthalpy"), mole, DoubleArgument({1800})), "");
    EXPECT_EQ(view.overall(OLESTR("enthalpY"), none).refusal,
              refusedByGetOverall("Invalid property", "Invalid basis for enthalpY; expected mole or mass basis"));
}

// 1800 J/mol and 0.027 kg/mol: 66666.67 J/kg.
TEST_F(GetOverallProp, DividesByTheMeanMolarMassWhatIsPerAmount)
{
    material.setOverallComposition({0.5, 0.5}, 0);
    EXPECT_EQ(view.setOverall(OLESTR("enthalpy"), mole, DoubleArgument({1800})), "");
    const auto values = view.overall(OLESTR("enthalpy"), mass).values;
    ASSERT_EQ(values.size(), 1u);
    EXPECT_NEAR(values[0], 66666.666666666667, 1e-9);
    EXPECT_EQ(view.setOverall(OLESTR("enthalpy"), mass, DoubleArgument({100000})), "");
    const auto back = view.overall(OLESTR("enthalpy"), mole).values;
    ASSERT_EQ(back.size(), 1u);
    EXPECT_NEAR(back[0], 2700, 1e-10);
}

// 1000 mol/m3 times 0.027 kg/mol: 27 kg/m3.
TEST_F(GetOverallProp, MultipliesByTheMeanMolarMassWhatIsPerVolume)
{
    material.setOverallComposition({0.5, 0.5}, 0);
    EXPECT_EQ(view.setOverall(OLESTR("density"), mole, DoubleArgument({1000})), "");
    const auto values = view.overall(OLESTR("density"), mass).values;
    ASSERT_EQ(values.size(), 1u);
    EXPECT_NEAR(values[0], 27, 1e-12);
    EXPECT_EQ(view.setOverall(OLESTR("density"), mass, DoubleArgument({54})), "");
    const auto back = view.overall(OLESTR("density"), mole).values;
    ASSERT_EQ(back.size(), 1u);
    EXPECT_NEAR(back[0], 2000, 1e-9);
}

// Mass fractions 1/3 and 2/3 are the equimolar mixture.
TEST_F(GetOverallProp, FormsTheMeanMolarMassFromMassFractionsToo)
{
    material.setOverallComposition({1.0 / 3, 2.0 / 3}, 1);
    EXPECT_EQ(view.setOverall(OLESTR("density"), mole, DoubleArgument({1000})), "");
    const auto values = view.overall(OLESTR("density"), mass).values;
    ASSERT_EQ(values.size(), 1u);
    EXPECT_NEAR(values[0], 27, 1e-12);
}

TEST_F(GetOverallProp, ReadsTheBasisOfTheAuthorUnchangedToTheBitAndWithoutComposition)
{
    const double third = 1.0 / 3;
    EXPECT_EQ(view.setOverall(OLESTR("enthalpy"), mole, DoubleArgument({third})), "");
    EXPECT_EQ(view.overall(OLESTR("enthalpy"), mole).values, std::vector<double>{third});
    EXPECT_EQ(view.setOverall(OLESTR("density"), mass, DoubleArgument({third})), "");
    EXPECT_EQ(view.overall(OLESTR("density"), mass).values, std::vector<double>{third});
}

TEST_F(GetOverallProp, LooksAtTheLowBitOfTheBasisOnly)
{
    EXPECT_EQ(view.setOverall(OLESTR("enthalpy"), mole, DoubleArgument({7})), "");
    material->overallProps.entry(OLESTR("enthalpy")).basis = 2;
    EXPECT_EQ(view.overall(OLESTR("enthalpy"), mole).values, std::vector<double>{7});
    material->overallProps.entry(OLESTR("enthalpy")).basis = 3;
    EXPECT_EQ(view.overall(OLESTR("enthalpy"), mass).values, std::vector<double>{7});
}

TEST_F(GetOverallProp, RefusesAConversionWithoutComposition)
{
    EXPECT_EQ(view.setOverall(OLESTR("enthalpy"), mole, DoubleArgument({1800})), "");
    EXPECT_EQ(
        view.overall(OLESTR("enthalpy"), mass).refusal,
        refusedByGetOverall("Basis conversion error", "One or more missing composition values in basis conversion"));
}

// (9, 18) J/mol, each divided by 0.027 kg/mol, without the chain rule's second term.
TEST_F(GetOverallProp, ScalesCompositionDerivativesLikeTheirProperty)
{
    material.setOverallComposition({0.5, 0.5}, 0);
    EXPECT_EQ(view.setOverall(OLESTR("enthalpy"), mole, DoubleArgument({1800})), "");
    EXPECT_EQ(view.setOverall(OLESTR("enthalpy.DmolFraction"), mole, DoubleArgument({27, 54})), "");
    const auto values = view.overall(OLESTR("enthalpy.dmolfraction"), mass).values;
    ASSERT_EQ(values.size(), 2u);
    EXPECT_NEAR(values[0], 1000, 1e-10);
    EXPECT_NEAR(values[1], 2000, 1e-10);
}

TEST_F(GetOverallProp, HandsOutMissingEntriesAsTheyAre)
{
    EXPECT_EQ(view.setOverall(OLESTR("fugacity"), none, DoubleArgument({QuietNaN, -1.7976931348623157e308})), "");
    const auto values = view.overall(OLESTR("fugacity"), none).values;
    ASSERT_EQ(values.size(), 2u);
    EXPECT_TRUE(std::isnan(values[0]));
    EXPECT_EQ(values[1], -1.7976931348623157e308);
}

TEST_F(GetOverallProp, GivesAMatrixAsOneRowOfValues)
{
    EXPECT_EQ(view.setOverall(OLESTR("diffusionCoefficient"), none, DoubleArgument({1, 2, 3, 4})), "");
    EXPECT_EQ(view.overall(OLESTR("diffusioncoefficient"), none).values, (std::vector<double>{1, 2, 3, 4}));
}

// A package may hand in a VARIANT that it never initialized.
TEST_F(GetOverallProp, GivesAResultWhateverTheVariantOfTheCallerHolds)
{
    material->temperature = 300;
    OwnedVariant results;
    std::memset(results.out(), 0xCD, sizeof(VARIANT));
    results.out()->vt = VT_UNKNOWN;
    EXPECT_EQ(view->GetOverallProp(Bstr(OLESTR("temperature")).get(), nullptr, results.out()), S_OK);
    EXPECT_EQ(DoublesIn(results), std::vector<double>{300});
}

TEST_F(GetOverallTPFraction, RefusesNullOutPointers)
{
    double temperature = 1;
    double pressure = 2;
    TextArgument composition({OLESTR("kept")});
    EXPECT_EQ(view->GetOverallTPFraction(&temperature, &pressure, nullptr), E_POINTER);
    EXPECT_EQ(view->GetOverallTPFraction(nullptr, &pressure, composition.out()), E_POINTER);
    EXPECT_EQ(view->GetOverallTPFraction(&temperature, nullptr, composition.out()), E_POINTER);
    EXPECT_EQ(TextsIn(composition), std::vector<std::string>{"kept"});
}

TEST_F(GetOverallTPFraction, RefusesInTheOrderTemperaturePressureComposition)
{
    double temperature = 1;
    double pressure = 2;
    const auto refusal = [&] {
        TextArgument composition({OLESTR("cleared")});
        const std::string words = view.refusal(view->GetOverallTPFraction(&temperature, &pressure, composition.out()));
        EXPECT_TRUE(composition.isEmpty());
        EXPECT_EQ(temperature, 1);
        EXPECT_EQ(pressure, 2);
        return words;
    };
    EXPECT_EQ(refusal(), refusedBy("GetOverallTPFraction", "Missing value", "Temperature is not set"));
    material->temperature = 300;
    EXPECT_EQ(refusal(), refusedBy("GetOverallTPFraction", "Missing value", "Pressure is not set"));
    material->pressure = 1e5;
    EXPECT_EQ(refusal(), refusedBy("GetOverallProp", "Missing values", "One or more missing values for composition"));
    material.setOverallComposition({0, 0}, 1);
    EXPECT_EQ(refusal(), refusedBy("GetOverallProp", "Conversion error",
                                   "Zero or negative total composition in basis conversion"));
}

TEST_F(GetOverallTPFraction, GivesMoleFractionsWhateverTheBasis)
{
    material->temperature = 300;
    material->pressure = 1e5;
    double temperature = 0;
    double pressure = 0;
    material.setOverallComposition({0.3, 0.3}, 0);
    {
        TextArgument composition({OLESTR("cleared")});
        EXPECT_EQ(view->GetOverallTPFraction(&temperature, &pressure, composition.out()), S_OK);
        EXPECT_EQ(temperature, 300);
        EXPECT_EQ(pressure, 1e5);
        EXPECT_EQ(DoublesIn(composition), (std::vector<double>{0.3, 0.3}));
    }
    material.setOverallComposition({0.5, 0.5}, 1);
    OwnedVariant composition;
    EXPECT_EQ(view->GetOverallTPFraction(&temperature, &pressure, composition.out()), S_OK);
    const auto values = DoublesIn(composition);
    ASSERT_EQ(values.size(), 2u);
    EXPECT_DOUBLE_EQ(values[0], 2.0 / 3);
    EXPECT_DOUBLE_EQ(values[1], 1.0 / 3);
}

} // namespace
