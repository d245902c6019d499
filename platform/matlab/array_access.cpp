// Reading arrays and their data.
#include "platform/matlab/array.h"

#include <cstdint>

namespace {

template <class Element> double firstElement(const mxArray *array)
{
    return static_cast<double>(*static_cast<const Element *>(array->real));
}

} // namespace

extern "C" {

mxClassID mxGetClassID(const mxArray *array) { return array->classId; }

bool mxIsDouble(const mxArray *array) { return array->classId == mxDOUBLE_CLASS; }

bool mxIsComplex(const mxArray *array) { return array->imaginary != nullptr; }

bool mxIsInt32(const mxArray *array) { return array->classId == mxINT32_CLASS; }

bool mxIsChar(const mxArray *array) { return array->classId == mxCHAR_CLASS; }

bool mxIsCell(const mxArray *array) { return array->classId == mxCELL_CLASS; }

std::size_t mxGetNumberOfDimensions(const mxArray *array) { return array->dimensions.size(); }

const mwSize *mxGetDimensions(const mxArray *array) { return array->dimensions.data(); }

std::size_t mxGetNumberOfElements(const mxArray *array) { return array->elementCount; }

std::size_t mxGetM(const mxArray *array) { return array->dimensions[0]; }

std::size_t mxGetN(const mxArray *array)
{
    std::size_t product = 1;
    for (std::size_t i = 1; i < array->dimensions.size(); ++i)
        product *= array->dimensions[i];
    return product;
}

double mxGetScalar(const mxArray *array)
{
    if (array->elementCount == 0)
        return 0;
    switch (array->classId) {
    case mxLOGICAL_CLASS:
        return firstElement<bool>(array);
    case mxCHAR_CLASS:
        return firstElement<std::uint16_t>(array);
    case mxDOUBLE_CLASS:
        return firstElement<double>(array);
    case mxSINGLE_CLASS:
        return firstElement<float>(array);
    case mxINT8_CLASS:
        return firstElement<std::int8_t>(array);
    case mxUINT8_CLASS:
        return firstElement<std::uint8_t>(array);
    case mxINT16_CLASS:
        return firstElement<std::int16_t>(array);
    case mxUINT16_CLASS:
        return firstElement<std::uint16_t>(array);
    case mxINT32_CLASS:
        return firstElement<std::int32_t>(array);
    case mxUINT32_CLASS:
        return firstElement<std::uint32_t>(array);
    case mxINT64_CLASS:
        return firstElement<std::int64_t>(array);
    case mxUINT64_CLASS:
        return firstElement<std::uint64_t>(array);
    default:
        return 0;
    }
}

void *mxGetData(const mxArray *array) { return mxIsCell(array) ? nullptr : array->real; }

double *mxGetPr(const mxArray *array) { return mxIsDouble(array) ? static_cast<double *>(array->real) : nullptr; }

double *mxGetPi(const mxArray *array) { return mxIsDouble(array) ? static_cast<double *>(array->imaginary) : nullptr; }

WCHAR *mxGetChars(const mxArray *array) { return mxIsChar(array) ? static_cast<WCHAR *>(array->real) : nullptr; }

mxArray *mxGetCell_730(const mxArray *array, mwIndex index)
{
    if (!mxIsCell(array) || index >= array->elementCount)
        return nullptr;
    return static_cast<mxArray **>(array->real)[index];
}
}
