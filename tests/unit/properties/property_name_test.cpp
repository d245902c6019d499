#include "properties/property_name.h"

#include "tests/unit/support/allocation_watch.h"

#include <gtest/gtest.h>

namespace {

class ParsePropertyNameTest : public testing::Test {
protected:
    void SetUp() override { BuildPropertyTables(); }
    void TearDown() override { ClearPropertyTables(); }

    // The message of a name that is refused; the empty text for one that is accepted.
    static WideString refusal(const PropertyTable &table, LPCWSTR name)
    {
        ParsedProperty parsed{};
        WideString message;
        const bool accepted = ParsePropertyName(parsed, table, name, message);
        EXPECT_EQ(accepted, message.empty());
        return message;
    }

    static ParsedProperty parse(const PropertyTable &table, LPCWSTR name)
    {
        ParsedProperty parsed{-1, nullptr, nullptr, nullptr, -9, -9, -9, -9, NoDerivative};
        WideString message = OLESTR("untouched");
        EXPECT_TRUE(ParsePropertyName(parsed, table, name, message));
        EXPECT_EQ(OLESTR("untouched"), message);
        return parsed;
    }
};

TEST_F(ParsePropertyNameTest, RefusesANullName)
{
    EXPECT_EQ(OLESTR("Property name is empty"), refusal(singlePhaseProperties, nullptr));
}

TEST_F(ParsePropertyNameTest, RefusesANullNameBesideAnyKey)
{
    ParsedProperty parsed{};
    WideString message;
    EXPECT_FALSE(ParsePropertyName(parsed, singlePhaseProperties, WSTRMapKeyStringNoDeriv(OLESTR("enthalpy")), nullptr,
                                   message));
    EXPECT_EQ(OLESTR("Property name is empty"), message);
}

TEST_F(ParsePropertyNameTest, RefusesAnEmptyNameWithTheWordOfTheTableAndNothingBehind)
{
    EXPECT_EQ(OLESTR("Invalid or unsupported single phase property: "), refusal(singlePhaseProperties, OLESTR("")));
}

TEST_F(ParsePropertyNameTest, NamesTheTableInTheRefusalOfAnUnknownName)
{
    const PropertyTable other;
    EXPECT_EQ(OLESTR("Invalid or unsupported compound constant: foo"), refusal(constantProperties, OLESTR("foo")));
    EXPECT_EQ(OLESTR("Invalid or unsupported temperature dependent property: foo"),
              refusal(tDependentProperties, OLESTR("foo")));
    EXPECT_EQ(OLESTR("Invalid or unsupported pressure dependent property: foo"),
              refusal(pDependentProperties, OLESTR("foo")));
    EXPECT_EQ(OLESTR("Invalid or unsupported single phase property: foo"),
              refusal(singlePhaseProperties, OLESTR("foo")));
    EXPECT_EQ(OLESTR("Invalid or unsupported two-phase property: foo"), refusal(twoPhaseProperties, OLESTR("foo")));
    EXPECT_EQ(OLESTR("Invalid or unsupported property: enthalpy"), refusal(other, OLESTR("enthalpy")));
}

TEST_F(ParsePropertyNameTest, ShowsTheLowerCasedStemOfAnUnknownName)
{
    EXPECT_EQ(OLESTR("Invalid or unsupported single phase property: enthalpie"),
              refusal(singlePhaseProperties, OLESTR("Enthalpie.Dtemperature")));
    EXPECT_EQ(OLESTR("Invalid or unsupported single phase property: temperature"),
              refusal(singlePhaseProperties, OLESTR("temperature.Dpressure")));
}

TEST_F(ParsePropertyNameTest, CopiesTheRow)
{
    const ParsedProperty parsed = parse(singlePhaseProperties, OLESTR("ENTHALPY"));
    EXPECT_EQ(SinglePhase, parsed.kind);
    EXPECT_EQ(OLESTR("enthalpy"), WideString(parsed.info->name));
    EXPECT_EQ(OLESTR("J / kg"), WideString(parsed.massUnit));
    EXPECT_EQ(OLESTR("J / mol"), WideString(parsed.moleUnit));
    EXPECT_EQ(-1, parsed.basisPower);
    EXPECT_EQ(0, parsed.dimensions);
    EXPECT_EQ(1, parsed.mixable);
    EXPECT_EQ(1, parsed.specific);
    EXPECT_EQ(NoDerivative, parsed.derivative);
}

TEST_F(ParsePropertyNameTest, ReportsNeitherMixableNorSpecificForOtherKinds)
{
    const PropertyInfo odd = {TwoPhase, nullptr, nullptr, OLESTR("odd"), 0, 0, 1, 1};
    PropertyTable table;
    table.emplace(WSTRMapKeyString(OLESTR("odd")), &odd);
    const ParsedProperty parsed = parse(table, OLESTR("odd"));
    EXPECT_EQ(TwoPhase, parsed.kind);
    EXPECT_EQ(0, parsed.mixable);
    EXPECT_EQ(0, parsed.specific);
}

TEST_F(ParsePropertyNameTest, RecognizesEachSuffix)
{
    EXPECT_EQ(NoDerivative, parse(singlePhaseProperties, OLESTR("enthalpy")).derivative);
    EXPECT_EQ(TemperatureDerivative, parse(singlePhaseProperties, OLESTR("enthalpy.Dtemperature")).derivative);
    EXPECT_EQ(PressureDerivative, parse(singlePhaseProperties, OLESTR("enthalpy.Dpressure")).derivative);
    EXPECT_EQ(MolesDerivative, parse(singlePhaseProperties, OLESTR("enthalpy.Dmoles")).derivative);
    EXPECT_EQ(MolFractionDerivative, parse(singlePhaseProperties, OLESTR("enthalpy.DmolFraction")).derivative);
}

TEST_F(ParsePropertyNameTest, MatchesBaseAndSuffixWithoutRegardToCase)
{
    const ParsedProperty parsed = parse(singlePhaseProperties, OLESTR("FUGACITYcoefficient.dTEMPERATURE"));
    EXPECT_EQ(OLESTR("fugacityCoefficient"), WideString(parsed.info->name));
    EXPECT_EQ(TemperatureDerivative, parsed.derivative);
    EXPECT_EQ(1, parsed.dimensions);
    EXPECT_EQ(0, parsed.basisPower);
}

TEST_F(ParsePropertyNameTest, RefusesANameThatEndsInADotWithNothingBetweenTheQuotes)
{
    EXPECT_EQ(OLESTR("Invalid or unsuppored derivative \"\""), refusal(singlePhaseProperties, OLESTR("enthalpy.")));
}

TEST_F(ParsePropertyNameTest, LooksAtTheSuffixBeforeTheName)
{
    EXPECT_EQ(OLESTR("Invalid or unsuppored derivative \"Dfoo\""),
              refusal(singlePhaseProperties, OLESTR("enthalpy.Dfoo")));
    EXPECT_EQ(OLESTR("Invalid or unsuppored derivative \"Dfoo\""),
              refusal(singlePhaseProperties, OLESTR("enthalpie.Dfoo")));
    EXPECT_EQ(OLESTR("Invalid or unsuppored derivative \"Dfoo\""), refusal(singlePhaseProperties, OLESTR(".Dfoo")));
}

TEST_F(ParsePropertyNameTest, ShowsTheSuffixAsTheCallerWroteIt)
{
    EXPECT_EQ(OLESTR("Invalid or unsuppored derivative \"dTEMP eratur\""),
              refusal(singlePhaseProperties, OLESTR("enthalpy.dTEMP eratur")));
}

TEST_F(ParsePropertyNameTest, TakesASecondDotAsPartOfTheSuffix)
{
    EXPECT_EQ(OLESTR("Invalid or unsuppored derivative \"Dtemperature.Dpressure\""),
              refusal(singlePhaseProperties, OLESTR("enthalpy.Dtemperature.Dpressure")));
}

TEST_F(ParsePropertyNameTest, RefusesASuffixWithoutABase)
{
    EXPECT_EQ(OLESTR("Invalid or unsupported two-phase property: "),
              refusal(twoPhaseProperties, OLESTR(".Dtemperature")));
}

TEST_F(ParsePropertyNameTest, AcceptsTheTemperatureDerivativeOfATemperatureDependentProperty)
{
    const ParsedProperty parsed = parse(tDependentProperties, OLESTR("vaporPressure.Dtemperature"));
    EXPECT_EQ(TemperatureDependent, parsed.kind);
    EXPECT_EQ(1, parsed.dimensions);
    EXPECT_EQ(TemperatureDerivative, parsed.derivative);
}

TEST_F(ParsePropertyNameTest, RefusesOtherDerivativesOfATemperatureDependentProperty)
{
    EXPECT_EQ(OLESTR("Pressure derivative not supported for temperature dependent properties"),
              refusal(tDependentProperties, OLESTR("vaporPressure.Dpressure")));
    EXPECT_EQ(OLESTR("Mole number derivative not supported for temperature dependent properties"),
              refusal(tDependentProperties, OLESTR("vaporPressure.Dmoles")));
    EXPECT_EQ(OLESTR("Mole fraction derivative not supported for temperature dependent properties"),
              refusal(tDependentProperties, OLESTR("vaporPressure.DmolFraction")));
}

TEST_F(ParsePropertyNameTest, RefusesEveryDerivativeOfACompoundConstant)
{
    EXPECT_EQ(OLESTR("Temperature derivative not supported for compound constants"),
              refusal(constantProperties, OLESTR("acentricFactor.Dtemperature")));
    EXPECT_EQ(OLESTR("Pressure derivative not supported for compound constants"),
              refusal(constantProperties, OLESTR("acentricFactor.Dpressure")));
    EXPECT_EQ(OLESTR("Mole number derivative not supported for compound constants"),
              refusal(constantProperties, OLESTR("acentricFactor.Dmoles")));
    EXPECT_EQ(OLESTR("Mole fraction derivative not supported for compound constants"),
              refusal(constantProperties, OLESTR("acentricFactor.DmolFraction")));
}

TEST_F(ParsePropertyNameTest, AcceptsThePressureDerivativeOfAPressureDependentProperty)
{
    const ParsedProperty parsed = parse(pDependentProperties, OLESTR("boilingPointTemperature.Dpressure"));
    EXPECT_EQ(PressureDerivative, parsed.derivative);
    EXPECT_EQ(1, parsed.dimensions);
}

TEST_F(ParsePropertyNameTest, RefusesOtherDerivativesOfAPressureDependentProperty)
{
    EXPECT_EQ(OLESTR("Temperature derivative not supported for pressure dependent properties"),
              refusal(pDependentProperties, OLESTR("boilingPointTemperature.Dtemperature")));
    EXPECT_EQ(OLESTR("Mole number derivative not supported for pressure dependent properties"),
              refusal(pDependentProperties, OLESTR("boilingPointTemperature.Dmoles")));
    EXPECT_EQ(OLESTR("Mole fraction derivative not supported for pressure dependent properties"),
              refusal(pDependentProperties, OLESTR("boilingPointTemperature.DmolFraction")));
}

TEST_F(ParsePropertyNameTest, AcceptsPlainNamesOfThePureCompoundKinds)
{
    EXPECT_EQ(CompoundConstant, parse(constantProperties, OLESTR("acentricFactor")).kind);
    EXPECT_EQ(TemperatureDependent, parse(tDependentProperties, OLESTR("vaporPressure")).kind);
    EXPECT_EQ(PressureDependent, parse(pDependentProperties, OLESTR("boilingPointTemperature")).kind);
}

TEST_F(ParsePropertyNameTest, GivesACompositionDerivativeOneDimensionMore)
{
    EXPECT_EQ(1, parse(singlePhaseProperties, OLESTR("enthalpy.Dmoles")).dimensions);
    EXPECT_EQ(1, parse(singlePhaseProperties, OLESTR("enthalpy.DmolFraction")).dimensions);
    EXPECT_EQ(2, parse(singlePhaseProperties, OLESTR("fugacity.Dmoles")).dimensions);
    EXPECT_EQ(2, parse(twoPhaseProperties, OLESTR("kvalue.DmolFraction")).dimensions);
    EXPECT_EQ(1, parse(twoPhaseProperties, OLESTR("surfaceTension.Dmoles")).dimensions);
}

TEST_F(ParsePropertyNameTest, KeepsTheShapeInATemperatureOrPressureDerivative)
{
    EXPECT_EQ(0, parse(singlePhaseProperties, OLESTR("enthalpy.Dpressure")).dimensions);
    EXPECT_EQ(1, parse(singlePhaseProperties, OLESTR("fugacity.Dtemperature")).dimensions);
    EXPECT_EQ(2, parse(singlePhaseProperties, OLESTR("diffusionCoefficient.Dtemperature")).dimensions);
    EXPECT_EQ(2, parse(singlePhaseProperties, OLESTR("diffusionCoefficient.Dpressure")).dimensions);
    EXPECT_EQ(2, parse(singlePhaseProperties, OLESTR("diffusionCoefficient")).dimensions);
}

TEST_F(ParsePropertyNameTest, RefusesCompositionDerivativesOfAMatrix)
{
    EXPECT_EQ(OLESTR("composition derivatives of matrix properties not supported"),
              refusal(singlePhaseProperties, OLESTR("diffusionCoefficient.Dmoles")));
    EXPECT_EQ(OLESTR("composition derivatives of matrix properties not supported"),
              refusal(singlePhaseProperties, OLESTR("diffusionCoefficient.DmolFraction")));
}

TEST_F(ParsePropertyNameTest, LeavesTheRowsDimensionsAlone)
{
    const ParsedProperty parsed = parse(singlePhaseProperties, OLESTR("fugacity.Dmoles"));
    EXPECT_EQ(1, parsed.info->dimensions);
}

TEST_F(ParsePropertyNameTest, AllocatesNothingWhenTheNameIsAccepted)
{
    const WSTRMapKeyStringNoDeriv key(OLESTR("logfugacitycoefficient.dmolfraction"));
    ParsedProperty parsed{};
    WideString message;
    const AllocationWatch watch;
    const bool accepted =
        ParsePropertyName(parsed, singlePhaseProperties, key, OLESTR("logFugacityCoefficient.DmolFraction"), message);
    const std::size_t allocations = watch.count();
    EXPECT_TRUE(accepted);
    EXPECT_EQ(0u, allocations);
}

} // namespace
