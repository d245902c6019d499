// What a package reads of one phase, and which phases it finds present. The compounds weigh 18 and
// 36 g/mol.
#include "tests/unit/material/material_test.h"

namespace {

std::string refusedByGetPhase(const std::string &name, const std::string &description)
{
    return refusedBy("GetSingleProp", name, description);
}

class GetSinglePhaseProp : public MaterialTest {
protected:
    GetSinglePhaseProp() { material->phasePresent[1] = 1; }
};

using GetTPFraction = GetSinglePhaseProp;
using GetPresentPhases = GetSinglePhaseProp;

TEST_F(GetSinglePhaseProp, RefusesANullOutPointer)
{
    EXPECT_EQ(view->GetSinglePhaseProp(nullptr, nullptr, nullptr, nullptr), E_POINTER);
}

TEST_F(GetSinglePhaseProp, RefusesInTheOrderBasisPhasePresence)
{
    EXPECT_EQ(view.phase(OLESTR("flow"), OLESTR("Solid"), OLESTR("volume")).refusal,
              refusedByGetPhase("Invalid basis", "Invalid or unsupported basis: volume"));
    EXPECT_EQ(view.phase(OLESTR("flow"), OLESTR("Solid"), none).refusal,
              refusedByGetPhase("Invalid phase", "Invalid phase: Solid"));
    EXPECT_EQ(view.phase(OLESTR("flow"), nullptr, none).refusal,
              refusedByGetPhase("Invalid phase", "Invalid phase: NULL"));
    EXPECT_EQ(view.phase(OLESTR("flow"), OLESTR(""), none).refusal,
              refusedByGetPhase("Invalid phase", "Invalid phase: "));
    EXPECT_EQ(view.phase(OLESTR("flow"), vapor, none).refusal, refusedByGetPhase("Invalid phase", "Phase not present"));
}

TEST_F(GetSinglePhaseProp, RefusesAnAbsentPhaseEvenForTheTemperature)
{
    material->temperature = 300;
    EXPECT_EQ(view.phase(OLESTR("temperature"), vapor, none).refusal,
              refusedByGetPhase("Invalid phase", "Phase not present"));
    EXPECT_EQ(view.phase(OLESTR("temperature"), liquid, none).values, std::vector<double>{300});
}

TEST_F(GetSinglePhaseProp, HasNoPhaseCalledOverallUnlessThePackageHasOne)
{
    EXPECT_EQ(view.phase(OLESTR("temperature"), OLESTR("Overall"), none).refusal,
              refusedByGetPhase("Invalid phase", "Invalid phase: Overall"));
    TestMaterial other({18}, {OLESTR("Overall")});
    other->phasePresent[0] = 1;
    other->temperature = 300;
    const PackageView otherView(static_cast<ICapeThermoMaterial *>(&other.material()));
    EXPECT_EQ(otherView.phase(OLESTR("temperature"), OLESTR("overall"), none).values, std::vector<double>{300});
}

TEST_F(GetSinglePhaseProp, TreatsConditionsAndFlowsAsOverallDoes)
{
    EXPECT_EQ(view.phase(OLESTR("temperature"), liquid, none).refusal,
              refusedByGetPhase("Missing value", "Temperature is not set"));
    EXPECT_EQ(view.phase(OLESTR("pressure"), liquid, none).refusal,
              refusedByGetPhase("Missing value", "Pressure is not set"));
    EXPECT_EQ(view.phase(OLESTR("temperature"), liquid, mass).refusal,
              refusedByGetPhase("Invalid basis", "Invalid basis for temperature; no basis expected"));
    EXPECT_EQ(view.phase(OLESTR("pressure"), liquid, mole).refusal,
              refusedByGetPhase("Invalid basis", "Invalid basis for pressure; no basis expected"));
    EXPECT_EQ(view.phase(OLESTR("flow"), liquid, mole).refusal,
              refusedByGetPhase("Not supported", "Flow is not supported by this material object"));
    EXPECT_EQ(view.phase(OLESTR("totalFlow"), liquid, mole).refusal,
              refusedByGetPhase("Not supported", "Total flow is not supported by this material object"));
    material->pressure = 2e5;
    EXPECT_EQ(view.phase(OLESTR("pressure"), OLESTR("LIQUID"), none).values, std::vector<double>{2e5});
}

TEST_F(GetSinglePhaseProp, GivesTheCompositionOfThePhase)
{
    material.setOverallComposition({0.9, 0.1}, 0);
    EXPECT_EQ(view.phase(OLESTR("fraction"), liquid, none).refusal,
              refusedByGetPhase("Invalid basis", "Invalid basis for fraction; expected mole or mass basis"));
    EXPECT_EQ(view.phase(OLESTR("fraction"), liquid, mole).refusal,
              refusedByGetPhase("Missing values", "One or more missing values for composition"));
    material.setPhaseComposition(1, {0.5, 0.5}, 0);
    EXPECT_EQ(view.phase(OLESTR("fraction"), liquid, mole).values, (std::vector<double>{0.5, 0.5}));
    const auto values = view.phase(OLESTR("fraction"), liquid, mass).values;
    ASSERT_EQ(values.size(), 2u);
    EXPECT_DOUBLE_EQ(values[0], 1.0 / 3);
    EXPECT_DOUBLE_EQ(values[1], 2.0 / 3);
    material.setPhaseComposition(1, {0, 0}, 1);
    EXPECT_EQ(view.phase(OLESTR("fraction"), liquid, mole).refusal,
              refusedByGetPhase("Conversion error", "Zero or negative total composition in basis conversion"));
}

TEST_F(GetSinglePhaseProp, GivesThePhaseFractionInItsOwnBasisUnchanged)
{
    EXPECT_EQ(view.phase(OLESTR("phaseFraction"), liquid, none).refusal,
              refusedByGetPhase("Invalid basis", "Invalid basis for phase fraction; expected mole or mass basis"));
    EXPECT_EQ(view.phase(OLESTR("phaseFraction"), liquid, mole).refusal,
              refusedByGetPhase("Missing values", "phase fraction is not set"));
    material.setPhaseFraction(1, 0.3, 0);
    EXPECT_EQ(view.phase(OLESTR("PHASEFRACTION"), liquid, mole).values, std::vector<double>{0.3});
    material.setPhaseFraction(1, 0.3, 1);
    EXPECT_EQ(view.phase(OLESTR("phasefraction"), liquid, mass).values, std::vector<double>{0.3});
}

// One mole of pure light vapor (18 g) and one of pure heavy liquid (36 g): the vapor is a third.
TEST_F(GetSinglePhaseProp, ConvertsThePhaseFraction)
{
    material.setPhaseComposition(0, {1, 0}, 0);
    material.setPhaseComposition(1, {0, 1}, 0);
    material.setPhaseFraction(0, 0.5, 0);
    material.setPhaseFraction(1, 0.5, 0);
    auto values = view.phase(OLESTR("phaseFraction"), vapor, mass).values;
    ASSERT_EQ(values.size(), 1u);
    EXPECT_DOUBLE_EQ(values[0], 1.0 / 3);
    material.setPhaseFraction(0, 1.0 / 3, 1);
    material.setPhaseFraction(1, 2.0 / 3, 1);
    values = view.phase(OLESTR("phaseFraction"), liquid, mole).values;
    ASSERT_EQ(values.size(), 1u);
    EXPECT_DOUBLE_EQ(values[0], 0.5);
    EXPECT_EQ(material->phaseFraction[1], 2.0 / 3);
}

TEST_F(GetSinglePhaseProp, RefusesAPhaseFractionThatCannotBeConverted)
{
    material.setPhaseFraction(1, 0.5, 0);
    EXPECT_EQ(view.phase(OLESTR("phaseFraction"), liquid, mass).refusal,
              refusedByGetPhase("Conversion error", "One or more missing compositions in basis conversion"));
    material.setPhaseComposition(1, {0, 1}, 0);
    material.setPhaseComposition(0, {1, 0}, 0);
    material.setPhaseFraction(0, 0.5, 1);
    EXPECT_EQ(view.phase(OLESTR("phaseFraction"), liquid, mass).refusal,
              refusedByGetPhase("Conversion error", "Phase fractions are in inconsistent bases in basis conversion"));
    EXPECT_EQ(view.phase(OLESTR("phaseFraction"), vapor, mole).refusal,
              refusedByGetPhase("Conversion error", "Phase fractions are in inconsistent bases in basis conversion"));
}

TEST_F(GetSinglePhaseProp, LooksForValuesInTheMapOfThePhase)
{
    EXPECT_EQ(view.setOverall(OLESTR("viscosity"), none, DoubleArgument({1})), "");
    EXPECT_EQ(view.phase(OLESTR("viscosity"), liquid, none).refusal,
              refusedByGetPhase("No values", "Values not set for property viscosity"));
    EXPECT_EQ(view.setPhase(OLESTR("viscosity"), vapor, none, DoubleArgument({2})), "");
    EXPECT_EQ(view.setPhase(OLESTR("Viscosity"), liquid, none, DoubleArgument({3})), "");
    EXPECT_EQ(view.phase(OLESTR("viscosity"), vapor, none).values, std::vector<double>{2});
    EXPECT_EQ(view.phase(OLESTR("viscosity"), liquid, none).values, std::vector<double>{3});
    EXPECT_EQ(view.phase(OLESTR("Viscosity"), liquid, mass).refusal,
              refusedByGetPhase("Invalid property", "Invalid basis for Viscosity; expected no basis"));
    EXPECT_EQ(view.phase(OLESTR("viscositee"), liquid, none).refusal,
              refusedByGetPhase("Invalid property", "Invalid or unsupported single phase property: viscositee"));
    EXPECT_EQ(view.phase(nullptr, liquid, none).refusal,
              refusedByGetPhase("Invalid property", "Property name is empty"));
}

// Pure heavy liquid, 0.036 kg/mol: 3600 J/mol are 100000 J/kg, and 1000 mol/m3 36 kg/m3.
TEST_F(GetSinglePhaseProp, ConvertsWithTheCompositionOfThePhase)
{
    material.setOverallComposition({1, 0}, 0);
    EXPECT_EQ(view.setPhase(OLESTR("enthalpy"), liquid, mole, DoubleArgument({3600})), "");
    EXPECT_EQ(
        view.phase(OLESTR("enthalpy"), liquid, mass).refusal,
        refusedByGetPhase("Basis conversion error", "One or more missing composition values in basis conversion"));
    EXPECT_EQ(view.phase(OLESTR("enthalpy"), liquid, none).refusal,
              refusedByGetPhase("Invalid property", "Invalid basis for enthalpy; expected mole or mass basis"));
    material.setPhaseComposition(1, {0, 1}, 1);
    auto values = view.phase(OLESTR("enthalpy"), liquid, mass).values;
    ASSERT_EQ(values.size(), 1u);
    EXPECT_NEAR(values[0], 100000, 1e-9);
    EXPECT_EQ(view.phase(OLESTR("enthalpy"), liquid, mole).values, std::vector<double>{3600});
    EXPECT_EQ(view.setPhase(OLESTR("density"), liquid, mole, DoubleArgument({1000})), "");
    values = view.phase(OLESTR("density"), liquid, mass).values;
    ASSERT_EQ(values.size(), 1u);
    EXPECT_NEAR(values[0], 36, 1e-12);
}

TEST_F(GetTPFraction, RefusesNullOutPointers)
{
    double temperature = 1;
    double pressure = 2;
    OwnedVariant composition;
    const Bstr label(liquid);
    EXPECT_EQ(view->GetTPFraction(label.get(), &temperature, &pressure, nullptr), E_POINTER);
    EXPECT_EQ(view->GetTPFraction(label.get(), nullptr, &pressure, composition.out()), E_POINTER);
    EXPECT_EQ(view->GetTPFraction(label.get(), &temperature, nullptr, composition.out()), E_POINTER);
}

TEST_F(GetTPFraction, RefusesInTheOrderPhasePresenceTemperaturePressureComposition)
{
    double temperature = 1;
    double pressure = 2;
    const auto refusal = [&](LPCWSTR label) {
        TextArgument composition({OLESTR("cleared")});
        const std::string words =
            view.refusal(view->GetTPFraction(Bstr(label).get(), &temperature, &pressure, composition.out()));
        EXPECT_TRUE(composition.isEmpty());
        EXPECT_EQ(temperature, 1);
        EXPECT_EQ(pressure, 2);
        return words;
    };
    const std::string place = " | ICapeThermoMaterialObject | GetTPFraction";
    EXPECT_EQ(refusal(nullptr), "Invalid phase | Invalid phase: NULL" + place);
    EXPECT_EQ(refusal(OLESTR("Overall")), "Invalid phase | Invalid phase: Overall" + place);
    EXPECT_EQ(refusal(vapor), "Invalid phase | Phase not present" + place);
    EXPECT_EQ(refusal(liquid), "Missing value | Temperature is not set" + place);
    material->temperature = 300;
    EXPECT_EQ(refusal(liquid), "Missing value | Pressure is not set" + place);
    material->pressure = 1e5;
    EXPECT_EQ(refusal(liquid), "Missing values | One or more missing values for composition" + place);
    material.setPhaseComposition(1, {0, 0}, 1);
    EXPECT_EQ(refusal(liquid), "Conversion error | Zero or negative total composition in basis conversion" + place);
}

TEST_F(GetTPFraction, GivesMoleFractionsWhateverTheBasis)
{
    material->temperature = 300;
    material->pressure = 1e5;
    material.setPhaseComposition(1, {0.3, 0.3}, 0);
    double temperature = 0;
    double pressure = 0;
    const Bstr label(OLESTR("liquid"));
    {
        OwnedVariant composition;
        EXPECT_EQ(view->GetTPFraction(label.get(), &temperature, &pressure, composition.out()), S_OK);
        EXPECT_EQ(temperature, 300);
        EXPECT_EQ(pressure, 1e5);
        EXPECT_EQ(DoublesIn(composition), (std::vector<double>{0.3, 0.3}));
    }
    material.setPhaseComposition(1, {0.5, 0.5}, 1);
    OwnedVariant composition;
    EXPECT_EQ(view->GetTPFraction(label.get(), &temperature, &pressure, composition.out()), S_OK);
    const auto values = DoublesIn(composition);
    ASSERT_EQ(values.size(), 2u);
    EXPECT_DOUBLE_EQ(values[0], 2.0 / 3);
    EXPECT_DOUBLE_EQ(values[1], 1.0 / 3);
}

TEST_F(GetPresentPhases, RefusesNullOutPointers)
{
    OwnedVariant result;
    EXPECT_EQ(view->GetPresentPhases(nullptr, result.out()), E_POINTER);
    EXPECT_EQ(view->GetPresentPhases(result.out(), nullptr), E_POINTER);
    EXPECT_TRUE(result.isEmpty());
}

TEST_F(GetPresentPhases, GivesThemInTheOrderOfThePackageWithStatusUnknown)
{
    TestMaterial three({18}, {OLESTR("Vapor"), OLESTR("Liquid"), OLESTR("Solid")});
    const PackageView threeView(static_cast<ICapeThermoMaterial *>(&three.material()));
    EXPECT_EQ(threeView.setPresentPhases(TextArgument({OLESTR("SOLID"), OLESTR("vapor")})), "");
    TextArgument labels({OLESTR("cleared")});
    DoubleArgument status({1, 2, 3});
    EXPECT_EQ(threeView->GetPresentPhases(labels.out(), status.out()), S_OK);
    EXPECT_EQ(TextsIn(labels), (std::vector<std::string>{"Vapor", "Solid"}));
    EXPECT_EQ(Int32sIn(status), (std::vector<LONG>{0, 0}));
}

TEST_F(GetPresentPhases, GivesTwoArraysOfNoLengthWhenThereIsNone)
{
    material->phasePresent[1] = 0;
    OwnedVariant labels;
    OwnedVariant status;
    EXPECT_EQ(view->GetPresentPhases(labels.out(), status.out()), S_OK);
    EXPECT_TRUE(TextsIn(labels).empty());
    EXPECT_TRUE(Int32sIn(status).empty());
}

} // namespace
