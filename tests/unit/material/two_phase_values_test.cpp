// Values of a pair of phases: written, read, and how their key lies.
#include "material/two_phase_key.h"
#include "tests/unit/material/material_test.h"
#include "tests/unit/support/allocation_watch.h"

namespace {

std::string place(const std::string &method) { return " | ICapeThermoMaterialObject | " + method; }

class TwoPhaseValues : public SetterTest {
protected:
    // The refusals that reading and writing have in common.
    void expectRefusedByBoth(LPCWSTR property, const OwnedVariant &labels, const std::string &words)
    {
        EXPECT_EQ(view.twoPhase(property, labels, none).refusal, words + place("GetTwoPhaseProp"));
        EXPECT_EQ(view.setTwoPhase(property, labels, none, one), words + place("SetTwoPhaseProp"));
    }

    TextArgument vaporLiquid{{OLESTR("Vapor"), OLESTR("Liquid")}};
    TextArgument liquidVapor{{OLESTR("Liquid"), OLESTR("Vapor")}};
};

TEST(TwoPhaseKey, IsSecondLabelColonProperty)
{
    EXPECT_EQ(Ascii(TwoPhaseKey(OLESTR("Liquid"), OLESTR("kvalue.Dtemperature"))), "Liquid:kvalue.Dtemperature");
    EXPECT_EQ(Ascii(TwoPhaseKey(OLESTR(""), OLESTR("kvalue"))), ":kvalue");
}

TEST_F(TwoPhaseValues, RefuseANullOutPointer)
{
    EXPECT_EQ(view->GetTwoPhaseProp(nullptr, empty.value, nullptr, nullptr), E_POINTER);
}

TEST_F(TwoPhaseValues, NeedLabelsThatAreTexts)
{
    expectRefusedByBoth(nullptr, two,
                        "Phase error:  | Invalid specification of phases: Expected an array of type string");
    expectRefusedByBoth(nullptr, TwoDimensionalArgument(VT_BSTR),
                        "Phase error:  | Invalid specification of phases: unexpected dimension; "
                        "1-dimensional array expected");
}

TEST_F(TwoPhaseValues, NeedExactlyTwoLabels)
{
    const std::string words = "Phase error:  | Invalid number of phase identifiers";
    expectRefusedByBoth(nullptr, empty, words);
    expectRefusedByBoth(nullptr, TextArgument({OLESTR("Vapor")}), words);
    expectRefusedByBoth(nullptr, TextArgument({OLESTR("Vapor"), OLESTR("Liquid"), OLESTR("Vapor")}), words);
}

TEST_F(TwoPhaseValues, NeedKnownPhasesTheFirstLookedAtFirst)
{
    expectRefusedByBoth(nullptr, TextArgument({OLESTR("Gas"), OLESTR("Solid")}), "Invalid phase | Invalid phase: Gas");
    expectRefusedByBoth(nullptr, TextArgument({OLESTR("vapor"), OLESTR("Solid")}),
                        "Invalid phase | Invalid phase: Solid");
    expectRefusedByBoth(nullptr, TextArgument({nullptr, OLESTR("Solid")}), "Invalid phase | Invalid phase: NULL");
    expectRefusedByBoth(nullptr, TextArgument({OLESTR("vapor"), nullptr}), "Invalid phase | Invalid phase: NULL");
}

TEST_F(TwoPhaseValues, NeedAPropertyBeforeNoBasisAndThatBeforeAKnownProperty)
{
    EXPECT_EQ(view.setTwoPhase(none, vaporLiquid, mole, one),
              "Invalid property | Invalid property: NULL" + place("SetTwoPhaseProp"));
    EXPECT_EQ(view.setTwoPhase(OLESTR("nothing"), vaporLiquid, mole, one),
              "Invalid basis | Expected no basis" + place("SetTwoPhaseProp"));
}

TEST_F(TwoPhaseValues, NeedAProperty)
{
    expectRefusedByBoth(nullptr, vaporLiquid, "Invalid property | Invalid property: NULL");
}

TEST_F(TwoPhaseValues, AreRefusedInWritingInTheOrderBasisNameValuesCount)
{
    const TextArgument texts({OLESTR("1")});
    const std::string where = place("SetTwoPhaseProp");
    EXPECT_EQ(view.setTwoPhase(OLESTR("nonsense"), vaporLiquid, OLESTR("mole"), texts),
              "Invalid basis | Expected no basis" + where);
    EXPECT_EQ(view.setTwoPhase(OLESTR("Enthalpy"), vaporLiquid, none, texts),
              "Invalid property | Invalid or unsupported two-phase property: enthalpy" + where);
    EXPECT_EQ(view.setTwoPhase(OLESTR("kvalue.Dfoo"), vaporLiquid, none, texts),
              "Invalid property | Invalid or unsuppored derivative \"Dfoo\"" + where);
    EXPECT_EQ(view.setTwoPhase(OLESTR("kvalue"), vaporLiquid, none, texts),
              "Invalid values | Invalid values: Expected an array of type double precision" + where);
    EXPECT_EQ(view.setTwoPhase(OLESTR("kvalue"), vaporLiquid, none, one),
              "Invalid values | Unexpected number of values" + where);
    EXPECT_EQ(view.setTwoPhase(OLESTR("kvalue"), vaporLiquid, none, empty),
              "Invalid values | Unexpected number of values" + where);
}

TEST_F(TwoPhaseValues, HaveTheirShapeAndTwoOfItForCompositionDerivatives)
{
    const std::string count = "Invalid values | Unexpected number of values" + place("SetTwoPhaseProp");
    const DoubleArgument four({1, 2, 3, 4});
    const DoubleArgument eight({1, 2, 3, 4, 5, 6, 7, 8});
    const auto set = [&](LPCWSTR property, const OwnedVariant &values) {
        return view.setTwoPhase(property, vaporLiquid, OLESTR(""), values);
    };
    EXPECT_EQ(set(OLESTR("surfaceTension"), one), "");
    EXPECT_EQ(set(OLESTR("surfaceTension"), two), count);
    EXPECT_EQ(set(OLESTR("surfaceTension.Dtemperature"), one), "");
    EXPECT_EQ(set(OLESTR("surfaceTension.DmolFraction"), two), count);
    EXPECT_EQ(set(OLESTR("surfaceTension.DmolFraction"), four), "");
    EXPECT_EQ(set(OLESTR("kvalue"), two), "");
    EXPECT_EQ(set(OLESTR("kvalue.Dpressure"), two), "");
    EXPECT_EQ(set(OLESTR("kvalue.DmolFraction"), four), count);
    EXPECT_EQ(set(OLESTR("kvalue.DmolFraction"), eight), "");
    EXPECT_EQ(set(OLESTR("logKvalue.Dmoles"), eight), "");
    EXPECT_EQ(view.twoPhase(OLESTR("KVALUE.dmolfraction"), vaporLiquid, none).values,
              (std::vector<double>{1, 2, 3, 4, 5, 6, 7, 8}));
}

TEST_F(TwoPhaseValues, LieWithTheFirstPhaseUnderTheLowerCasedKey)
{
    EXPECT_EQ(view.setTwoPhase(OLESTR("kValue"), TextArgument({OLESTR("VAPOR"), OLESTR("LIQUID")}, 1), none, two), "");
    ASSERT_EQ(material->phaseProps[0].all().size(), 1u);
    EXPECT_TRUE(material->phaseProps[1].empty());
    EXPECT_EQ(Ascii(material->phaseProps[0].all().begin()->first.GetKeyText()), "liquid:kvalue");
    EXPECT_EQ(material->phaseProps[0].all().begin()->second->basis, 0);
}

TEST_F(TwoPhaseValues, AreNotThoseOfThePairInTheOtherOrder)
{
    EXPECT_EQ(view.setTwoPhase(OLESTR("kvalue"), vaporLiquid, none, two), "");
    EXPECT_EQ(view.twoPhase(OLESTR("kvalue"), vaporLiquid, none).values, (std::vector<double>{0.25, 0.75}));
    EXPECT_EQ(view.twoPhase(OLESTR("KValue"), liquidVapor, none).refusal,
              "No values | No values for property KValue" + place("GetTwoPhaseProp"));
}

TEST_F(TwoPhaseValues, TakeNoNoteOfPresence)
{
    EXPECT_EQ(view.setTwoPhase(OLESTR("kvalue"), vaporLiquid, none, two), "");
    EXPECT_EQ(material->phasePresent[0], 0);
    EXPECT_EQ(material->phasePresent[1], 0);
    EXPECT_EQ(view.twoPhase(OLESTR("kvalue"), vaporLiquid, none).refusal, "");
}

TEST_F(TwoPhaseValues, MayBeOfOnePhaseTwice)
{
    const TextArgument same({OLESTR("Vapor"), OLESTR("vapor")});
    EXPECT_EQ(view.twoPhase(OLESTR("kvalue"), same, none).refusal,
              "No values | No values for property kvalue" + place("GetTwoPhaseProp"));
    EXPECT_EQ(view.setTwoPhase(OLESTR("kvalue"), same, none, two), "");
    EXPECT_EQ(view.twoPhase(OLESTR("kvalue"), same, none).values, (std::vector<double>{0.25, 0.75}));
}

TEST_F(TwoPhaseValues, AreReadWithoutBasisWhenThereAreAny)
{
    EXPECT_EQ(view.twoPhase(OLESTR("surfaceTension"), vaporLiquid, OLESTR("mole")).refusal,
              "No values | No values for property surfaceTension" + place("GetTwoPhaseProp"));
    EXPECT_EQ(view.setTwoPhase(OLESTR("surfaceTension"), vaporLiquid, none, one), "");
    for (LPCWSTR basis : {OLESTR("mole"), OLESTR("nonsense")})
        EXPECT_EQ(view.twoPhase(OLESTR("surfaceTension"), vaporLiquid, basis).refusal,
                  "Invalid basis | Expected no basis" + place("GetTwoPhaseProp"));
    EXPECT_EQ(view.twoPhase(OLESTR("surfaceTension"), vaporLiquid, OLESTR("")).values, std::vector<double>{1});
}

TEST_F(TwoPhaseValues, AreLookedForWithoutTheVocabulary)
{
    EXPECT_EQ(view.twoPhase(OLESTR("Nonsense"), vaporLiquid, none).refusal,
              "No values | No values for property Nonsense" + place("GetTwoPhaseProp"));
}

TEST_F(TwoPhaseValues, LeaveTheirLabelsToTheCaller)
{
    EXPECT_EQ(view.setTwoPhase(OLESTR("kvalue"), vaporLiquid, none, two), "");
    EXPECT_EQ(TextsIn(vaporLiquid), (std::vector<std::string>{"Vapor", "Liquid"}));
    EXPECT_EQ(DoublesIn(two), (std::vector<double>{0.25, 0.75}));
}

TEST_F(TwoPhaseValues, TellThatMemoryIsOutWithoutAMessage)
{
    const RefusedAllocations noMemory;
    EXPECT_EQ(view.setTwoPhase(OLESTR("kvalue"), vaporLiquid, none, two), "0x8007000E");
    EXPECT_EQ(view.errorState(), " |  |  | ");
}

} // namespace
