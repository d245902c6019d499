#include "fuzz/reference_package/material.h"

#include "fuzz/automation.h"
#include "fuzz/reference_package/choices.h"
#include "fuzz/reference_package/written_values.h"
#include "reference/engine/compounds/compound_data.h"
#include "reference/package/phase_table.h"

#include <cmath>
#include <utility>

using namespace reference;

namespace fuzz {

namespace {

bool isWord(BSTR text, LPCWSTR word) { return lstrcmpiW(text, word) == 0; }

} // namespace

Material::Material(FuzzedDataProvider &data, std::function<void()> call) : input(data), callBack(std::move(call))
{
    std::size_t count = input.ConsumeIntegralInRange<std::size_t>(1, 5);
    if (Seldom(input)) // more than there are
        count = input.ConsumeIntegralInRange<std::size_t>(6, compoundTable().size() + 1);
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t which = input.remaining_bytes() == 0
                                      ? i % compoundTable().size()
                                      : input.ConsumeIntegralInRange<std::size_t>(0, compoundTable().size() - 1);
        const CompoundData &compound = compoundTable()[which];
        ids.push_back(Seldom(input) ? AnyText(input, 10) : Wide(compound.id));
        casNumbers.push_back(Wide(compound.casNumber));
        amounts.push_back(AnyAmount(input));
    }
    temperature = AnyTemperature(input);
    pressure = AnyPressure(input);
}

HRESULT STDMETHODCALLTYPE Material::QueryInterface(REFIID iid, void **object)
{
    *object = nullptr;
    if (Seldom(input))
        return input.ConsumeBool() ? E_NOINTERFACE : S_OK; // a success that gives nothing
    if (iid == InterfaceId<IUnknown> || iid == InterfaceId<IDispatch> || iid == InterfaceId<ICapeThermoMaterial>)
        *object = static_cast<ICapeThermoMaterial *>(this);
    else if (iid == InterfaceId<ICapeThermoCompounds>)
        *object = static_cast<ICapeThermoCompounds *>(this);
    else if (iid == InterfaceId<ECapeUser>)
        *object = static_cast<ECapeUser *>(this);
    else
        return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

ULONG STDMETHODCALLTYPE Material::Release()
{
    FUZZ_CHECK(references > 1); // the target has one to the end
    return --references;
}

HRESULT STDMETHODCALLTYPE Material::GetOverallProp(BSTR property, BSTR, VARIANT *results)
{
    FUZZ_CHECK(property && results && results->vt == VT_EMPTY);
    const HRESULT answer = result();
    if (SUCCEEDED(answer) || Seldom(input))
        *results = isWord(property, OLESTR("fraction")) ? composition() : oneNumber(property);
    return answer;
}

HRESULT STDMETHODCALLTYPE Material::GetOverallTPFraction(double *t, double *p, VARIANT *fractions)
{
    return conditions(t, p, fractions);
}

HRESULT STDMETHODCALLTYPE Material::GetPresentPhases(VARIANT *labels, VARIANT *statuses)
{
    FUZZ_CHECK(labels->vt == VT_EMPTY && statuses->vt == VT_EMPTY);
    const HRESULT answer = result();
    if (FAILED(answer) && !Seldom(input))
        return answer;
    if (Seldom(input)) {
        *labels = OddValue(input);
    } else {
        static const std::vector<WideString> lists[] = {{OLESTR("Vapor"), OLESTR("Liquid"), OLESTR("Liquid2")},
                                                        {OLESTR("Vapor"), OLESTR("Liquid")},
                                                        {OLESTR("Liquid"), OLESTR("Liquid2")},
                                                        {OLESTR("Vapor"), OLESTR("Liquid2")},
                                                        {OLESTR("Liquid")},
                                                        {OLESTR("Liquid2")},
                                                        {OLESTR("Vapor")},
                                                        {},
                                                        {OLESTR("Solid")}};
        const std::size_t last = std::size(lists) - 1;
        *labels = NewTexts(input, lists[input.ConsumeIntegralInRange<std::size_t>(0, Seldom(input) ? last : 3)]);
    }
    if (input.ConsumeBool())
        *statuses = OddValue(input);
    return answer;
}

HRESULT STDMETHODCALLTYPE Material::GetSinglePhaseProp(BSTR property, BSTR label, BSTR, VARIANT *results)
{
    FUZZ_CHECK(property && label && results->vt == VT_EMPTY);
    const HRESULT answer = result();
    if (SUCCEEDED(answer) || Seldom(input))
        *results = oneNumber(property);
    return answer;
}

HRESULT STDMETHODCALLTYPE Material::GetTPFraction(BSTR, double *t, double *p, VARIANT *fractions)
{
    return conditions(t, p, fractions);
}

HRESULT STDMETHODCALLTYPE Material::SetOverallProp(BSTR property, BSTR, VARIANT values)
{
    FUZZ_CHECK(property && NumbersWritten(values).size() == 1);
    return result();
}

HRESULT STDMETHODCALLTYPE Material::SetPresentPhases(VARIANT labels, VARIANT statuses)
{
    const int count = LengthOf(labels, VT_BSTR);
    FUZZ_CHECK(count >= 1 && count <= phaseCount && LengthOf(statuses, VT_I4) == count);
    phases.assign(static_cast<std::size_t>(count), {});
    for (int i = 0; i < count; ++i)
        phases[static_cast<std::size_t>(i)].label = static_cast<BSTR *>(labels.parray->pvData)[i];
    return result();
}

HRESULT STDMETHODCALLTYPE Material::SetSinglePhaseProp(BSTR property, BSTR label, BSTR, VARIANT values)
{
    FUZZ_CHECK(property && label);
    const std::vector<double> numbers = NumbersWritten(values);
    for (Phase &phase : phases) {
        if (phase.label != label)
            continue;
        if (isWord(property, OLESTR("fraction")))
            phase.fractions = numbers;
        else if (isWord(property, OLESTR("phaseFraction")))
            phase.amount = numbers.at(0);
        else if (isWord(property, OLESTR("temperature")))
            phase.temperature = numbers.at(0);
        else if (isWord(property, OLESTR("pressure")))
            phase.pressure = numbers.at(0);
    }
    return result();
}

HRESULT STDMETHODCALLTYPE Material::SetTwoPhaseProp(BSTR property, VARIANT labels, BSTR, VARIANT values)
{
    FUZZ_CHECK(property && LengthOf(labels, VT_BSTR) == 2);
    NumbersWritten(values);
    return result();
}

HRESULT STDMETHODCALLTYPE Material::GetCompoundList(VARIANT *idList, VARIANT *formulae, VARIANT *names,
                                                    VARIANT *boilingTemperatures, VARIANT *molecularWeights,
                                                    VARIANT *casTexts)
{
    const HRESULT answer = result();
    *idList = Seldom(input) ? OddValue(input) : NewTexts(input, ids);
    if (input.ConsumeBool())
        *casTexts = Seldom(input) ? OddValue(input) : NewTexts(input, casNumbers);
    for (VARIANT *other : {formulae, names, boilingTemperatures, molecularWeights})
        if (Seldom(input))
            *other = OddValue(input);
    return answer;
}

HRESULT STDMETHODCALLTYPE Material::get_code(LONG *code)
{
    *code = input.ConsumeIntegral<LONG>();
    return result();
}

HRESULT Material::result()
{
    if (Seldom(input))
        callBack();
    if (!Seldom(input))
        return S_OK;
    static constexpr HRESULT results[] = {E_FAIL,  E_NOTIMPL,      E_OUTOFMEMORY,
                                          S_FALSE, ECapeUnknownHR, ECapeThrmPropertyNotAvailableHR};
    return input.PickValueInArray(results);
}

HRESULT Material::words(BSTR *text)
{
    *text = input.ConsumeBool() ? nullptr : NewText(AnyText(input, 20));
    return result();
}

VARIANT Material::composition()
{
    if (Seldom(input)) {
        feed.clear();
        return OddValue(input);
    }
    feed = amounts;
    if (Seldom(input))
        feed.push_back(0.5);
    return NewNumbers(input, feed);
}

VARIANT Material::oneNumber(BSTR property)
{
    if (Seldom(input))
        return OddValue(input);
    if (isWord(property, OLESTR("temperature")))
        return NewNumbers(input, {temperature});
    if (isWord(property, OLESTR("pressure")))
        return NewNumbers(input, {pressure});
    if (isWord(property, OLESTR("phaseFraction")))
        return NewNumbers(input, {AnyAmount(input)});
    if (isWord(property, OLESTR("volume")))
        return NewNumbers(input, {Seldom(input) ? AnyNumber(input)
                                                : std::exp(input.ConsumeIntegralInRange<int>(-1000, 500) / 100.0)});
    return NewNumbers(input, {Seldom(input) ? AnyNumber(input) : input.ConsumeIntegral<std::int16_t>() * 3.0});
}

HRESULT Material::conditions(double *t, double *p, VARIANT *fractions)
{
    FUZZ_CHECK(t && p && fractions->vt == VT_EMPTY);
    const HRESULT answer = result();
    if (FAILED(answer) && !Seldom(input))
        return answer;
    if (!Seldom(input))
        *t = temperature;
    if (!Seldom(input))
        *p = pressure;
    *fractions = composition();
    return answer;
}

} // namespace fuzz
