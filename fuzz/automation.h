// Values as another component hands them over: most often what is expected, sometimes anything else.
#pragma once

#include "cape/com/bstr.h"
#include "cape/com/variant.h"
#include "fuzz/input.h"

#include <algorithm>
#include <cstring>
#include <vector>

inline BSTR NewText(const WideString &text) { return Bstr(text).detach(); }

// A null BSTR is an empty text too.
inline Bstr TextOrNull(FuzzedDataProvider &input, const WideString &text)
{
    return text.empty() && input.ConsumeBool() ? Bstr() : Bstr(text);
}

inline LONG AnyLowerBound(FuzzedDataProvider &input) { return input.PickValueInArray(lowerBounds); }

inline VARIANT NewArray(VARTYPE type, LONG lowerBound, std::size_t count)
{
    VARIANT value;
    VariantInit(&value);
    value.parray = SafeArrayCreateVector(type, lowerBound, static_cast<ULONG>(count));
    FUZZ_CHECK(value.parray != nullptr);
    value.vt = static_cast<VARTYPE>(VT_ARRAY | type);
    return value;
}

inline VARIANT NewNumbers(FuzzedDataProvider &input, const std::vector<double> &numbers)
{
    const VARIANT value = NewArray(VT_R8, AnyLowerBound(input), numbers.size());
    if (!numbers.empty())
        std::memcpy(value.parray->pvData, numbers.data(), numbers.size() * sizeof(double));
    return value;
}

inline VARIANT NewTexts(FuzzedDataProvider &input, const std::vector<WideString> &texts)
{
    const VARIANT value = NewArray(VT_BSTR, AnyLowerBound(input), texts.size());
    auto *elements = static_cast<BSTR *>(value.parray->pvData);
    for (const WideString &text : texts)
        *elements++ = TextOrNull(input, text).detach();
    return value;
}

// Reads one after the other: in what order arguments are worked out is the compiler's to choose.
template <std::size_t Count> VARIANT NewArrayOfOne(FuzzedDataProvider &input, const VARTYPE (&types)[Count])
{
    const VARTYPE type = input.PickValueInArray(types);
    const LONG lowerBound = AnyLowerBound(input);
    return NewArray(type, lowerBound, input.ConsumeIntegralInRange<std::size_t>(0, 4));
}

// Something that is no list, or a list of something else. The caller clears it.
inline VARIANT OddValue(FuzzedDataProvider &input)
{
    VARIANT value{};
    switch (input.ConsumeIntegralInRange(0, 8)) {
    case 0:
        break;
    case 1:
        value.vt = VT_BSTR;
        value.bstrVal = input.ConsumeBool() ? nullptr : NewText(AnyText(input, 10));
        break;
    case 2:
        value.vt = VT_R8;
        value.dblVal = AnyNumber(input);
        break;
    case 3:
        value.vt = static_cast<VARTYPE>(VT_ARRAY | (input.ConsumeBool() ? VT_R8 : VT_BSTR)); // with no array behind it
        break;
    case 4: { // of two dimensions
        SAFEARRAYBOUND bounds[] = {{input.ConsumeIntegralInRange<ULONG>(0, 3), AnyLowerBound(input)},
                                   {input.ConsumeIntegralInRange<ULONG>(0, 3), AnyLowerBound(input)}};
        const VARTYPE type = input.ConsumeBool() ? VT_R8 : VT_BSTR;
        value.parray = SafeArrayCreate(type, 2, bounds);
        value.vt = static_cast<VARTYPE>(VT_ARRAY | type);
        break;
    }
    case 5: { // not of the elements that it says
        static constexpr VARTYPE types[] = {VT_I2, VT_I4, VT_R8, VT_BSTR, VT_VARIANT, VT_UI1};
        value = NewArrayOfOne(input, types);
        value.vt = static_cast<VARTYPE>(VT_ARRAY | (input.ConsumeBool() ? VT_R8 : VT_BSTR));
        break;
    }
    case 6: {
        static constexpr VARTYPE types[] = {VT_I4, VT_VARIANT, VT_R8, VT_BSTR};
        value = NewArrayOfOne(input, types);
        break;
    }
    case 7: {
        std::vector<double> numbers(input.ConsumeIntegralInRange<std::size_t>(0, 5));
        std::generate(numbers.begin(), numbers.end(), [&] { return AnyNumber(input); });
        return NewNumbers(input, numbers);
    }
    default: {
        std::vector<WideString> texts(input.ConsumeIntegralInRange<std::size_t>(0, 5));
        std::generate(texts.begin(), texts.end(), [&] { return AnyText(input, 10); });
        return NewTexts(input, texts);
    }
    }
    return value;
}
