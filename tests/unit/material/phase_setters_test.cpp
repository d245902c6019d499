// What a package writes to one phase, and how it declares phases present.
#include "tests/unit/material/material_test.h"

namespace {

std::string refusedBySetPhase(const std::string &name, const std::string &description)
{
    return refusedBy("SetSinglePhaseProp", name, description);
}

using SetSinglePhaseProp = SetterTest;
using SetPresentPhases = SetterTest;

TEST_F(SetSinglePhaseProp, RefusesInTheOrderBasisPhaseValuesName)
{
    const TextArgument texts({OLESTR("1")});
    EXPECT_EQ(view.setPhase(OLESTR("flow"), OLESTR("Solid"), OLESTR("volume"), texts),
              refusedBySetPhase("Invalid basis", "Invalid or unsupported basis: volume"));
    EXPECT_EQ(view.setPhase(OLESTR("flow"), OLESTR("Solid"), none, texts),
              refusedBySetPhase("Invalid phase", "Invalid phase: Solid"));
    EXPECT_EQ(view.setPhase(OLESTR("flow"), nullptr, none, texts),
              refusedBySetPhase("Invalid phase", "Invalid phase: NULL"));
    EXPECT_EQ(view.setPhase(OLESTR("flow"), OLESTR("Overall"), none, one),
              refusedBySetPhase("Invalid phase", "Invalid phase: Overall"));
    EXPECT_EQ(view.setPhase(OLESTR("flow"), liquid, none, texts),
              refusedBySetPhase("Invalid values", "Invalid values: Expected an array of type double precision"));
    EXPECT_EQ(view.setPhase(OLESTR("flow"), liquid, none, one),
              refusedBySetPhase("Not supported", "Flow is not supported by this material object"));
    EXPECT_EQ(view.setPhase(OLESTR("totalflow"), liquid, none, one),
              refusedBySetPhase("Not supported", "Total flow is not supported by this material object"));
    EXPECT_EQ(view.setPhase(OLESTR("nonsense"), liquid, none, one),
              refusedBySetPhase("Invalid property", "Invalid or unsupported single phase property: nonsense"));
    EXPECT_EQ(view.setPhase(nullptr, liquid, none, one),
              refusedBySetPhase("Invalid property", "Property name is empty"));
    EXPECT_EQ(view.setPhase(OLESTR("viscosity"), liquid, mole, two),
              refusedBySetPhase("Invalid basis", "Invalid basis; expected no basis"));
    EXPECT_EQ(view.setPhase(OLESTR("enthalpy"), liquid, none, two),
              refusedBySetPhase("Invalid basis", "Invalid basis; expected mole or mass basis"));
    EXPECT_EQ(view.setPhase(OLESTR("viscosity"), liquid, none, two),
              refusedBySetPhase("Invalid values", "Unexpected number of values"));
    EXPECT_EQ(
        view.setPhase(OLESTR("fugacity"), liquid, none, TwoDimensionalArgument(VT_R8)),
        refusedBySetPhase("Invalid values", "Invalid values: unexpected dimension; 1-dimensional array expected"));
    EXPECT_EQ(material->phasePresent[1], 0);
}

TEST_F(SetSinglePhaseProp, WritesTheOneTemperatureAndPressureAndMarksThePhasePresent)
{
    EXPECT_EQ(view.setPhase(OLESTR("temperature"), OLESTR("LIQUID"), none, DoubleArgument({310})), "");
    EXPECT_EQ(material->temperature, 310);
    EXPECT_EQ(material->phasePresent[0], 0);
    EXPECT_EQ(material->phasePresent[1], 1);
    EXPECT_EQ(view.setPhase(OLESTR("pressure"), OLESTR("vapor"), none, DoubleArgument({3e5})), "");
    EXPECT_EQ(material->pressure, 3e5);
    EXPECT_EQ(material->phasePresent[0], 1);
}

TEST_F(SetSinglePhaseProp, RefusesBadConditionsWithTheWordsOfOverall)
{
    EXPECT_EQ(view.setPhase(OLESTR("temperature"), liquid, mole, two),
              refusedBySetPhase("Invalid basis", "Invalid basis for temperature; no basis expected"));
    EXPECT_EQ(view.setPhase(OLESTR("pressure"), liquid, mole, two),
              refusedBySetPhase("Invalid basis", "Invalid basis for pressure; no basis expected"));
    EXPECT_EQ(view.setPhase(OLESTR("temperature"), liquid, none, empty),
              refusedBySetPhase("Invalid values", "Invalid number of values for temperature: scalar expected"));
    EXPECT_EQ(view.setPhase(OLESTR("pressure"), liquid, none, two),
              refusedBySetPhase("Invalid values", "Invalid number of values for pressure: scalar expected"));
    EXPECT_EQ(view.setPhase(OLESTR("temperature"), liquid, none, DoubleArgument({undefinedValue})),
              refusedBySetPhase("Invalid values", "Invalid value for temperature, NaN"));
    EXPECT_EQ(view.setPhase(OLESTR("pressure"), liquid, none, DoubleArgument({QuietNaN})),
              refusedBySetPhase("Invalid values", "Invalid value for pressure, NaN"));
    EXPECT_EQ(material->temperature, undefinedValue);
    EXPECT_EQ(material->phasePresent[1], 0);
}

TEST_F(SetSinglePhaseProp, WritesTheCompositionOfThePhaseOnly)
{
    EXPECT_EQ(view.setPhase(OLESTR("fraction"), liquid, mass, two), "");
    EXPECT_EQ(material->phaseComposition[1][0], 0.25);
    EXPECT_EQ(material->phaseComposition[1][1], 0.75);
    EXPECT_EQ(material->phaseCompositionBasis[1], 1);
    EXPECT_EQ(material->phasePresent[1], 1);
    EXPECT_TRUE(IsMissing(material->overallComposition[0]));
    EXPECT_TRUE(IsMissing(material->phaseComposition[0][0]));
    EXPECT_EQ(view.setPhase(OLESTR("fraction"), liquid, mole, two), "");
    EXPECT_EQ(material->phaseCompositionBasis[1], 0);
}

TEST_F(SetSinglePhaseProp, RefusesBadFractionsAndKeepsTheLeadingOnes)
{
    EXPECT_EQ(view.setPhase(OLESTR("fraction"), liquid, none, one),
              refusedBySetPhase("Invalid basis", "Invalid basis for fraction; expected mole or mass basis"));
    EXPECT_EQ(view.setPhase(OLESTR("fraction"), liquid, mole, one),
              refusedBySetPhase("Invalid values",
                                "Invalid number of values for fraction: expected one value for each compound"));
    EXPECT_EQ(view.setPhase(OLESTR("fraction"), liquid, mass, DoubleArgument({0.5, QuietNaN})),
              refusedBySetPhase("Invalid values", "Invalid values, one or more missing values"));
    EXPECT_EQ(material->phaseComposition[1][0], 0.5);
    EXPECT_TRUE(std::isnan(material->phaseComposition[1][1]));
    EXPECT_EQ(material->phaseCompositionBasis[1], 0);
    EXPECT_EQ(material->phasePresent[1], 0);
}

TEST_F(SetSinglePhaseProp, TakesThePhaseFractionWithItsBasis)
{
    EXPECT_EQ(view.setPhase(OLESTR("PhaseFraction"), liquid, mass, DoubleArgument({0.4})), "");
    EXPECT_EQ(material->phaseFraction[1], 0.4);
    EXPECT_EQ(material->phaseFractionBasis[1], 1);
    EXPECT_EQ(material->phasePresent[1], 1);
    EXPECT_EQ(view.setPhase(OLESTR("phasefraction"), liquid, mole, DoubleArgument({0.6}, 1)), "");
    EXPECT_EQ(material->phaseFraction[1], 0.6);
    EXPECT_EQ(material->phaseFractionBasis[1], 0);
}

TEST_F(SetSinglePhaseProp, RefusesABadPhaseFractionButKeepsAMissingOne)
{
    material->phaseFraction[1] = 0.5;
    EXPECT_EQ(view.setPhase(OLESTR("phaseFraction"), liquid, none, two),
              refusedBySetPhase("Invalid basis", "Invalid basis for phase fraction; mole or mass basis expected"));
    EXPECT_EQ(view.setPhase(OLESTR("phaseFraction"), liquid, mole, two),
              refusedBySetPhase("Invalid values", "Invalid number of values for phase fraction: scalar expected"));
    EXPECT_EQ(view.setPhase(OLESTR("phaseFraction"), liquid, mole, empty),
              refusedBySetPhase("Invalid values", "Invalid number of values for phase fraction: scalar expected"));
    EXPECT_EQ(material->phaseFraction[1], 0.5);
    EXPECT_EQ(view.setPhase(OLESTR("phaseFraction"), liquid, mass, DoubleArgument({undefinedValue})),
              refusedBySetPhase("Invalid values", "Invalid value for phase fraction, NaN"));
    EXPECT_EQ(material->phaseFraction[1], undefinedValue);
    EXPECT_EQ(material->phaseFractionBasis[1], 0);
    EXPECT_EQ(material->phasePresent[1], 0);
}

TEST_F(SetSinglePhaseProp, StoresOtherValuesInTheMapOfThePhase)
{
    EXPECT_EQ(view.setPhase(OLESTR("Enthalpy"), liquid, mass, DoubleArgument({5})), "");
    PropertyValues *entry = nullptr;
    ASSERT_TRUE(material->phaseProps[1].find(OLESTR("enthalpy"), entry));
    EXPECT_EQ(entry->count, 1u);
    EXPECT_EQ(entry->values[0], 5);
    EXPECT_EQ(entry->basis, 1);
    EXPECT_TRUE(material->phaseProps[0].empty());
    EXPECT_TRUE(material->overallProps.empty());
    EXPECT_EQ(material->phasePresent[1], 1);
}

TEST_F(SetPresentPhases, ReplacesWhatWasPresent)
{
    material->phasePresent[0] = 1;
    OwnedVariant status;
    EXPECT_EQ(view->SetPresentPhases(TextArgument({OLESTR("LIQUID")}, 1).value, status.value), S_OK);
    EXPECT_EQ(material->phasePresent[0], 0);
    EXPECT_EQ(material->phasePresent[1], 1);
}

TEST_F(SetPresentPhases, IgnoresTheStatus)
{
    const TextArgument nonsense({OLESTR("status")});
    EXPECT_EQ(view->SetPresentPhases(TextArgument({OLESTR("vapor")}).value, nonsense.value), S_OK);
    EXPECT_EQ(material->phasePresent[0], 1);
}

TEST_F(SetPresentPhases, TakesAnEmptyListForNoPhase)
{
    for (bool emptyArray : {false, true}) {
        material->phasePresent[0] = 1;
        EXPECT_EQ(emptyArray ? view.setPresentPhases(TextArgument({})) : view.setPresentPhases(empty), "");
        EXPECT_EQ(material->phasePresent[0], 0);
    }
}

TEST_F(SetPresentPhases, KeepsTheLabelsInFrontOfAnUnknownOne)
{
    TestMaterial three({18}, {OLESTR("Vapor"), OLESTR("Liquid"), OLESTR("Solid")});
    const PackageView threeView(static_cast<ICapeThermoMaterial *>(&three.material()));
    const std::string place = " | ICapeThermoMaterial | SetPresentPhases";
    three->phasePresent[2] = 1;
    EXPECT_EQ(threeView.setPresentPhases(TextArgument({OLESTR("liquid"), OLESTR("Gas"), OLESTR("Vapor")})),
              "Invalid phase labels | Invalid phase: Gas" + place);
    EXPECT_EQ(three->phasePresent[0], 0);
    EXPECT_EQ(three->phasePresent[1], 1);
    EXPECT_EQ(three->phasePresent[2], 0);
    EXPECT_EQ(threeView.setPresentPhases(TextArgument({nullptr})),
              "Invalid phase labels | Invalid phase: NULL" + place);
}

TEST_F(SetPresentPhases, LeavesNothingPresentWhenItIsGivenNoLabels)
{
    const std::string place = " | ICapeThermoMaterial | SetPresentPhases";
    material->phasePresent[0] = 1;
    EXPECT_EQ(view.setPresentPhases(one),
              "Invalid phase labels | Invalid phase labels: Expected an array of type string" + place);
    EXPECT_EQ(material->phasePresent[0], 0);
    EXPECT_EQ(view.setPresentPhases(TwoDimensionalArgument(VT_BSTR)),
              "Invalid phase labels | Invalid phase labels: unexpected dimension; 1-dimensional array expected" +
                  place);
}

} // namespace
