#include "cape/variant_array.h"

#include "cape/com/bstr.h"
#include "cape/com/component_call.h"

#include <new>

namespace {

struct ElementTypeName {
    VARTYPE type;
    LPCWSTR name;
};

constexpr ElementTypeName elementTypeNames[] = {
    {VT_EMPTY, OLESTR("EMPTY")},         {VT_I2, OLESTR("short")},    {VT_I4, OLESTR("long")},
    {VT_R8, OLESTR("double precision")}, {VT_BSTR, OLESTR("string")}, {VT_VARIANT, OLESTR("VARIANT")},
};

LPCWSTR nameOfElementType(VARTYPE type)
{
    for (const ElementTypeName &row : elementTypeNames)
        if (row.type == type)
            return row.name;
    return OLESTR("<unknown>");
}

WideString expectedArrayText(VARTYPE elementType)
{
    return OLESTR("Expected an array of type ") + WideString(nameOfElementType(elementType));
}

ULONG elementSize(VARTYPE type)
{
    switch (type) {
    case VT_I2:
        return sizeof(SHORT);
    case VT_I4:
        return sizeof(LONG);
    case VT_R8:
        return sizeof(double);
    case VT_BSTR:
        return sizeof(BSTR);
    case VT_VARIANT:
        return sizeof(VARIANT);
    default:
        return 0;
    }
}

bool ownSomething(VARTYPE type) { return type == VT_BSTR || type == VT_VARIANT; }

// The other failures are those of an index, which callers keep in range.
void requireMemory(HRESULT hr)
{
    if (hr == E_OUTOFMEMORY)
        throw std::bad_alloc();
}

} // namespace

bool HoldsElements(SAFEARRAY *array, VARTYPE elementType)
{
    VARTYPE held = VT_EMPTY;
    const bool isKnown = SUCCEEDED(SafeArrayGetVartype(array, &held));
    if (isKnown ? held != elementType : ownSomething(elementType))
        return false;
    const SAFEARRAYBOUND &bound = array->rgsabound[0];
    return array->cbElements == elementSize(elementType) && (array->pvData || bound.cElements == 0) &&
           HasIndices(bound);
}

VariantArray::VariantArray() { VariantInit(&value); }

VariantArray::~VariantArray() { Reset(0); }

VariantArray &VariantArray::operator=(VariantArray &&other) noexcept
{
    std::swap(value, other.value);
    std::swap(owned, other.owned);
    std::swap(lowerBound, other.lowerBound);
    std::swap(count, other.count);
    return *this;
}

void VariantArray::Reset(std::int32_t ownerFlag)
{
    if (owned && value.vt != VT_EMPTY)
        CallComponent([this] { return VariantClear(&value); }); // it may hold objects of the component
    VariantInit(&value);
    count = 0;
    owned = ownerFlag;
}

void VariantArray::Attach(const VARIANT &source, std::int32_t ownerFlag)
{
    Reset(ownerFlag);
    value = source;
}

void VariantArray::Create(std::int32_t elementCount, VARTYPE elementType)
{
    Reset(1);
    SAFEARRAYBOUND bound;
    bound.cElements = static_cast<ULONG>(elementCount);
    bound.lLbound = 0;
    SAFEARRAY *array = SafeArrayCreate(elementType, 1, &bound);
    if (!array)
        throw std::bad_alloc();
    value.parray = array;
    value.vt = static_cast<VARTYPE>(VT_ARRAY | elementType);
    lowerBound = 0;
    count = elementCount;
}

bool VariantArray::Validate(VARTYPE elementType, WideString &message)
{
    if (value.vt == VT_EMPTY) {
        lowerBound = 0;
        count = 0;
        return true;
    }
    if (value.vt != (VT_ARRAY | elementType)) {
        message = expectedArrayText(elementType);
        return false;
    }
    if (SafeArrayGetDim(value.parray) != 1) {
        message = OLESTR("unexpected dimension; 1-dimensional array expected");
        return false;
    }
    if (!HoldsElements(value.parray, elementType)) {
        message = expectedArrayText(elementType);
        return false;
    }
    LONG lower = 0;
    if (FAILED(SafeArrayGetLBound(value.parray, 1, &lower))) {
        message = OLESTR("failed to get lower bound");
        return false;
    }
    LONG upper = 0;
    if (FAILED(SafeArrayGetUBound(value.parray, 1, &upper))) {
        message = OLESTR("failed to get upper bound");
        return false;
    }
    // Of the bounds' difference, which overflows at the ends of all numbers, the descriptor has the value.
    lowerBound = lower;
    count = static_cast<std::int32_t>(value.parray->rgsabound[0].cElements);
    return true;
}

BSTR VariantArray::GetString(std::int32_t index) const
{
    LONG position = index + lowerBound;
    BSTR text = nullptr;
    requireMemory(SafeArrayGetElement(value.parray, &position, &text));
    return text;
}

WideString VariantArray::TextAt(std::int32_t index) const
{
    Bstr text;
    text.take(GetString(index));
    return TextOf(text.get());
}

double VariantArray::GetDouble(std::int32_t index) const
{
    LONG position = index + lowerBound;
    double number = 0;
    SafeArrayGetElement(value.parray, &position, &number);
    return number;
}

void VariantArray::GetVariant(std::int32_t index, VARIANT &element) const
{
    VariantInit(&element);
    LONG position = index + lowerBound;
    const HRESULT hr = SafeArrayGetElement(value.parray, &position, &element);
    requireMemory(hr);
    if (FAILED(hr)) { // a type that there is none of
        VariantInit(&element);
        element.vt = VT_ERROR;
        element.scode = hr;
    }
}

void VariantArray::PutString(std::int32_t index, BSTR text)
{
    if (!text) { // some runtimes would store an empty string, which is not the same to a package
        BSTR &element = static_cast<BSTR *>(value.parray->pvData)[index];
        SysFreeString(element);
        element = nullptr;
        return;
    }
    LONG position = index;
    requireMemory(SafeArrayPutElement(value.parray, &position, text));
}

void VariantArray::PutDouble(std::int32_t index, double number)
{
    LONG position = index;
    SafeArrayPutElement(value.parray, &position, &number);
}

void VariantArray::HandOver(VARIANT *target)
{
    owned = 0;
    *target = value;
}
