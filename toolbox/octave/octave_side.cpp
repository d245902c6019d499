// The function `Verdanth` of Octave: the bridge's side towards Octave.
#include "toolbox/octave/value.h"

#include <algorithm>
#include <cstring>
#include <dlfcn.h>
#include <mex.h>

namespace {

using bridge::Kind;
using bridge::Value;

void *librarySide = nullptr;
bridge::RunCall runCall = nullptr;
bridge::EndLibrary endLibrary = nullptr;

std::string folder()
{
    static const char anchor = 0;
    Dl_info info;
    const std::string path = dladdr(&anchor, &info) != 0 && info.dli_fname ? info.dli_fname : "";
    const std::size_t separator = path.rfind('/');
    return separator == std::string::npos ? "." : path.substr(0, separator);
}

void cleared()
{
    if (endLibrary)
        endLibrary();
    if (librarySide)
        dlclose(librarySide);
    librarySide = nullptr;
}

bool loadLibrarySide(std::string &error)
{
    if (librarySide)
        return true;
    librarySide = dlopen((folder() + "/libverdanth_octave.so").c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_DEEPBIND);
    if (!librarySide) {
        error = dlerror();
        return false;
    }
    runCall = reinterpret_cast<bridge::RunCall>(dlsym(librarySide, "VerdanthRunCall"));
    endLibrary = reinterpret_cast<bridge::EndLibrary>(dlsym(librarySide, "VerdanthEndLibrary"));
    mexAtExit(cleared);
    return true;
}

template <class Element> void readElements(const mxArray *array, Value &value)
{
    const auto *data = static_cast<const Element *>(mxGetData(array));
    value.numbers.assign(data, data + mxGetNumberOfElements(array));
}

// Sparse arrays keep their zeros to themselves; the library expects all elements.
mxArray *fullCopy(const mxArray *sparse)
{
    mxArray *input = const_cast<mxArray *>(sparse);
    mxArray *output = nullptr;
    mexCallMATLAB(1, &output, 1, &input, "full");
    return output;
}

Value fromOctave(const mxArray *array)
{
    Value value;
    if (!array)
        return value;
    if (mxIsSparse(array)) {
        mxArray *full = fullCopy(array);
        value = fromOctave(full);
        mxDestroyArray(full);
        return value;
    }
    const mwSize *dimensions = mxGetDimensions(array);
    value.dimensions.assign(dimensions, dimensions + mxGetNumberOfDimensions(array));
    const std::size_t count = mxGetNumberOfElements(array);
    switch (mxGetClassID(array)) {
    case mxDOUBLE_CLASS:
        value.kind = Kind::number;
        value.numbers.assign(mxGetPr(array), mxGetPr(array) + count);
        if (mxIsComplex(array))
            value.imaginary.assign(mxGetPi(array), mxGetPi(array) + count);
        break;
    case mxLOGICAL_CLASS:
        value.kind = Kind::logical;
        readElements<mxLogical>(array, value);
        break;
    case mxINT32_CLASS:
        value.kind = Kind::int32;
        readElements<std::int32_t>(array, value);
        break;
    case mxCHAR_CLASS:
        value.kind = Kind::text;
        value.text.assign(mxGetChars(array), count);
        break;
    case mxCELL_CLASS:
        value.kind = Kind::cell;
        for (std::size_t i = 0; i < count; ++i)
            value.elements.push_back(fromOctave(mxGetCell(array, static_cast<mwIndex>(i))));
        break;
    default: // of other classes the library reads at most the first element
        if (mxIsNumeric(array) && count != 0)
            value.numbers.assign(1, mxGetScalar(array));
        value.dimensions.assign(2, value.numbers.size());
        break;
    }
    return value;
}

mxArray *toOctave(const Value &value)
{
    const std::vector<mwSize> dimensions(value.dimensions.begin(), value.dimensions.end());
    const auto dimensionCount = static_cast<mwSize>(dimensions.size());
    mxArray *array = nullptr;
    switch (value.kind) {
    case Kind::text:
        array = mxCreateCharArray(dimensionCount, dimensions.data());
        std::copy(value.text.begin(), value.text.end(), mxGetChars(array));
        break;
    case Kind::int32:
        array = mxCreateNumericArray(dimensionCount, dimensions.data(), mxINT32_CLASS, mxREAL);
        std::transform(value.numbers.begin(), value.numbers.end(), static_cast<std::int32_t *>(mxGetData(array)),
                       [](double number) { return static_cast<std::int32_t>(number); });
        break;
    case Kind::cell:
        array = mxCreateCellArray(dimensionCount, dimensions.data());
        for (std::size_t i = 0; i < value.elements.size(); ++i)
            mxSetCell(array, static_cast<mwIndex>(i), toOctave(value.elements[i]));
        break;
    default:
        array = mxCreateNumericArray(dimensionCount, dimensions.data(), mxDOUBLE_CLASS, mxREAL);
        std::copy(value.numbers.begin(), value.numbers.end(), mxGetPr(array));
        break;
    }
    return array;
}

// Passes the call on. False with the text to raise in `error`.
bool pass(int nlhs, mxArray *plhs[], int nrhs, const mxArray *prhs[], std::string &error)
{
    if (!loadLibrarySide(error))
        return false;
    bridge::Call call;
    call.resultCount = nlhs;
    for (int i = 0; i < nrhs; ++i)
        call.arguments.push_back(fromOctave(prhs[i]));
    const bool returned = runCall(call);
    for (const std::string &warning : call.warnings)
        mexWarnMsgTxt(warning.c_str());
    if (!returned) {
        error = call.error;
        return false;
    }
    const std::size_t room = static_cast<std::size_t>(std::max(nlhs, 1));
    for (std::size_t i = 0; i < std::min(room, call.results.size()); ++i)
        plhs[i] = toOctave(call.results[i]);
    return true;
}

// Does not return. Octave's mexErrMsgTxt would put the name of this function in front of the words.
void raise(const char *message)
{
    mxArray *inputs[] = {mxCreateString("%s"), mxCreateString(message)};
    mexCallMATLAB(0, nullptr, 2, inputs, "error");
}

} // namespace

extern "C" void mexFunction(int nlhs, mxArray *plhs[], int nrhs, const mxArray *prhs[])
{
    static std::string error; // nothing that owns anything is alive when it is raised
    error.clear();
    if (!pass(nlhs, plhs, nrhs, prhs, error))
        raise(error.c_str());
}
