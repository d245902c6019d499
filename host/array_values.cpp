#include "host/array_values.h"

#include <cstring>

namespace host {

namespace {

using wire::Class;

// Of what is opaque nobody looks at the elements, however many there are.
constexpr char nothing = 0;

Class classOf(const mxArray *array)
{
    const auto type = static_cast<Class>(mxGetClassID(array));
    return type == Class::Cell || wire::ElementSize(type) > 0 ? type : Class::Opaque;
}

mxArray *cellOf(const wire::Value &value)
{
    mxArray *cell = mxCreateCellArray_730(value.dimensionCount, value.dimensions);
    for (std::size_t i = 0; cell && i < value.elements.size(); ++i) {
        mxArray *element = ArrayOf(value.elements[i]);
        if (!element && value.elements[i].type != Class::Missing) {
            mxDestroyArray(cell);
            return nullptr;
        }
        mxSetCell_730(cell, i, element);
    }
    return cell;
}

// The library takes no complex numbers, but has to see that they are some.
mxArray *complexOf(const wire::Value &value)
{
    mxArray *array =
        mxCreateNumericArray_730(value.dimensionCount, value.dimensions, static_cast<mxClassID>(value.type), mxCOMPLEX);
    const std::size_t bytes = array ? mxGetNumberOfElements(array) * wire::ElementSize(value.type) : 0;
    if (bytes == 0)
        return array;
    std::memcpy(mxGetData(array), value.real, bytes);
    if (double *imaginary = mxGetPi(array))
        std::memcpy(imaginary, value.imaginary, bytes);
    return array;
}

} // namespace

mxArray *ArrayOf(const wire::Value &value)
{
    if (value.type == Class::Missing)
        return nullptr;
    if (value.type == Class::Cell)
        return cellOf(value);
    if (value.imaginary)
        return complexOf(value);
    return mxStandInArrayOver(value.dimensionCount, value.dimensions, static_cast<mxClassID>(value.type),
                              value.type == Class::Opaque ? &nothing : value.real);
}

wire::Value ValueOf(const mxArray *array)
{
    wire::Value value;
    if (!array)
        return value;
    value.type = classOf(array);
    value.dimensionCount = mxGetNumberOfDimensions(array);
    value.dimensions = mxGetDimensions(array);
    if (value.type == Class::Cell) {
        value.elements.reserve(mxGetNumberOfElements(array));
        for (std::size_t i = 0; i < mxGetNumberOfElements(array); ++i)
            value.elements.push_back(ValueOf(mxGetCell_730(array, i)));
    } else if (value.type != Class::Opaque) {
        value.real = mxGetData(array);
        value.imaginary = mxGetPi(array);
    }
    return value;
}

} // namespace host
