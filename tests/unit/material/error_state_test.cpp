// What a material says of the last call that it refused, when others have succeeded since.
#include "tests/unit/material/material_test.h"

#include <functional>

namespace {

class MaterialErrorState : public MaterialTest {
protected:
    MaterialErrorState()
    {
        material->temperature = 300;
        material->pressure = 1e5;
        material.setOverallComposition({0.5, 0.5}, 0);
        material.setPhaseComposition(0, {0.5, 0.5}, 0);
        material.setPhaseFraction(0, 1, 0);
        EXPECT_EQ(view.setPhase(OLESTR("volume"), vapor, mole, one), "");
        EXPECT_EQ(view.setOverall(OLESTR("volume"), mole, one), "");
        EXPECT_EQ(view.setTwoPhase(OLESTR("surfaceTension"), labels, none, one), "");
    }

    template <class Interface> HRESULT ask(std::function<HRESULT(Interface &)> call)
    {
        ComPointer<Interface> asked;
        EXPECT_EQ(asked.queryFrom(view.get()), S_OK);
        return call(*asked.get());
    }

    DoubleArgument one{1};
    TextArgument labels{{OLESTR("Vapor"), OLESTR("Liquid")}};
    OwnedVariant results[6];
    double temperature = 0;
    double pressure = 0;
};

} // namespace

TEST_F(MaterialErrorState, OutlivesASuccessfulCallOfEveryMethod)
{
    const Bstr volume(OLESTR("volume"));
    const Bstr tension(OLESTR("surfaceTension"));
    const Bstr perMole(mole);
    const Bstr label(vapor);
    ICapeThermoMaterial &calls = *view.get();
    ComPointer<IDispatch> made;
    const std::function<HRESULT()> successes[] = {
        [&] { return calls.GetOverallProp(volume.get(), perMole.get(), results[0].out()); },
        [&] { return calls.GetOverallTPFraction(&temperature, &pressure, results[1].out()); },
        [&] { return calls.GetPresentPhases(results[1].out(), results[2].out()); },
        [&] { return calls.GetSinglePhaseProp(volume.get(), label.get(), perMole.get(), results[3].out()); },
        [&] { return calls.GetTPFraction(label.get(), &temperature, &pressure, results[1].out()); },
        [&] { return calls.GetTwoPhaseProp(tension.get(), labels.value, nullptr, results[4].out()); },
        [&] { return calls.SetOverallProp(volume.get(), perMole.get(), one.value); },
        [&] { return calls.SetPresentPhases(labels.value, one.value); },
        [&] { return calls.SetSinglePhaseProp(volume.get(), label.get(), perMole.get(), one.value); },
        [&] { return calls.SetTwoPhaseProp(tension.get(), labels.value, nullptr, one.value); },
        [&] { return calls.CreateMaterial(made.out()); },
        [&] {
            IDispatch *source = made.get();
            return calls.CopyFromMaterial(&source);
        },
        [&] { return calls.ClearAllProps(); },
        [&] {
            return ask<ICapeThermoCompounds>([&](auto &compounds) {
                return compounds.GetCompoundList(results[0].out(), results[1].out(), results[2].out(), results[3].out(),
                                                 results[4].out(), results[5].out());
            });
        },
        [&] {
            LONG count = 0;
            return ask<ICapeThermoCompounds>([&](auto &compounds) { return compounds.GetNumCompounds(&count); });
        },
        [&] {
            LONG count = 0;
            return ask<ICapeThermoPhases>([&](auto &phases) { return phases.GetNumPhases(&count); });
        },
        [&] {
            return ask<ICapeThermoPhases>([&](auto &phases) {
                return phases.GetPhaseList(results[0].out(), results[1].out(), results[2].out());
            });
        },
        [&] {
            Bstr name;
            return ask<ICapeIdentification>([&](auto &material) { return material.get_ComponentName(name.out()); });
        },
        [&] {
            Bstr text;
            return ask<ICapeIdentification>(
                [&](auto &material) { return material.get_ComponentDescription(text.out()); });
        },
        [&] {
            LONG code = 0;
            return ask<ECapeUser>([&](auto &error) { return error.get_code(&code); });
        },
    };
    EXPECT_EQ(view.setPhase(OLESTR("volume"), OLESTR("Solid"), mole, one),
              "Invalid phase | Invalid phase: Solid | ICapeThermoMaterialObject | SetSinglePhaseProp");
    int call = 0;
    for (const std::function<HRESULT()> &success : successes) {
        EXPECT_EQ(success(), S_OK) << call;
        EXPECT_EQ(view.errorState(),
                  "Invalid phase | Invalid phase: Solid | ICapeThermoMaterialObject | SetSinglePhaseProp")
            << call++;
    }
}
