// The library's side: plays MATLAB for Verdanth.so with the stand-in's arrays.
#include "platform/matlab/standin.h"
#include "platform/platform.h"
#include "toolbox/octave/bridge.h"
#include "toolbox/octave/load_beside.h"

#include <dlfcn.h>

#include <algorithm>
#include <cstring>

namespace {

struct ClassOfKind {
    BridgeValue::Kind kind;
    mxClassID classId;
    std::size_t elementSize; // of classes whose elements go over as they are
};

constexpr ClassOfKind classes[] = {
    {BridgeValue::Opaque, mxUNKNOWN_CLASS, 0}, {BridgeValue::Cell, mxCELL_CLASS, 0},
    {BridgeValue::Text, mxCHAR_CLASS, 0},      {BridgeValue::Logical, mxLOGICAL_CLASS, sizeof(bool)},
    {BridgeValue::Double, mxDOUBLE_CLASS, 8},  {BridgeValue::Single, mxSINGLE_CLASS, 4},
    {BridgeValue::Int8, mxINT8_CLASS, 1},      {BridgeValue::UInt8, mxUINT8_CLASS, 1},
    {BridgeValue::Int16, mxINT16_CLASS, 2},    {BridgeValue::UInt16, mxUINT16_CLASS, 2},
    {BridgeValue::Int32, mxINT32_CLASS, 4},    {BridgeValue::UInt32, mxUINT32_CLASS, 4},
    {BridgeValue::Int64, mxINT64_CLASS, 8},    {BridgeValue::UInt64, mxUINT64_CLASS, 8},
};

const ClassOfKind &classOf(BridgeValue::Kind kind)
{
    return *std::find_if(std::begin(classes), std::end(classes), [&](const ClassOfKind &c) { return c.kind == kind; });
}

BridgeValue::Kind kindOf(mxClassID classId)
{
    const auto *found = std::find_if(std::begin(classes), std::end(classes),
                                     [&](const ClassOfKind &c) { return c.classId == classId; });
    return found == std::end(classes) ? BridgeValue::Opaque : found->kind;
}

// A text is one row whatever its shape was: the library reads it column after column, too.
mxArray *textArray(const std::string &text)
{
    const int bytes = static_cast<int>(text.size());
    const int units = bytes == 0 ? 0 : MultiByteToWideChar(CP_UTF8, 0, text.data(), bytes, nullptr, 0);
    const mwSize dimensions[] = {1, static_cast<mwSize>(units)};
    mxArray *array = mxCreateCharArray_730(2, dimensions);
    if (array && units > 0)
        MultiByteToWideChar(CP_UTF8, 0, text.data(), bytes, mxGetChars(array), units);
    return array;
}

std::string textOf(const mxArray *array)
{
    const int units = static_cast<int>(mxGetNumberOfElements(array));
    if (units == 0)
        return {};
    const int bytes = WideCharToMultiByte(CP_UTF8, 0, mxGetChars(array), units, nullptr, 0, nullptr, nullptr);
    std::string text(static_cast<std::size_t>(bytes), '\0');
    WideCharToMultiByte(CP_UTF8, 0, mxGetChars(array), units, text.data(), bytes, nullptr, nullptr);
    return text;
}

// Null when there is no memory, as for a missing element.
mxArray *arrayOf(const BridgeValue &value)
{
    if (value.kind == BridgeValue::Missing)
        return nullptr;
    if (value.kind == BridgeValue::Text)
        return textArray(value.text);
    const ClassOfKind &type = classOf(value.kind);
    if (value.real && !value.imaginary)
        return mxStandInArrayOver(value.dimensionCount, value.dimensions, type.classId, value.real);
    mxArray *array = mxCreateNumericArray_730(value.dimensionCount, value.dimensions, type.classId,
                                              value.imaginary ? mxCOMPLEX : mxREAL);
    if (!array)
        return nullptr;
    for (std::size_t i = 0; i < value.elements.size(); ++i)
        mxSetCell_730(array, i, arrayOf(value.elements[i]));
    const std::size_t bytes = mxGetNumberOfElements(array) * type.elementSize;
    if (bytes > 0 && value.real)
        std::memcpy(mxGetData(array), value.real, bytes);
    if (bytes > 0 && value.imaginary && value.kind == BridgeValue::Double)
        std::memcpy(mxGetPi(array), value.imaginary, bytes);
    return array;
}

BridgeValue valueOf(const mxArray *array)
{
    BridgeValue value;
    if (!array)
        return value;
    value.kind = kindOf(mxGetClassID(array));
    value.dimensionCount = mxGetNumberOfDimensions(array);
    value.dimensions = mxGetDimensions(array);
    if (value.kind == BridgeValue::Text)
        value.text = textOf(array);
    else if (value.kind == BridgeValue::Cell)
        for (std::size_t i = 0; i < mxGetNumberOfElements(array); ++i)
            value.elements.push_back(valueOf(mxGetCell_730(array, i)));
    else
        value.real = mxGetData(array);
    return value;
}

class Library final : public LibrarySide {
public:
    bool call(int outputs, const std::vector<BridgeValue> &arguments) override
    {
        release();
        warned.clear();
        if (!load())
            return false;
        given.reserve(arguments.size());
        for (const BridgeValue &argument : arguments)
            given.push_back(arrayOf(argument));
        returned.assign(static_cast<std::size_t>(std::max(outputs, 1)), nullptr);
        const bool worked = !std::count(given.begin(), given.end(), nullptr)
                                ? mexStandInCall(function, outputs, returned.data(), static_cast<int>(given.size()),
                                                 const_cast<const mxArray **>(given.data()), mexLEAVE_UNWIND)
                                : false;
        words = worked ? "" : std::count(given.begin(), given.end(), nullptr) ? "Out of memory." : mexStandInError();
        for (std::size_t i = 0; i < mexStandInWarningCount(); ++i)
            warned.emplace_back(mexStandInWarning(i));
        mexStandInClearWarnings();
        for (const mxArray *array : returned)
            values.push_back(valueOf(array));
        return worked;
    }

    const std::vector<BridgeValue> &results() const override { return values; }
    const std::string &error() const override { return words; }
    const std::vector<std::string> &warnings() const override { return warned; }

    void release() override
    {
        values.clear();
        for (std::vector<mxArray *> *arrays : {&given, &returned}) {
            for (mxArray *array : *arrays)
                mxDestroyArray(array);
            arrays->clear();
        }
    }

    void unload() override
    {
        release();
        if (!module)
            return;
        mexStandInRunExit();
        dlclose(module);
        module = nullptr;
        function = nullptr;
    }

private:
    bool load()
    {
        if (module)
            return true;
        module = LoadBeside(reinterpret_cast<void *>(&VerdanthLibrarySide), "Verdanth.so");
        if (module)
            function = reinterpret_cast<MexFunction>(dlsym(module, "mexFunction"));
        if (!function)
            words = std::string("Verdanth could not be loaded: ") + dlerror();
        return function != nullptr;
    }

    void *module = nullptr;
    MexFunction function = nullptr;
    std::vector<mxArray *> given, returned;
    std::vector<BridgeValue> values;
    std::vector<std::string> warned;
    std::string words;
};

} // namespace

LibrarySide *VerdanthLibrarySide()
{
    static Library library;
    return &library;
}
