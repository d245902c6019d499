// A write in words that were accepted before is judged like the first one.
#include "tests/unit/material/material_test.h"

namespace {

const std::string inPhase = " | ICapeThermoMaterialObject | SetSinglePhaseProp";
const std::string inPair = " | ICapeThermoMaterialObject | SetTwoPhaseProp";

class RepeatedWrites : public SetterTest {
protected:
    // Writes the value that is accepted, then the other.
    std::string afterwards(LPCWSTR property, LPCWSTR basis, const OwnedVariant &first, const OwnedVariant &then)
    {
        EXPECT_EQ(view.setPhase(property, vapor, basis, first), "");
        return view.setPhase(property, vapor, basis, then);
    }

    TextArgument vaporLiquid{{OLESTR("Vapor"), OLESTR("Liquid")}};
    TextArgument texts{OLESTR("1")};
    DoubleArgument missing{undefinedValue};
};

// Phases of which one has an empty label: a null label still names none.
class RepeatedWritesToANamelessPhase : public testing::Test {
protected:
    TestMaterial material{{18, 36}, {OLESTR("Vapor"), OLESTR("")}};
    PackageView view{static_cast<ICapeThermoMaterial *>(&material.material())};
    DoubleArgument one{1};
};

} // namespace

TEST_F(RepeatedWrites, AreRefusedForTheirValues)
{
    const std::string wrongType = "Invalid values | Invalid values: Expected an array of type double precision";
    EXPECT_EQ(afterwards(OLESTR("viscosity"), none, one, texts), wrongType + inPhase);
    EXPECT_EQ(afterwards(OLESTR("temperature"), none, one, texts), wrongType + inPhase);
    EXPECT_EQ(afterwards(OLESTR("viscosity"), none, one, two),
              "Invalid values | Unexpected number of values" + inPhase);
    EXPECT_EQ(afterwards(OLESTR("temperature"), none, one, two),
              "Invalid values | Invalid number of values for temperature: scalar expected" + inPhase);
    EXPECT_EQ(afterwards(OLESTR("pressure"), none, one, missing),
              "Invalid values | Invalid value for pressure, NaN" + inPhase);
    EXPECT_EQ(afterwards(OLESTR("fraction"), mole, two, one),
              "Invalid values | Invalid number of values for fraction: expected one value for each compound" + inPhase);
    EXPECT_EQ(afterwards(OLESTR("phaseFraction"), mass, one, missing),
              "Invalid values | Invalid value for phase fraction, NaN" + inPhase);
}

TEST_F(RepeatedWrites, AreRefusedForTheirPairsValues)
{
    EXPECT_EQ(view.setTwoPhase(OLESTR("surfaceTension"), vaporLiquid, none, one), "");
    EXPECT_EQ(view.setTwoPhase(OLESTR("surfaceTension"), vaporLiquid, none, texts),
              "Invalid values | Invalid values: Expected an array of type double precision" + inPair);
    EXPECT_EQ(view.setTwoPhase(OLESTR("surfaceTension"), vaporLiquid, none, two),
              "Invalid values | Unexpected number of values" + inPair);
    EXPECT_EQ(view.twoPhase(OLESTR("surfaceTension"), vaporLiquid, none).values, std::vector<double>{1});
}

TEST_F(RepeatedWrites, OfAPairAreRefusedWithABasis)
{
    EXPECT_EQ(view.setTwoPhase(OLESTR("surfaceTension"), vaporLiquid, none, one), "");
    EXPECT_EQ(view.setTwoPhase(OLESTR("surfaceTension"), vaporLiquid, mole, one),
              "Invalid basis | Expected no basis" + inPair);
    EXPECT_EQ(view.setTwoPhase(OLESTR("surfaceTension"), vaporLiquid, OLESTR(""), one), "");
}

TEST_F(RepeatedWrites, ReplaceTheBasisOfTheWriteBetweenThem)
{
    for (int i = 0; i < 2; ++i) {
        for (const LPCWSTR basis : {mole, mass}) {
            EXPECT_EQ(view.setPhase(OLESTR("enthalpy"), vapor, basis, one), "");
            EXPECT_EQ(view.phase(OLESTR("enthalpy"), vapor, basis).values, std::vector<double>{1});
            EXPECT_EQ(view.setPhase(OLESTR("phaseFraction"), vapor, basis, one), "");
            EXPECT_EQ(material->phaseFractionBasis[0], basis == mass ? 1 : 0);
            EXPECT_EQ(view.setPhase(OLESTR("fraction"), vapor, basis, two), "");
            EXPECT_EQ(material->phaseCompositionBasis[0], basis == mass ? 1 : 0);
        }
    }
}

TEST_F(RepeatedWrites, DeclareTheirOwnPhasePresent)
{
    for (int i = 0; i < 2; ++i) {
        material->phasePresent[0] = 0;
        material->phasePresent[1] = 0;
        EXPECT_EQ(view.setPhase(OLESTR("viscosity"), liquid, none, one), "");
        EXPECT_EQ(material->phasePresent[0], 0);
        EXPECT_EQ(material->phasePresent[1], 1);
    }
}

TEST_F(RepeatedWrites, GoToTheMapsThatClearingHasEmptied)
{
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(view.setPhase(OLESTR("viscosity"), vapor, none, one), "");
        EXPECT_EQ(view.setTwoPhase(OLESTR("surfaceTension"), vaporLiquid, none, one), "");
        EXPECT_EQ(view.phase(OLESTR("viscosity"), vapor, none).values, std::vector<double>{1});
        EXPECT_EQ(view.twoPhase(OLESTR("surfaceTension"), vaporLiquid, none).values, std::vector<double>{1});
        EXPECT_EQ(view->ClearAllProps(), S_OK);
    }
}

TEST_F(RepeatedWritesToANamelessPhase, RefuseANullLabel)
{
    EXPECT_EQ(view.setPhase(OLESTR("viscosity"), OLESTR(""), none, one), "");
    EXPECT_EQ(view.setPhase(OLESTR("viscosity"), nullptr, none, one), "Invalid phase | Invalid phase: NULL" + inPhase);
    EXPECT_EQ(view.setPhase(OLESTR("viscosity"), OLESTR(""), none, one), "");
}

TEST_F(RepeatedWritesToANamelessPhase, RefuseANullLabelInAPair)
{
    const LPCWSTR pairs[][2] = {{OLESTR("Vapor"), nullptr}, {nullptr, OLESTR("Vapor")}};
    for (const auto &[first, second] : pairs) {
        const TextArgument empty({first ? first : OLESTR(""), second ? second : OLESTR("")});
        EXPECT_EQ(view.setTwoPhase(OLESTR("surfaceTension"), empty, none, one), "");
        EXPECT_EQ(view.setTwoPhase(OLESTR("surfaceTension"), TextArgument({first, second}), none, one),
                  "Invalid phase | Invalid phase: NULL" + inPair);
    }
}
