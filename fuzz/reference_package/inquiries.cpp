// The calls that ask what a package has: constants and correlations, lists, phases, and what every component has.
#include "fuzz/automation.h"
#include "fuzz/reference_package/choices.h"
#include "fuzz/reference_package/out_arguments.h"
#include "fuzz/reference_package/session.h"

namespace fuzz {

HRESULT Session::ofCompounds()
{
    Variant names;
    Variant ids;
    *names.out() = AnyPropertyList(input);
    *ids.out() = AnyCompoundList(input);
    const OutArguments<1> target(input);
    switch (input.ConsumeIntegralInRange(0, 2)) {
    case 0:
        return compounds->GetCompoundConstant(names.get(), ids.get(), target[0]);
    case 1:
        return compounds->GetTDependentProperty(names.get(), AnyTemperature(input), ids.get(), target[0]);
    default:
        return compounds->GetPDependentProperty(names.get(), AnyPressure(input), ids.get(), target[0]);
    }
}

HRESULT Session::lists()
{
    const OutArguments<6> target(input);
    LONG count = -1;
    switch (input.ConsumeIntegralInRange(0, 7)) {
    case 0:
        return compounds->GetCompoundList(target[0], target[1], target[2], target[3], target[4], target[5]);
    case 1:
        return compounds->GetConstPropList(target[0]);
    case 2:
        return compounds->GetTDependentPropList(target[0]);
    case 3:
        return compounds->GetPDependentPropList(target[0]);
    case 4:
        return properties->GetSinglePhasePropList(target[0]);
    case 5:
        return properties->GetTwoPhasePropList(target[0]);
    case 6:
        return compounds->GetNumCompounds(Seldom(input) ? nullptr : &count);
    default:
        return constants->GetUniversalConstantList(target[0]);
    }
}

HRESULT Session::ofPhases()
{
    const OutArguments<3> target(input);
    LONG count = -1;
    switch (input.ConsumeIntegralInRange(0, 3)) {
    case 0:
        return phases->GetPhaseList(target[0], target[1], target[2]);
    case 1: {
        const Bstr label = TextOrNull(input, AnyLabel(input));
        const Bstr attribute =
            TextOrNull(input, AnyWord(input, {"StateOfAggregation", "UserDescription", "KeyCompoundId",
                                              "ExcludedCompoundId", "DensityDescription", "TypeOfSolid"}));
        return phases->GetPhaseInfo(label.get(), attribute.get(), target[0]);
    }
    case 2: {
        const Bstr id = TextOrNull(input, AnyWord(input, {"molarGasConstant", "avogadroConstant", "none"}));
        return constants->GetUniversalConstant(id.get(), target[0]);
    }
    default:
        return phases->GetNumPhases(Seldom(input) ? nullptr : &count);
    }
}

HRESULT Session::common()
{
    BSTR text = nullptr;
    BSTR *target = Seldom(input) ? nullptr : &text;
    HRESULT result = S_OK;
    switch (input.ConsumeIntegralInRange(0, 7)) {
    case 0:
        result = identification->get_ComponentName(target);
        break;
    case 1:
        result = identification->get_ComponentDescription(target);
        break;
    case 2:
        return identification->put_ComponentName(TextOrNull(input, AnyText(input, 20)).get());
    case 3:
        return identification->put_ComponentDescription(TextOrNull(input, AnyText(input, 20)).get());
    case 4: {
        IDispatch *parameters = nullptr;
        result = utilities->get_parameters(&parameters);
        FUZZ_CHECK(FAILED(result) && !parameters);
        break;
    }
    case 5:
        return utilities->Initialize();
    case 6:
        return Seldom(input) ? utilities->Terminate() : S_OK;
    default:
        return utilities->Edit();
    }
    SysFreeString(text);
    return result;
}

} // namespace fuzz
