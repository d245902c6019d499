#include "cape/variant_array.h"

#include "cape/com/bstr.h"

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

} // namespace

WideString ExpectedArrayText(VARTYPE elementType)
{
    return OLESTR("Expected an array of type ") + WideString(nameOfElementType(elementType));
}

VariantArray::VariantArray() { VariantInit(&value); }

VariantArray::~VariantArray()
{
    if (owned)
        VariantClear(&value);
}

void VariantArray::Reset(std::int32_t ownerFlag)
{
    if (owned && value.vt != VT_EMPTY)
        VariantClear(&value);
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
    value.parray = SafeArrayCreate(elementType, 1, &bound);
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
        message = ExpectedArrayText(elementType);
        return false;
    }
    if (SafeArrayGetDim(value.parray) != 1) {
        message = OLESTR("unexpected dimension; 1-dimensional array expected");
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
    lowerBound = lower;
    count = upper - (lower - 1);
    return true;
}

BSTR VariantArray::GetString(std::int32_t index) const
{
    LONG position = index + lowerBound;
    BSTR text = nullptr;
    SafeArrayGetElement(value.parray, &position, &text);
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
    SafeArrayGetElement(value.parray, &position, &element);
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
    SafeArrayPutElement(value.parray, &position, text);
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
