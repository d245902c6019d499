// What a package does at every one of many conditions: nothing of ours is allocated for it.
#include "tests/unit/material/material_test.h"
#include "tests/unit/support/allocation_watch.h"

namespace {

class RepeatedCalls : public MaterialTest {
protected:
    RepeatedCalls()
    {
        material->temperature = 300;
        material->pressure = 1e5;
        material->phasePresent[1] = 1;
        material.setPhaseComposition(1, {0.5, 0.5}, 1);
        material.setOverallComposition({0.5, 0.5}, 1);
    }

    Bstr label{liquid};
    Bstr perMole{mole};
    Bstr longName{OLESTR("fugacityCoefficient.DmolFraction")};
    Bstr enthalpy{OLESTR("excessHelmholtzEnergy.Dtemperature")};
    DoubleArgument matrix{{1, 2, 3, 4}};
    DoubleArgument scalar = DoubleArgument({1});
};

TEST_F(RepeatedCalls, ReadingConditionsAllocatesNothing)
{
    double temperature = 0;
    double pressure = 0;
    OwnedVariant composition;
    const AllocationWatch watch;
    EXPECT_EQ(view->GetTPFraction(label.get(), &temperature, &pressure, composition.out()), S_OK);
    EXPECT_EQ(view->GetOverallTPFraction(&temperature, &pressure, composition.out()), S_OK);
    EXPECT_EQ(watch.count(), 0u);
}

TEST_F(RepeatedCalls, ReadingAndWritingValuesThatWereSetBeforeAllocatesNothing)
{
    ASSERT_EQ(view->SetSinglePhaseProp(longName.get(), label.get(), nullptr, matrix.value), S_OK);
    ASSERT_EQ(view->SetSinglePhaseProp(enthalpy.get(), label.get(), perMole.get(), scalar.value), S_OK);
    OwnedVariant derivatives;
    OwnedVariant perMassValue;
    const Bstr perMass(mass);
    const AllocationWatch watch;
    EXPECT_EQ(view->SetSinglePhaseProp(longName.get(), label.get(), nullptr, matrix.value), S_OK);
    EXPECT_EQ(view->SetSinglePhaseProp(enthalpy.get(), label.get(), perMole.get(), scalar.value), S_OK);
    EXPECT_EQ(view->GetSinglePhaseProp(longName.get(), label.get(), nullptr, derivatives.out()), S_OK);
    EXPECT_EQ(view->GetSinglePhaseProp(enthalpy.get(), label.get(), perMass.get(), perMassValue.out()), S_OK);
    EXPECT_EQ(watch.count(), 0u);
}

TEST_F(RepeatedCalls, WritingAFlashResultAgainAllocatesNothing)
{
    const Bstr temperature(OLESTR("temperature"));
    const Bstr fraction(OLESTR("fraction"));
    const Bstr phaseFraction(OLESTR("phaseFraction"));
    const DoubleArgument composition({0.5, 0.5});
    const TextArgument labels({OLESTR("Vapor"), OLESTR("Liquid")});
    OwnedVariant status;
    const auto writeFlash = [&] {
        EXPECT_EQ(view->SetPresentPhases(labels.value, status.value), S_OK);
        EXPECT_EQ(view->SetOverallProp(temperature.get(), nullptr, scalar.value), S_OK);
        EXPECT_EQ(view->SetSinglePhaseProp(fraction.get(), label.get(), perMole.get(), composition.value), S_OK);
        EXPECT_EQ(view->SetSinglePhaseProp(phaseFraction.get(), label.get(), perMole.get(), scalar.value), S_OK);
    };
    writeFlash();
    const AllocationWatch watch;
    writeFlash();
    EXPECT_EQ(watch.count(), 0u);
}

TEST_F(RepeatedCalls, ReadingAndWritingTwoPhaseValuesThatWereSetBeforeAllocatesNothing)
{
    const Bstr property(OLESTR("logKvalue.Dtemperature"));
    const TextArgument labels({OLESTR("Vapor"), OLESTR("Liquid")});
    const DoubleArgument values({1, 2});
    ASSERT_EQ(view->SetTwoPhaseProp(property.get(), labels.value, nullptr, values.value), S_OK);
    OwnedVariant results;
    const AllocationWatch watch;
    EXPECT_EQ(view->SetTwoPhaseProp(property.get(), labels.value, nullptr, values.value), S_OK);
    EXPECT_EQ(view->GetTwoPhaseProp(property.get(), labels.value, nullptr, results.out()), S_OK);
    EXPECT_EQ(watch.count(), 0u);
}

} // namespace
