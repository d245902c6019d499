#include "cape/variant_array.h"

#include "cape/com/array_elements.h"
#include "cape/com/bstr.h"
#include "cape/com/component_call.h"

#include <new>

namespace {

struct ElementType {
    VARTYPE type;
    LPCWSTR name;
    std::size_t size;
};

constexpr ElementType elementTypes[] = {
    {VT_EMPTY, OLESTR("EMPTY"), 0},
    {VT_I2, OLESTR("short"), sizeof(SHORT)},
    {VT_I4, OLESTR("long"), sizeof(LONG)},
    {VT_R8, OLESTR("double precision"), sizeof(double)},
    {VT_BSTR, OLESTR("string"), sizeof(BSTR)},
    {VT_VARIANT, OLESTR("VARIANT"), sizeof(VARIANT)},
};

ElementType elementTypeOf(VARTYPE type)
{
    for (const ElementType &row : elementTypes)
        if (row.type == type)
            return row;
    return {type, OLESTR("<unknown>"), 0};
}

// The other failures are those of an index, which callers keep in range.
void requireMemory(HRESULT hr)
{
    if (hr == E_OUTOFMEMORY)
        throw std::bad_alloc();
}

} // namespace

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
    const ElementType expected = elementTypeOf(elementType);
    const auto refuse = [&] {
        message = OLESTR("Expected an array of type ") + WideString(expected.name);
        return false;
    };
    if (value.vt != (VT_ARRAY | elementType))
        return refuse();
    if (SafeArrayGetDim(value.parray) != 1) {
        message = OLESTR("unexpected dimension; 1-dimensional array expected");
        return false;
    }
    if (!HoldsElements(value.parray, elementType, expected.size))
        return refuse();
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
