// The elements of a list where they lie, for lists that are read or made at every condition.
#pragma once

#include "cape/com/array_elements.h"
#include "cape/variant_array.h"
#include "platform/platform.h"

#include <cstdint>

// The elements of exactly a one-dimensional array of type `type`; they stay the value's. False, and nothing said of
// the reason, for anything else. Inline, because a package hands values over at every condition.
template <class Element>
inline bool ListElements(const VARIANT &value, VARTYPE type, const Element *&elements, std::int32_t &count)
{
    SAFEARRAY *array = value.parray;
    if (value.vt != (VT_ARRAY | type) || !array || array->cDims != 1 || !HoldsElements(array, type, sizeof(Element)))
        return false;
    elements = static_cast<const Element *>(array->pvData);
    count = static_cast<std::int32_t>(array->rgsabound[0].cElements);
    return true;
}

// The elements of a value that is empty or exactly a one-dimensional array of doubles; they stay the
// value's. False with the reason of VariantArray::Validate in `message` for anything else.
bool TakeDoubles(const VARIANT &value, const double *&data, std::int32_t &count, WideString &message);

// The same for strings, which stay the value's too; an element may be null.
bool TakeTexts(const VARIANT &value, const BSTR *&texts, std::int32_t &count, WideString &message);

// A new array of `count` doubles into a caller's out-parameter, which is taken for empty; E_OUTOFMEMORY leaves it so.
HRESULT GiveDoubles(const double *values, std::int32_t count, VARIANT *target);
