// The bridge's side towards the library: it plays MATLAB with the stand-in's arrays.
#include "platform/matlab/mex_export.h"
#include "platform/matlab/standin.h"
#include "platform/native/encoding.h"
#include "platform/native/paths.h"
#include "toolbox/octave/value.h"

#include <algorithm>
#include <dlfcn.h>

namespace {

using bridge::Kind;
using bridge::Value;

void *library = nullptr;

MexFunction loadLibrary(std::string &error)
{
    // Its calls of mxGetPr and the like have to reach the stand-in's, and not Octave's of the same names.
    if (!library)
        library = dlopen((native::platformFolder() + "/Verdanth.so").c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_DEEPBIND);
    void *entry = library ? dlsym(library, "mexFunction") : nullptr;
    if (!entry)
        error = std::string("Verdanth could not be loaded: ") + dlerror();
    return reinterpret_cast<MexFunction>(entry);
}

mxArray *textArray(const Value &value)
{
    const bool isRow = value.dimensions.size() == 2 && value.dimensions[0] == 1;
    // Only a row is sure to hold characters one after the other.
    const std::u16string text =
        isRow ? native::toUtf16(value.text) : std::u16string(value.text.begin(), value.text.end());
    std::vector<mwSize> dimensions(value.dimensions);
    if (isRow)
        dimensions[1] = text.size();
    mxArray *array = mxCreateCharArray_730(dimensions.size(), dimensions.data());
    std::copy(text.begin(), text.end(), mxGetChars(array));
    return array;
}

mxArray *numberArray(const Value &value)
{
    mxArray *array = mxCreateNumericArray_730(value.dimensions.size(), value.dimensions.data(), mxDOUBLE_CLASS,
                                              value.imaginary.empty() ? mxREAL : mxCOMPLEX);
    std::copy(value.numbers.begin(), value.numbers.end(), mxGetPr(array));
    std::copy(value.imaginary.begin(), value.imaginary.end(), mxGetPi(array));
    return array;
}

template <class Element> mxArray *convertedArray(const Value &value, mxClassID classId)
{
    mxArray *array = mxCreateNumericArray_730(value.dimensions.size(), value.dimensions.data(), classId, mxREAL);
    std::transform(value.numbers.begin(), value.numbers.end(), static_cast<Element *>(mxGetData(array)),
                   [](double number) { return static_cast<Element>(number); });
    return array;
}

mxArray *toArray(const Value &value)
{
    switch (value.kind) {
    case Kind::number:
        return numberArray(value);
    case Kind::logical:
        return convertedArray<bool>(value, mxLOGICAL_CLASS);
    case Kind::int32:
        return convertedArray<std::int32_t>(value, mxINT32_CLASS);
    case Kind::text:
        return textArray(value);
    case Kind::cell: {
        mxArray *array = mxCreateCellArray_730(value.dimensions.size(), value.dimensions.data());
        for (std::size_t i = 0; i < value.elements.size(); ++i)
            mxSetCell_730(array, i, toArray(value.elements[i]));
        return array;
    }
    case Kind::other:
        break;
    }
    // Neither double nor int32, char or cell, so it is refused where one of these is needed; but its value can be read.
    return convertedArray<float>(value, mxSINGLE_CLASS);
}

Value fromArray(const mxArray *array)
{
    Value value;
    if (!array) { // the empty place of a cell
        value.kind = Kind::number;
        value.dimensions = {0, 0};
        return value;
    }
    value.dimensions.assign(mxGetDimensions(array), mxGetDimensions(array) + mxGetNumberOfDimensions(array));
    const std::size_t count = mxGetNumberOfElements(array);
    switch (mxGetClassID(array)) {
    case mxDOUBLE_CLASS:
        value.kind = Kind::number;
        value.numbers.assign(mxGetPr(array), mxGetPr(array) + count);
        break;
    case mxINT32_CLASS: {
        value.kind = Kind::int32;
        const auto *data = static_cast<const std::int32_t *>(mxGetData(array));
        value.numbers.assign(data, data + count);
        break;
    }
    case mxCHAR_CLASS:
        value.kind = Kind::text;
        value.text = native::toUtf8(std::u16string_view(mxGetChars(array), count));
        if (count != 0)
            value.dimensions = {1, value.text.size()}; // the library's texts are rows
        break;
    case mxCELL_CLASS:
        value.kind = Kind::cell;
        for (std::size_t i = 0; i < count; ++i)
            value.elements.push_back(fromArray(mxGetCell_730(array, i)));
        break;
    default:
        break;
    }
    return value;
}

} // namespace

extern "C" MEX_EXPORT bool VerdanthRunCall(bridge::Call &call)
{
    const MexFunction function = loadLibrary(call.error);
    if (!function)
        return false;
    std::vector<mxArray *> arguments;
    for (const Value &argument : call.arguments)
        arguments.push_back(toArray(argument));
    std::vector<mxArray *> results(static_cast<std::size_t>(std::max(call.resultCount, 1)), nullptr);
    mexStandInClearWarnings();
    const bool returned = mexStandInCall(function, call.resultCount, results.data(), static_cast<int>(arguments.size()),
                                         const_cast<const mxArray **>(arguments.data()), mexLEAVE_UNWIND);
    if (!returned)
        call.error = mexStandInError();
    for (std::size_t i = 0; i < mexStandInWarningCount(); ++i)
        call.warnings.emplace_back(mexStandInWarning(i));
    for (mxArray *result : results)
        if (result)
            call.results.push_back(fromArray(result));
    std::for_each(arguments.begin(), arguments.end(), mxDestroyArray);
    std::for_each(results.begin(), results.end(), mxDestroyArray);
    return returned;
}

extern "C" MEX_EXPORT void VerdanthEndLibrary()
{
    mexStandInRunExit();
    if (library)
        dlclose(library);
    library = nullptr;
}
