// Command 19.
#include "tests/support/mex_test.h"

using namespace support;

namespace {

class PropertyUnit : public MexTest {
protected:
    std::string unit(AnyText name) { return Narrow(mustReturn(1, {Scalar(19), Text(name)})[0].text()); }
    std::string refusedUnit(AnyText name) { return refusal(1, {Scalar(19), Text(name)}); }
};

} // namespace

TEST_F(PropertyUnit, ConditionsAndFractionsAreKnownInAnyCase)
{
    EXPECT_EQ(unit("TEMPERATURE"), "K");
    EXPECT_EQ(unit("Pressure"), "Pa");
    for (const char *name : {"fraction", "phaseFraction", "vaporFraction", "VAPORFRACTION"})
        EXPECT_EQ(unit(name), "mole fraction");
    useBasis("mass");
    EXPECT_EQ(unit("temperature"), "K");
    for (const char *name : {"Fraction", "phasefraction", "vaporFraction"})
        EXPECT_EQ(unit(name), "mass fraction");
}

TEST_F(PropertyUnit, FollowsTheBasis)
{
    EXPECT_EQ(unit("enthalpy"), "J / mol");
    EXPECT_EQ(unit("density"), "mol / m3");
    useBasis("mass");
    EXPECT_EQ(unit("enthalpy"), "J / kg");
    EXPECT_EQ(unit("density"), "kg / m3");
}

TEST_F(PropertyUnit, OfTheFirstTableThatKnowsTheName)
{
    EXPECT_EQ(unit("molecularWeight"), "gr / mol"); // a constant and a single-phase property
    EXPECT_EQ(unit("criticalPressure"), "Pa");
    EXPECT_EQ(unit("vaporPressure"), "Pa");
    EXPECT_EQ(unit("boilingPointTemperature"), "K");
    EXPECT_EQ(unit("surfaceTension"), "N m");
    EXPECT_EQ(unit("gyrationRadius"), "M");
}

TEST_F(PropertyUnit, OfATemperatureOrPressureDerivativeIsDivided)
{
    EXPECT_EQ(unit("enthalpy.Dtemperature"), "J / mol / K");
    EXPECT_EQ(unit("volume.dpressure"), "m3 / mol / Pa");
    EXPECT_EQ(unit("fugacityCoefficient.Dtemperature"), "1 / K");
    EXPECT_EQ(unit("fugacityCoefficient.Dpressure"), "1 / Pa");
    EXPECT_EQ(unit("vaporPressure.Dtemperature"), "Pa / K");
}

TEST_F(PropertyUnit, OfAMoleNumberDerivativeDependsOnTheKindOfQuantity)
{
    EXPECT_EQ(unit("enthalpy.Dmoles"), "J / mol");
    EXPECT_EQ(unit("fugacity.Dmoles"), "Pa / mol");
    EXPECT_EQ(unit("logFugacityCoefficient.Dmoles"), "1 / mol");
    useBasis("mass");
    EXPECT_EQ(refusedUnit("enthalpy.Dmoles"), "Do not use mole number derivatives of extensive property in mass basis");
    EXPECT_EQ(unit("fugacity.Dmoles"), "Pa / mol");
    EXPECT_EQ(unit("density.Dmoles"), "kg / m3 / mol");
}

TEST_F(PropertyUnit, OfAMoleFractionDerivativeIsThatOfTheProperty)
{
    EXPECT_EQ(unit("enthalpy.DmolFraction"), "J / mol");
    EXPECT_EQ(unit("kvalue.DmolFraction"), "");
}

TEST_F(PropertyUnit, OfAnUnknownNameOrSuffixIsRefusedInOneAndTheSameWay)
{
    for (const char *name : {"nonsense", "", "enthalpy.Dfoo", "enthalpy.", "diffusionCoefficient.Dmoles",
                             "temperature.Dpressure", "triplePointTemperature"})
        EXPECT_EQ(refusedUnit(name), "unknown / unsupported property") << name;
    EXPECT_EQ(unit("triplePointTemperature "), "K");
}

TEST_F(PropertyUnit, WantsAString)
{
    EXPECT_EQ(refusal(1, {Scalar(19), Scalar(19)}), "Expected string value for property name");
}
