#include "client/matlab/arrays.h"

#include <cstring>

using wire::Class;
using wire::Value;

namespace {

bool holdsNumbers(const mxArray *array)
{
    const mxClassID type = mxGetClassID(array);
    return type == mxLOGICAL_CLASS || (type >= mxDOUBLE_CLASS && type <= mxUINT64_CLASS);
}

} // namespace

const std::vector<Value> &ArgumentValues::take(int count, const mxArray *const *arrays)
{
    forget();
    for (int i = 0; i < count; ++i)
        values.push_back(valueOf(arrays[i]));
    return values;
}

void ArgumentValues::forget()
{
    values.clear();
    places.clear();
}

Value ArgumentValues::valueOf(const mxArray *array)
{
    Value value;
    if (!array)
        return value;
    Place &place = places.emplace_back(Place{{mxGetM(array), mxGetN(array)}, 0});
    value.dimensionCount = std::size(place.dimensions);
    value.dimensions = place.dimensions;
    const std::size_t count = mxGetNumberOfElements(array);
    if (mxIsCell(array)) {
        value.type = Class::Cell;
        for (std::size_t i = 0; i < count; ++i)
            value.elements.push_back(valueOf(mxGetCell_730(array, i)));
    } else if (mxIsChar(array)) {
        value.type = Class::Char;
        value.real = mxGetChars(array);
    } else if (mxIsDouble(array) || mxIsInt32(array)) {
        value.type = mxIsDouble(array) ? Class::Double : Class::Int32;
        value.real = mxGetData(array);
        // The library takes no complex numbers, but has to see that they are some.
        value.imaginary = mxIsComplex(array) ? value.real : nullptr;
    } else if (count == 0 || !holdsNumbers(array)) {
        value.type = Class::Opaque; // a struct, an object: no number of those may be asked for
    } else {
        // Of any other class the first number is all that the library reads: whether a setting is on, how many.
        value.type = Class::Single;
        place = {{1, 1}, static_cast<float>(mxGetScalar(array))};
        value.real = &place.number;
    }
    return value;
}

mxArray *ArrayOf(const Value &value)
{
    switch (value.type) {
    case Class::Cell: {
        mxArray *cell = mxCreateCellArray_730(value.dimensionCount, value.dimensions);
        for (std::size_t i = 0; i < value.elements.size(); ++i)
            if (value.elements[i].type != Class::Missing)
                mxSetCell_730(cell, i, ArrayOf(value.elements[i]));
        return cell;
    }
    case Class::Char:
    case Class::Double:
    case Class::Int32: {
        mxArray *array = value.type == Class::Char
                             ? mxCreateCharArray_730(value.dimensionCount, value.dimensions)
                             : mxCreateNumericArray_730(value.dimensionCount, value.dimensions,
                                                        static_cast<mxClassID>(value.type), mxREAL);
        if (const std::size_t bytes = ElementCount(value) * wire::ElementSize(value.type))
            std::memcpy(mxGetData(array), value.real, bytes);
        return array;
    }
    default: // the library returns nothing else
        return mxCreateDoubleMatrix_730(0, 0, mxREAL);
    }
}
