#include "reference/com/automation.h"

#include <algorithm>
#include <cstdint>

namespace reference {

namespace {

OLECHAR lower(OLECHAR c) { return c >= 'A' && c <= 'Z' ? static_cast<OLECHAR>(c + ('a' - 'A')) : c; }

} // namespace

template <class Element> Element *Value::makeArray(VARTYPE type, int count)
{
    VariantClear(&variant);
    SAFEARRAY *array = SafeArrayCreateVector(type, 0, static_cast<ULONG>(count));
    if (!array)
        return nullptr;
    variant.vt = static_cast<VARTYPE>(VT_ARRAY | type);
    variant.parray = array;
    return static_cast<Element *>(array->pvData);
}

double *Value::makeNumbers(int count) { return makeArray<double>(VT_R8, count); }
LONG *Value::makeIntegers(int count) { return makeArray<LONG>(VT_I4, count); }
BSTR *Value::makeTexts(int count) { return makeArray<BSTR>(VT_BSTR, count); }
VARIANT *Value::makeVariants(int count) { return makeArray<VARIANT>(VT_VARIANT, count); }

void Value::setText(std::string_view ascii)
{
    Bstr text(ascii);
    VariantClear(&variant);
    variant.vt = VT_BSTR;
    variant.bstrVal = text.detach();
}

void Value::setNumber(double number)
{
    VariantClear(&variant);
    variant.vt = VT_R8;
    variant.dblVal = number;
}

bool Value::setNumbers(const double *values, int count)
{
    double *elements = makeNumbers(count);
    if (elements)
        std::copy_n(values, count, elements);
    return elements != nullptr;
}

bool sameWord(const OLECHAR *text, std::size_t length, std::string_view word)
{
    return length == word.size() && std::equal(word.begin(), word.end(), text, [](char a, OLECHAR b) {
               return lower(static_cast<OLECHAR>(a)) == lower(b);
           });
}

bool sameWord(BSTR text, std::string_view word) { return sameWord(text, SysStringLen(text), word); }

WideString wide(std::string_view ascii) { return WideString(ascii.begin(), ascii.end()); }

WideString quoted(BSTR text)
{
    WideString result(1, '"');
    if (text)
        result.append(text, SysStringLen(text));
    return result += '"';
}

WideString hexadecimal(HRESULT result)
{
    WideString digits = OLESTR("0x");
    for (int shift = 28; shift >= 0; shift -= 4)
        digits += OLESTR("0123456789ABCDEF")[(static_cast<std::uint32_t>(result) >> shift) & 0xF];
    return digits;
}

HRESULT giveText(std::basic_string_view<OLECHAR> text, BSTR *result)
{
    if (!result)
        return E_POINTER;
    *result = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    return *result ? S_OK : E_OUTOFMEMORY;
}

} // namespace reference
