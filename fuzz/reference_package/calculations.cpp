// The calls that calculate, and those that ask beforehand whether a package can.
#include "fuzz/automation.h"
#include "fuzz/reference_package/checks.h"
#include "fuzz/reference_package/choices.h"
#include "fuzz/reference_package/out_arguments.h"
#include "fuzz/reference_package/session.h"
#include "fuzz/reference_package/written_values.h"

#include <algorithm>
#include <vector>

namespace fuzz {

HRESULT Session::calculatePhase()
{
    Variant names;
    *names.out() = AnyPropertyList(input);
    const Bstr label = TextOrNull(input, AnyLabel(input));
    return properties->CalcSinglePhaseProp(names.get(), label.get());
}

HRESULT Session::calculateTwoPhases()
{
    Variant names;
    *names.out() = AnyPropertyList(input);
    Variant labels;
    *labels.out() = AnyLabelPair(input);
    return properties->CalcTwoPhaseProp(names.get(), labels.get());
}

HRESULT Session::calculateEquilibrium()
{
    Variant first;
    Variant second;
    *first.out() = AnySpecification(input);
    *second.out() = AnySpecification(input);
    const Bstr type = TextOrNull(input, AnySolutionType(input));
    const int before = calls;
    for (Material &material : materials)
        material.phases.clear();
    const HRESULT result = equilibrium->CalcEquilibrium(first.get(), second.get(), type.get());
    if (result == S_OK && before == calls) // nothing else was written in between
        for (const Material &material : materials)
            CheckEquilibrium(material);
    return result;
}

HRESULT Session::checkSpecifications()
{
    VARIANT_BOOL good = 7;
    VARIANT_BOOL *out = Seldom(input) ? nullptr : &good;
    Variant first;
    HRESULT result = S_OK;
    switch (input.ConsumeIntegralInRange(0, 2)) {
    case 0: {
        Variant second;
        *first.out() = AnySpecification(input);
        *second.out() = AnySpecification(input);
        const Bstr type = TextOrNull(input, AnySolutionType(input));
        result = equilibrium->CheckEquilibriumSpec(first.get(), second.get(), type.get(), out);
        break;
    }
    case 1: {
        const Bstr name = TextOrNull(input, AnyPropertyName(input));
        const Bstr label = TextOrNull(input, AnyLabel(input));
        result = properties->CheckSinglePhasePropSpec(name.get(), label.get(), out);
        break;
    }
    default: {
        const Bstr name = TextOrNull(input, AnyPropertyName(input));
        *first.out() = AnyLabelPair(input);
        result = properties->CheckTwoPhasePropSpec(name.get(), first.get(), out);
        break;
    }
    }
    FUZZ_CHECK(result == (out ? S_OK : E_POINTER));
    FUZZ_CHECK(!out || good == VARIANT_TRUE || good == VARIANT_FALSE);
    return result;
}

HRESULT Session::fugacityCoefficients()
{
    Variant amounts;
    if (Seldom(input)) {
        *amounts.out() = OddValue(input);
    } else {
        std::vector<double> numbers(materials[0].ids.size());
        std::generate(numbers.begin(), numbers.end(), [&] { return AnyAmount(input); });
        *amounts.out() = NewNumbers(input, numbers);
    }
    const Bstr label = TextOrNull(input, AnyLabel(input));
    const INT flags = Seldom(input) ? input.ConsumeIntegral<INT>() : input.ConsumeIntegralInRange<INT>(0, 15);
    const OutArguments<4> results(input, HeldBefore::anything);
    const double t = AnyTemperature(input);
    const double p = AnyPressure(input);
    const HRESULT result = properties->CalcAndGetLnPhi(label.get(), t, p, amounts.get(), flags, results[0], results[1],
                                                       results[2], results[3]);
    if (result == S_OK)
        for (std::size_t i = 0; i < 4; ++i)
            if (results[i] && (flags & 1 << i))
                NumbersWritten(*results[i]);
    return result;
}

} // namespace fuzz
