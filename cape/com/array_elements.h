// What an array is believed to hold, for everybody who reads one that somebody else made.
#pragma once

#include "platform/platform.h"

#include <cstdint>
#include <cstring>

// The type that an array has noted for its elements; VT_EMPTY if it has not. Mostly without a call: one that has
// FADF_HAVEVARTYPE keeps the type in the 4 bytes in front of its descriptor, as oaidl.h tells.
inline VARTYPE ElementTypeOf(SAFEARRAY *array)
{
    if ((array->fFeatures & FADF_HAVEVARTYPE) != 0) {
        std::uint32_t noted = 0;
        std::memcpy(&noted, reinterpret_cast<const char *>(array) - sizeof noted, sizeof noted);
        return static_cast<VARTYPE>(noted);
    }
    VARTYPE type = VT_EMPTY;
    return SUCCEEDED(SafeArrayGetVartype(array, &type)) ? type : static_cast<VARTYPE>(VT_EMPTY);
}

// Whether every element has an index, and the index behind the last one is a number, too: some systems calculate it.
inline bool HasIndices(const SAFEARRAYBOUND &bound)
{
    constexpr std::int64_t highest = 0x7FFFFFFF;
    const std::int64_t count = bound.cElements;
    return count <= highest && bound.lLbound + count <= highest;
}

// Whether an array of one dimension holds what a VARIANT says of it: elements of this type and size, as many as an
// index reaches. One that has not noted the type of its elements is believed if they own nothing.
inline bool HoldsElements(SAFEARRAY *array, VARTYPE type, std::size_t size)
{
    const VARTYPE noted = ElementTypeOf(array);
    const bool ownSomething = type == VT_BSTR || type == VT_VARIANT;
    const SAFEARRAYBOUND &bound = array->rgsabound[0];
    return (noted == type || (noted == VT_EMPTY && !ownSomething)) && array->cbElements == size &&
           (array->pvData || bound.cElements == 0) && HasIndices(bound);
}
