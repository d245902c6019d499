// The library's side: plays MATLAB for Verdanth.so with the stand-in's arrays, or has that done under Wine.
#include "host/array_values.h"
#include "toolbox/octave/bridge.h"
#include "toolbox/octave/load_beside.h"
#include "toolbox/octave/windows/windows_side.h"

#include <dlfcn.h>

#include <algorithm>
#include <string_view>

namespace {

class Library final : public LibrarySide {
public:
    bool start() override { return load(); }

    bool call(int outputs, const std::vector<wire::Value> &arguments) override
    {
        release();
        warned.clear();
        if (!load())
            return false;
        given.reserve(arguments.size());
        for (const wire::Value &argument : arguments)
            given.push_back(host::ArrayOf(argument));
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
            values.push_back(host::ValueOf(array));
        return worked;
    }

    const std::vector<wire::Value> &results() const override { return values; }
    const std::string &error() const override { return words; }
    bool stopped() const override { return false; }
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

    std::string description() override { return "native"; }

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
    std::vector<wire::Value> values;
    std::vector<std::string> warned;
    std::string words;
};

} // namespace

LibrarySide *VerdanthLibrarySide(const char *name, const Caller *caller)
{
    static Library library;
    if (name == std::string_view("windows"))
        return WindowsSide(FolderOf(reinterpret_cast<void *>(&VerdanthLibrarySide)), *caller);
    return name == std::string_view("native") ? &library : nullptr;
}
