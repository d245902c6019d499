#include "tests/support/automation_values.h"

#include <gtest/gtest.h>

#include <utility>

namespace support {

namespace {

Variant holding(VARTYPE type, SAFEARRAY *array)
{
    Variant variant;
    variant.value.vt = static_cast<VARTYPE>(VT_ARRAY | type);
    variant.value.parray = array;
    return variant;
}

template <class Element> Variant arrayOf(VARTYPE type, const std::vector<Element> &elements, LONG lowerBound)
{
    Variant array = BlankArray(type, static_cast<ULONG>(elements.size()), lowerBound);
    for (std::size_t i = 0; i < elements.size(); ++i) {
        LONG index = lowerBound + static_cast<LONG>(i);
        Element element = elements[i];
        SafeArrayPutElement(array.value.parray, &index, &element);
    }
    return array;
}

// The indices of the elements, none when it is no one-dimensional array of the type.
std::vector<LONG> indicesOf(const VARIANT &array, VARTYPE type)
{
    std::vector<LONG> indices;
    if (array.vt == VT_EMPTY)
        return indices;
    if (array.vt != (VT_ARRAY | type) || SafeArrayGetDim(array.parray) != 1) {
        ADD_FAILURE() << "no one-dimensional array of type " << type << " but type " << array.vt;
        return indices;
    }
    LONG lower = 0;
    LONG upper = -1;
    EXPECT_EQ(SafeArrayGetLBound(array.parray, 1, &lower), S_OK);
    EXPECT_EQ(SafeArrayGetUBound(array.parray, 1, &upper), S_OK);
    for (LONG index = lower; index <= upper; ++index)
        indices.push_back(index);
    return indices;
}

template <class Element> std::vector<Element> elementsOf(const VARIANT &array, VARTYPE type)
{
    std::vector<Element> elements;
    for (LONG index : indicesOf(array, type)) {
        Element element = {};
        EXPECT_EQ(SafeArrayGetElement(array.parray, &index, &element), S_OK);
        elements.push_back(element);
    }
    return elements;
}

} // namespace

Variant::Variant(const Variant &other) : Variant() { other.giveTo(&value); }

Variant::Variant(Variant &&other) noexcept : value(other.value) { VariantInit(&other.value); }

Variant &Variant::operator=(Variant other) noexcept
{
    std::swap(value, other.value);
    return *this;
}

void Variant::giveTo(VARIANT *target) const
{
    VariantInit(target);
    VariantCopy(target, const_cast<VARIANT *>(&value));
}

void Variant::replace(VARIANT *target) const
{
    VariantClear(target);
    giveTo(target);
}

Variant RealVariant(double number)
{
    Variant variant;
    variant.value.vt = VT_R8;
    variant.value.dblVal = number;
    return variant;
}

Variant LongVariant(LONG number)
{
    Variant variant;
    variant.value.vt = VT_I4;
    variant.value.lVal = number;
    return variant;
}

Variant TextVariant(AnyText text)
{
    Variant variant;
    variant.value.vt = VT_BSTR;
    variant.value.bstrVal = SysAllocStringLen(text.wide.c_str(), static_cast<UINT>(text.wide.size()));
    return variant;
}

Variant InterfaceVariant(IDispatch *object)
{
    Variant variant;
    variant.value.vt = VT_DISPATCH;
    variant.value.pdispVal = object;
    if (object)
        object->AddRef();
    return variant;
}

Variant TextArray(std::initializer_list<AnyText> texts, LONG lowerBound) { return TextArray(Names(texts), lowerBound); }

Variant TextArray(const std::vector<WideString> &texts, LONG lowerBound)
{
    Variant array = BlankArray(VT_BSTR, static_cast<ULONG>(texts.size()), lowerBound);
    for (std::size_t i = 0; i < texts.size(); ++i) {
        LONG index = lowerBound + static_cast<LONG>(i);
        OwnedBstr element(texts[i]);
        SafeArrayPutElement(array.value.parray, &index, static_cast<BSTR>(element));
    }
    return array;
}

Variant NumberArray(const std::vector<double> &numbers, LONG lowerBound) { return arrayOf(VT_R8, numbers, lowerBound); }

Variant LongArray(const std::vector<LONG> &numbers, LONG lowerBound) { return arrayOf(VT_I4, numbers, lowerBound); }

Variant ArrayOfVariants(const std::vector<Variant> &elements, LONG lowerBound)
{
    Variant array = BlankArray(VT_VARIANT, static_cast<ULONG>(elements.size()), lowerBound);
    for (std::size_t i = 0; i < elements.size(); ++i) {
        LONG index = lowerBound + static_cast<LONG>(i);
        SafeArrayPutElement(array.value.parray, &index, const_cast<VARIANT *>(&elements[i].value));
    }
    return array;
}

Variant BlankArray(VARTYPE type, ULONG count, LONG lowerBound)
{
    SAFEARRAYBOUND bound = {count, lowerBound};
    return holding(type, SafeArrayCreate(type, 1, &bound));
}

Variant Mislabeled(Variant array, VARTYPE elementType)
{
    array.value.vt = static_cast<VARTYPE>(VT_ARRAY | elementType);
    return array;
}

Variant TwoDimensionalArray(VARTYPE type, ULONG rows, ULONG columns)
{
    SAFEARRAYBOUND bounds[] = {{rows, 0}, {columns, 0}};
    return holding(type, SafeArrayCreate(type, 2, bounds));
}

VARIANT ByReference(Variant &array)
{
    VARIANT reference;
    VariantInit(&reference);
    reference.vt = static_cast<VARTYPE>(array.value.vt | VT_BYREF);
    reference.byref = &array.value.parray;
    return reference;
}

std::vector<WideString> TextsOf(const VARIANT &array)
{
    std::vector<WideString> texts;
    for (LONG index : indicesOf(array, VT_BSTR)) {
        OwnedBstr element;
        EXPECT_EQ(SafeArrayGetElement(array.parray, &index, element.out()), S_OK);
        texts.push_back(element.wide());
    }
    return texts;
}

std::vector<double> NumbersOf(const VARIANT &array) { return elementsOf<double>(array, VT_R8); }

std::vector<LONG> LongsOf(const VARIANT &array) { return elementsOf<LONG>(array, VT_I4); }

OwnedBstr::OwnedBstr(const AnyText &text)
    : text(SysAllocStringLen(text.wide.c_str(), static_cast<UINT>(text.wide.size())))
{
}

WideString OwnedBstr::wide() const { return TextOf(text); }

WideString TextOf(BSTR text) { return text ? WideString(text, SysStringLen(text)) : WideString(); }

} // namespace support
