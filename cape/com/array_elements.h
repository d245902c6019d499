// What an array is believed to hold, for everybody who reads one that somebody else made.
#pragma once

#include "platform/platform.h"

#include <cstdint>
#include <cstring>

// Whether the elements of an array are of this type. One that has not noted their type is believed if they own nothing.
// Mostly without a call: an array that has FADF_HAVEVARTYPE keeps the type in the 4 bytes in front of its descriptor,
// as oaidl.h tells.
inline bool ElementsAre(SAFEARRAY *array, VARTYPE type)
{
    if ((array->fFeatures & FADF_HAVEVARTYPE) != 0) [[likely]] {
        std::uint32_t noted = 0;
        std::memcpy(&noted, reinterpret_cast<const char *>(array) - sizeof noted, sizeof noted);
        return noted == type;
    }
    VARTYPE noted = VT_EMPTY;
    return SUCCEEDED(SafeArrayGetVartype(array, &noted)) ? noted == type : type != VT_BSTR && type != VT_VARIANT;
}

// Whether every element has an index, and the index behind the last one is a number, too: some systems calculate it.
inline bool HasIndices(const SAFEARRAYBOUND &bound)
{
    constexpr std::int64_t highest = 0x7FFFFFFF;
    const std::int64_t count = bound.cElements;
    return count <= highest && bound.lLbound + count <= highest;
}

// Whether an array of one dimension holds what a VARIANT says of it: elements of this type and size, as many as an
// index reaches.
inline bool HoldsElements(SAFEARRAY *array, VARTYPE type, std::size_t size)
{
    const SAFEARRAYBOUND &bound = array->rgsabound[0];
    return array->cbElements == size && ElementsAre(array, type) && (array->pvData || bound.cElements == 0) &&
           HasIndices(bound);
}
