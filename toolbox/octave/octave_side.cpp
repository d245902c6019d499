// Octave's side: the MEX function that Octave calls. Errors and warnings become Octave's here, and arrays are turned
// into its own.
#include "toolbox/octave/bridge.h"
#include "toolbox/octave/load_beside.h"
#include "toolbox/octave/octave_errors.h"

#include <mex.h>

#include <dlfcn.h>

#include <algorithm>
#include <cstring>
#include <iterator>
#include <string>
#include <vector>

namespace {

constexpr char errorIdentifier[] = "Verdanth:error";
constexpr char warningIdentifier[] = "Verdanth:warning";

void *module = nullptr;
LibrarySide *library = nullptr;
std::string errorText; // of the process: raising an error leaves this file without a destructor run

bool loadLibrarySide()
{
    if (library)
        return true;
    module = LoadBeside(reinterpret_cast<void *>(&loadLibrarySide), "libverdanth_octave.so");
    const auto getter = module ? reinterpret_cast<LibrarySideGetter>(dlsym(module, "VerdanthLibrarySide")) : nullptr;
    if (!getter) {
        errorText = std::string("Verdanth could not be loaded: ") + dlerror();
        return false;
    }
    library = getter();
    return true;
}

// At `clear all` and at the end of Octave.
void unload()
{
    if (library)
        library->unload();
    library = nullptr;
}

struct KindOfClass {
    mxClassID classId;
    BridgeValue::Kind kind;
};

constexpr KindOfClass kinds[] = {
    {mxCELL_CLASS, BridgeValue::Cell},       {mxCHAR_CLASS, BridgeValue::Text},
    {mxLOGICAL_CLASS, BridgeValue::Logical}, {mxDOUBLE_CLASS, BridgeValue::Double},
    {mxSINGLE_CLASS, BridgeValue::Single},   {mxINT8_CLASS, BridgeValue::Int8},
    {mxUINT8_CLASS, BridgeValue::UInt8},     {mxINT16_CLASS, BridgeValue::Int16},
    {mxUINT16_CLASS, BridgeValue::UInt16},   {mxINT32_CLASS, BridgeValue::Int32},
    {mxUINT32_CLASS, BridgeValue::UInt32},   {mxINT64_CLASS, BridgeValue::Int64},
    {mxUINT64_CLASS, BridgeValue::UInt64},
};

static_assert(sizeof(mwSize) == sizeof(std::size_t)); // the one has a sign, the other not
constexpr std::size_t scalarDimensions[] = {1, 1};

BridgeValue valueOf(const mxArray *array)
{
    BridgeValue value;
    if (!array)
        return value;
    const mxClassID classId = mxGetClassID(array); // Octave looks it up by name each time
    const auto *found =
        std::find_if(std::begin(kinds), std::end(kinds), [&](const KindOfClass &k) { return k.classId == classId; });
    value.kind = found == std::end(kinds) || mxIsSparse(array) ? BridgeValue::Opaque : found->kind;
    const std::size_t count = mxGetNumberOfElements(array);
    if (count == 1) { // most arguments; for others Octave has to make a list of dimensions
        value.dimensionCount = std::size(scalarDimensions);
        value.dimensions = scalarDimensions;
    } else if (value.kind != BridgeValue::Text) {
        value.dimensionCount = static_cast<std::size_t>(mxGetNumberOfDimensions(array));
        value.dimensions = reinterpret_cast<const std::size_t *>(mxGetDimensions(array));
    }
    if (value.kind == BridgeValue::Text) {
        // An element is a byte of UTF-8.
        value.text.assign(static_cast<const char *>(mxGetData(array)), count);
    } else if (value.kind == BridgeValue::Cell) {
        for (std::size_t i = 0; i < count; ++i)
            value.elements.push_back(valueOf(mxGetCell(array, static_cast<mwIndex>(i))));
    } else if (value.kind != BridgeValue::Opaque) {
        value.real = mxGetData(array);
        value.imaginary = mxIsComplex(array) ? mxGetImagData(array) : nullptr;
    }
    return value;
}

mxArray *arrayOf(const BridgeValue &value)
{
    const auto *dimensions = reinterpret_cast<const mwSize *>(value.dimensions);
    const auto dimensionCount = static_cast<mwSize>(value.dimensionCount);
    switch (value.kind) {
    case BridgeValue::Text: {
        const mwSize row[] = {1, static_cast<mwSize>(value.text.size())};
        mxArray *array = mxCreateCharArray(2, row);
        std::memcpy(mxGetData(array), value.text.data(), value.text.size());
        return array;
    }
    case BridgeValue::Cell: {
        mxArray *array = mxCreateCellArray(dimensionCount, dimensions);
        for (std::size_t i = 0; i < value.elements.size(); ++i)
            if (value.elements[i].kind != BridgeValue::Missing)
                mxSetCell(array, static_cast<mwIndex>(i), arrayOf(value.elements[i]));
        return array;
    }
    case BridgeValue::Double:
    case BridgeValue::Int32: {
        const mxClassID classId = value.kind == BridgeValue::Double ? mxDOUBLE_CLASS : mxINT32_CLASS;
        mxArray *array = mxCreateNumericArray(dimensionCount, dimensions, classId, mxREAL);
        const std::size_t bytes = mxGetNumberOfElements(array) * mxGetElementSize(array);
        if (bytes > 0)
            std::memcpy(mxGetData(array), value.real, bytes);
        return array;
    }
    default: // the library returns nothing else
        return mxCreateDoubleMatrix(0, 0, mxREAL);
    }
}

// Everything but raising, so that nothing of ours is alive when an error or a warning leaves this file.
bool call(int nlhs, mxArray *plhs[], int nrhs, const mxArray *prhs[])
{
    if (!loadLibrarySide())
        return false;
    std::vector<BridgeValue> arguments;
    arguments.reserve(static_cast<std::size_t>(nrhs));
    for (int i = 0; i < nrhs; ++i)
        arguments.push_back(valueOf(prhs[i]));
    const bool worked = library->call(nlhs, arguments);
    if (worked)
        for (std::size_t i = 0; i < library->results().size(); ++i)
            if (library->results()[i].kind != BridgeValue::Missing)
                plhs[i] = arrayOf(library->results()[i]);
    errorText = library->error();
    library->release();
    return worked;
}

} // namespace

extern "C" void mexFunction(int nlhs, mxArray *plhs[], int nrhs, const mxArray *prhs[])
{
    if (!library)
        mexAtExit(unload);
    const bool worked = call(nlhs, plhs, nrhs, prhs);
    if (library)
        for (const std::string &warning : library->warnings())
            GiveOctaveWarning(warningIdentifier, warning.c_str());
    if (!worked)
        RaiseOctaveError(errorIdentifier, errorText.c_str());
}
