// What a package writes to the Overall phase, and what of it stays when it is refused.
#include "tests/unit/material/material_test.h"

namespace {

std::string refusedBySetOverall(const std::string &name, const std::string &description)
{
    return refusedBy("SetOverallProp", name, description);
}

using SetOverallProp = SetterTest;

TEST_F(SetOverallProp, RefusesInTheOrderBasisValuesName)
{
    const TextArgument texts({OLESTR("1")});
    EXPECT_EQ(view.setOverall(OLESTR("flow"), OLESTR("volume"), texts),
              refusedBySetOverall("Invalid basis", "Invalid or unsupported basis: volume"));
    const std::string badValues =
        refusedBySetOverall("Invalid values", "Invalid values: Expected an array of type double precision");
    EXPECT_EQ(view.setOverall(OLESTR("flow"), none, texts), badValues);
    EXPECT_EQ(view.setOverall(OLESTR("nonsense"), none, texts), badValues);
    EXPECT_EQ(view.setOverall(nullptr, none, texts), badValues);
    EXPECT_EQ(view.setOverall(OLESTR("flow"), none, one),
              refusedBySetOverall("Not supported", "Flow is not supported by this material object"));
    EXPECT_EQ(view.setOverall(OLESTR("TOTALFLOW"), mole, one),
              refusedBySetOverall("Not supported", "Total flow is not supported by this material object"));
    EXPECT_EQ(view.setOverall(OLESTR("phasefraction"), mole, one),
              refusedBySetOverall("Not supported", "Phase fraction is not supported for the Overall phase"));
    EXPECT_EQ(view.setOverall(OLESTR("Nonsense"), none, one),
              refusedBySetOverall("Invalid property", "Invalid or unsupported single phase property: nonsense"));
    EXPECT_EQ(view.setOverall(nullptr, none, one), refusedBySetOverall("Invalid property", "Property name is empty"));
    EXPECT_EQ(view.setOverall(OLESTR("temperature.Dpressure"), none, one),
              refusedBySetOverall("Invalid property", "Invalid or unsupported single phase property: temperature"));
}

TEST_F(SetOverallProp, RefusesArraysOfOtherTypesAndDimensions)
{
    const std::string type =
        refusedBySetOverall("Invalid values", "Invalid values: Expected an array of type double precision");
    EXPECT_EQ(view.setOverall(OLESTR("temperature"), none, Int32Argument({300})), type);
    OwnedVariant scalar;
    scalar.value.vt = VT_R8;
    scalar.value.dblVal = 300;
    EXPECT_EQ(view.setOverall(OLESTR("temperature"), none, scalar), type);
    EXPECT_EQ(
        view.setOverall(OLESTR("temperature"), none, TwoDimensionalArgument(VT_R8)),
        refusedBySetOverall("Invalid values", "Invalid values: unexpected dimension; 1-dimensional array expected"));
    EXPECT_TRUE(IsMissing(material->temperature));
}

TEST_F(SetOverallProp, TakesTheConditions)
{
    EXPECT_EQ(view.setOverall(OLESTR("Temperature"), none, DoubleArgument({300.5})), "");
    EXPECT_EQ(view.setOverall(OLESTR("PRESSURE"), OLESTR(""), DoubleArgument({1e5}, 1)), "");
    EXPECT_EQ(material->temperature, 300.5);
    EXPECT_EQ(material->pressure, 1e5);
}

TEST_F(SetOverallProp, RefusesConditionsWithABasisOrInAnyNumberButOne)
{
    EXPECT_EQ(view.setOverall(OLESTR("temperature"), mole, two),
              refusedBySetOverall("Invalid basis", "Invalid basis for temperature; no basis expected"));
    EXPECT_EQ(view.setOverall(OLESTR("pressure"), mass, two),
              refusedBySetOverall("Invalid basis", "Invalid basis for pressure; no basis expected"));
    const OwnedVariant *const wrongCounts[] = {&two, &empty};
    for (const OwnedVariant *values : wrongCounts) {
        EXPECT_EQ(view.setOverall(OLESTR("temperature"), none, *values),
                  refusedBySetOverall("Invalid values", "Invalid number of values for temperature: scalar expected"));
        EXPECT_EQ(view.setOverall(OLESTR("pressure"), none, *values),
                  refusedBySetOverall("Invalid values", "Invalid number of values for pressure: scalar expected"));
    }
    EXPECT_TRUE(IsMissing(material->temperature));
    EXPECT_TRUE(IsMissing(material->pressure));
}

TEST_F(SetOverallProp, RefusesMissingConditionsButKeepsThem)
{
    material->temperature = 300;
    material->pressure = 1e5;
    const std::string text = refusedBySetOverall("Invalid values", "Invalid value for temperature, NaN");
    EXPECT_EQ(view.setOverall(OLESTR("temperature"), none, DoubleArgument({undefinedValue})), text);
    EXPECT_EQ(material->temperature, undefinedValue);
    EXPECT_EQ(view.setOverall(OLESTR("temperature"), none, DoubleArgument({QuietNaN})), text);
    EXPECT_TRUE(std::isnan(material->temperature));
    EXPECT_EQ(view.setOverall(OLESTR("pressure"), none, DoubleArgument({undefinedValue})),
              refusedBySetOverall("Invalid values", "Invalid value for pressure, NaN"));
    EXPECT_EQ(material->pressure, undefinedValue);
}

TEST_F(SetOverallProp, RefusesFractionsInTheOrderBasisCountMissing)
{
    material->overallCompositionBasis = 0;
    EXPECT_EQ(view.setOverall(OLESTR("fraction"), none, one),
              refusedBySetOverall("Invalid basis", "Invalid basis for fraction; expected mole or mass basis"));
    const std::string count = refusedBySetOverall(
        "Invalid values", "Invalid number of values for fraction: expected one value for each compound");
    EXPECT_EQ(view.setOverall(OLESTR("fraction"), mole, DoubleArgument({QuietNaN})), count);
    EXPECT_EQ(view.setOverall(OLESTR("fraction"), mole, empty), count);
    EXPECT_EQ(view.setOverall(OLESTR("fraction"), mole, DoubleArgument({1, 2, 3})), count);
    EXPECT_TRUE(IsMissing(material->overallComposition[0]));
    EXPECT_EQ(view.setOverall(OLESTR("fraction"), mass, DoubleArgument({0.5, undefinedValue})),
              refusedBySetOverall("Invalid values", "Invalid values, one or more missing values"));
    EXPECT_EQ(material->overallCompositionBasis, 0);
}

TEST_F(SetOverallProp, KeepsTheFractionsInFrontOfAMissingOne)
{
    TestMaterial three({18, 36, 44});
    three.setOverallComposition({0.1, 0.2, 0.3}, 0);
    const PackageView threeView(static_cast<ICapeThermoMaterial *>(&three.material()));
    EXPECT_EQ(threeView.setOverall(OLESTR("fraction"), mass, DoubleArgument({0.5, QuietNaN, 0.6})),
              refusedBySetOverall("Invalid values", "Invalid values, one or more missing values"));
    EXPECT_EQ(three->overallComposition[0], 0.5);
    EXPECT_TRUE(std::isnan(three->overallComposition[1]));
    EXPECT_EQ(three->overallComposition[2], 0.3);
    EXPECT_EQ(three->overallCompositionBasis, 0);
}

TEST_F(SetOverallProp, TakesFractionsAsTheyAreWithTheirBasis)
{
    EXPECT_EQ(view.setOverall(OLESTR("FRACTION"), mass, DoubleArgument({-0.25, 7}, 1)), "");
    EXPECT_EQ(material->overallComposition[0], -0.25);
    EXPECT_EQ(material->overallComposition[1], 7);
    EXPECT_EQ(material->overallCompositionBasis, 1);
    EXPECT_EQ(view.setOverall(OLESTR("fraction"), OLESTR("Mole"), two), "");
    EXPECT_EQ(material->overallComposition[0], 0.25);
    EXPECT_EQ(material->overallCompositionBasis, 0);
}

TEST_F(SetOverallProp, RefusesABasisThatDoesNotFitTheProperty)
{
    EXPECT_EQ(view.setOverall(OLESTR("viscosity"), mole, two),
              refusedBySetOverall("Invalid basis", "Invalid basis; expected no basis"));
    EXPECT_EQ(view.setOverall(OLESTR("enthalpy"), none, two),
              refusedBySetOverall("Invalid basis", "Invalid basis; expected mole or mass basis"));
}

TEST_F(SetOverallProp, RefusesAnyOtherNumberOfValuesThanTheShapeHas)
{
    const std::string text = refusedBySetOverall("Invalid values", "Unexpected number of values");
    const DoubleArgument four({1, 2, 3, 4});
    EXPECT_EQ(view.setOverall(OLESTR("viscosity"), none, two), text);
    EXPECT_EQ(view.setOverall(OLESTR("viscosity"), none, empty), text);
    EXPECT_EQ(view.setOverall(OLESTR("viscosity"), none, one), "");
    EXPECT_EQ(view.setOverall(OLESTR("fugacity"), none, one), text);
    EXPECT_EQ(view.setOverall(OLESTR("fugacity"), none, two), "");
    EXPECT_EQ(view.setOverall(OLESTR("fugacity.Dpressure"), none, four), text);
    EXPECT_EQ(view.setOverall(OLESTR("fugacity.Dpressure"), none, two), "");
    EXPECT_EQ(view.setOverall(OLESTR("diffusionCoefficient"), none, two), text);
    EXPECT_EQ(view.setOverall(OLESTR("diffusionCoefficient"), none, four), "");
    EXPECT_EQ(view.setOverall(OLESTR("fugacity.Dmoles"), none, two), text);
    EXPECT_EQ(view.setOverall(OLESTR("fugacity.Dmoles"), none, four), "");
    EXPECT_EQ(view.setOverall(OLESTR("enthalpy.DmolFraction"), mole, one), text);
    EXPECT_EQ(view.setOverall(OLESTR("enthalpy.DmolFraction"), mole, two), "");
    EXPECT_EQ(view.setOverall(OLESTR("diffusionCoefficient.Dmoles"), none, four),
              refusedBySetOverall("Invalid property", "composition derivatives of matrix properties not supported"));
    EXPECT_EQ(material->overallProps.all().size(), 6u);
}

TEST_F(SetOverallProp, KeepsOneEntryWithTheBasisOfTheLastAuthor)
{
    EXPECT_EQ(view.setOverall(OLESTR("enthalpy"), mole, DoubleArgument({1})), "");
    PropertyValues *entry = nullptr;
    ASSERT_TRUE(material->overallProps.find(OLESTR("enthalpy"), entry));
    EXPECT_EQ(entry->basis, 0);
    EXPECT_EQ(view.setOverall(OLESTR("Enthalpy"), mass, DoubleArgument({2})), "");
    EXPECT_EQ(material->overallProps.all().size(), 1u);
    EXPECT_EQ(entry->basis, 1);
    EXPECT_EQ(entry->values[0], 2);
    EXPECT_EQ(view.setOverall(OLESTR("enthalpy"), mole, DoubleArgument({3})), "");
    EXPECT_EQ(entry->basis, 0);
}

TEST_F(SetOverallProp, StoresMissingValuesAsTheyCome)
{
    EXPECT_EQ(view.setOverall(OLESTR("fugacity"), none, DoubleArgument({undefinedValue, QuietNaN})), "");
    PropertyValues *entry = nullptr;
    ASSERT_TRUE(material->overallProps.find(OLESTR("fugacity"), entry));
    EXPECT_EQ(entry->values[0], undefinedValue);
    EXPECT_TRUE(std::isnan(entry->values[1]));
}

TEST_F(SetOverallProp, ReadsArraysThatStartAtOne)
{
    EXPECT_EQ(view.setOverall(OLESTR("fugacity"), none, DoubleArgument({5, 6}, 1)), "");
    EXPECT_EQ(view.overall(OLESTR("fugacity"), none).values, (std::vector<double>{5, 6}));
}

TEST_F(SetOverallProp, LeavesTheArrayToItsOwner)
{
    DoubleArgument values({5, 6});
    EXPECT_EQ(view.setOverall(OLESTR("fugacity"), none, values), "");
    EXPECT_EQ(DoublesIn(values), (std::vector<double>{5, 6}));
    EXPECT_EQ(SafeArrayDestroy(values.value.parray), S_OK); // it is not locked any more
    values.value.vt = VT_EMPTY;
}

TEST_F(SetOverallProp, MarksNoPhasePresent)
{
    EXPECT_EQ(view.setOverall(OLESTR("temperature"), none, DoubleArgument({300})), "");
    EXPECT_EQ(material->phasePresent[0], 0);
    EXPECT_EQ(material->phasePresent[1], 0);
}

} // namespace
