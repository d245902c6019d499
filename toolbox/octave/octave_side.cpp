// Octave's side: the MEX function that Octave calls. Errors and warnings become Octave's here, and arrays are turned
// into its own.
#include "platform/native/encoding.h"
#include "toolbox/octave/bridge.h"
#include "toolbox/octave/load_beside.h"
#include "toolbox/octave/octave_errors.h"

#include <mex.h>

#include <dlfcn.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <forward_list>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr char errorIdentifier[] = "Verdanth:error";
constexpr char warningIdentifier[] = "Verdanth:warning";

constexpr char backEndVariable[] = "VERDANTH_BACKEND";
constexpr char questionOfBackEnd[] = "back end"; // in the place of a command's code

LibrarySide *library = nullptr;
std::string presentName; // of the back end that `library` is
// Of the last call, and of the process: raising an error leaves this file without a destructor run.
std::string errorText;
std::vector<std::string> warnings;
bool stopped = false; // by the user

const Caller octave = {OctaveIsInterrupted, [](const char *message) {
                           std::fprintf(stderr, "%s\n", message);
                           std::fflush(stderr);
                       }};

LibrarySide *sideCalled(const std::string &name)
{
    void *const module = LoadBeside(reinterpret_cast<void *>(&sideCalled), "libverdanth_octave.so");
    const auto getter = module ? reinterpret_cast<LibrarySideGetter>(dlsym(module, "VerdanthLibrarySide")) : nullptr;
    if (!getter) {
        errorText = std::string("Verdanth could not be loaded: ") + dlerror();
        return nullptr;
    }
    LibrarySide *side = getter(name.c_str(), &octave);
    if (!side)
        errorText = std::string(backEndVariable) + " is 'native' or 'windows', not '" + name + "'";
    return side;
}

// The back end that the environment names. The one before it is closed when the new one is ready.
bool chooseLibrarySide()
{
    const char *wanted = std::getenv(backEndVariable);
    const std::string name = wanted && *wanted ? wanted : "native";
    if (library && name == presentName)
        return true;
    LibrarySide *other = sideCalled(name);
    if (!other)
        return false;
    if (!other->start()) {
        errorText = other->error();
        stopped = other->stopped();
        return false;
    }
    if (library)
        library->unload();
    library = other;
    presentName = name;
    return true;
}

// At `clear all` and at the end of Octave.
void unload()
{
    if (library)
        library->unload();
    library = nullptr;
}

using wire::Class;
using wire::Value;

struct TypeOfClass {
    mxClassID classId;
    Class type;
};

constexpr TypeOfClass types[] = {
    {mxCELL_CLASS, Class::Cell},     {mxLOGICAL_CLASS, Class::Logical}, {mxDOUBLE_CLASS, Class::Double},
    {mxSINGLE_CLASS, Class::Single}, {mxINT8_CLASS, Class::Int8},       {mxUINT8_CLASS, Class::UInt8},
    {mxINT16_CLASS, Class::Int16},   {mxUINT16_CLASS, Class::UInt16},   {mxINT32_CLASS, Class::Int32},
    {mxUINT32_CLASS, Class::UInt32}, {mxINT64_CLASS, Class::Int64},     {mxUINT64_CLASS, Class::UInt64},
};

static_assert(sizeof(mwSize) == sizeof(std::size_t)); // the one has a sign, the other not
constexpr std::size_t scalarDimensions[] = {1, 1};

// In Octave an element of a text is a byte of UTF-8. It goes over as one row, whatever its shape was: the library reads
// it column after column, too.
struct TextRow {
    std::u16string units;
    std::size_t dimensions[2];
};
using TextRows = std::forward_list<TextRow>; // where what is in it stays where it is

Value rowOf(std::string_view text, TextRows &rows)
{
    TextRow &row = rows.emplace_front();
    row.units = native::toUtf16(text);
    row.dimensions[0] = 1;
    row.dimensions[1] = row.units.size();
    Value value;
    value.type = Class::Char;
    value.dimensionCount = std::size(row.dimensions);
    value.dimensions = row.dimensions;
    value.real = row.units.data();
    return value;
}

Value valueOf(const mxArray *array, TextRows &rows)
{
    Value value;
    if (!array)
        return value;
    const mxClassID classId = mxGetClassID(array); // Octave looks it up by name each time
    const std::size_t count = mxGetNumberOfElements(array);
    if (classId == mxCHAR_CLASS)
        return rowOf({static_cast<const char *>(mxGetData(array)), count}, rows);
    const auto *found =
        std::find_if(std::begin(types), std::end(types), [&](const TypeOfClass &t) { return t.classId == classId; });
    value.type = found == std::end(types) || mxIsSparse(array) ? Class::Opaque : found->type;
    if (count == 1) { // most arguments; for others Octave has to make a list of dimensions
        value.dimensionCount = std::size(scalarDimensions);
        value.dimensions = scalarDimensions;
    } else {
        value.dimensionCount = static_cast<std::size_t>(mxGetNumberOfDimensions(array));
        value.dimensions = reinterpret_cast<const std::size_t *>(mxGetDimensions(array));
    }
    if (value.type == Class::Cell) {
        for (std::size_t i = 0; i < count; ++i)
            value.elements.push_back(valueOf(mxGetCell(array, static_cast<mwIndex>(i)), rows));
    } else if (value.type != Class::Opaque) {
        value.real = mxGetData(array);
        value.imaginary = mxIsComplex(array) ? mxGetImagData(array) : nullptr;
    }
    return value;
}

mxArray *textOf(const Value &value)
{
    const std::string text = native::toUtf8({static_cast<const char16_t *>(value.real), ElementCount(value)});
    const mwSize row[] = {1, static_cast<mwSize>(text.size())};
    mxArray *array = mxCreateCharArray(2, row);
    std::memcpy(mxGetData(array), text.data(), text.size());
    return array;
}

mxArray *arrayOf(const Value &value)
{
    const auto *dimensions = reinterpret_cast<const mwSize *>(value.dimensions);
    const auto dimensionCount = static_cast<mwSize>(value.dimensionCount);
    switch (value.type) {
    case Class::Char:
        return textOf(value);
    case Class::Cell: {
        mxArray *array = mxCreateCellArray(dimensionCount, dimensions);
        for (std::size_t i = 0; i < value.elements.size(); ++i)
            if (value.elements[i].type != Class::Missing)
                mxSetCell(array, static_cast<mwIndex>(i), arrayOf(value.elements[i]));
        return array;
    }
    case Class::Double:
    case Class::Int32: {
        const mxClassID classId = value.type == Class::Double ? mxDOUBLE_CLASS : mxINT32_CLASS;
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

bool asksForBackEnd(int nrhs, const mxArray *prhs[])
{
    return nrhs == 1 && mxIsChar(prhs[0]) &&
           std::string_view(static_cast<const char *>(mxGetData(prhs[0])), mxGetNumberOfElements(prhs[0])) ==
               questionOfBackEnd;
}

// Everything but raising, so that nothing of ours is alive when an error or a warning leaves this file.
bool call(int nlhs, mxArray *plhs[], int nrhs, const mxArray *prhs[])
{
    stopped = false;
    warnings.clear();
    if (!chooseLibrarySide())
        return false;
    if (asksForBackEnd(nrhs, prhs)) {
        plhs[0] = mxCreateString(library->description().c_str());
        return true;
    }
    std::vector<Value> arguments;
    TextRows rows;
    arguments.reserve(static_cast<std::size_t>(nrhs));
    for (int i = 0; i < nrhs; ++i)
        arguments.push_back(valueOf(prhs[i], rows));
    const bool worked = library->call(nlhs, arguments);
    const std::vector<Value> &results = library->results();
    if (worked)
        for (std::size_t i = 0; i < results.size() && i < static_cast<std::size_t>(std::max(nlhs, 1)); ++i)
            if (results[i].type != Class::Missing)
                plhs[i] = arrayOf(results[i]);
    errorText = library->error();
    warnings = library->warnings();
    stopped = library->stopped();
    library->release();
    return worked;
}

} // namespace

extern "C" void mexFunction(int nlhs, mxArray *plhs[], int nrhs, const mxArray *prhs[])
{
    if (!library)
        mexAtExit(unload);
    const bool worked = call(nlhs, plhs, nrhs, prhs);
    for (const std::string &warning : warnings)
        GiveOctaveWarning(warningIdentifier, warning.c_str());
    if (stopped)
        StopInOctave();
    if (!worked)
        RaiseOctaveError(errorIdentifier, errorText.c_str());
}
