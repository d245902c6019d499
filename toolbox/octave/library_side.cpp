// The library's side: plays MATLAB for Verdanth.so with the stand-in's arrays, or has that done under Wine.
#include "host/value_call.h"
#include "toolbox/octave/bridge.h"
#include "toolbox/octave/load_beside.h"
#include "toolbox/octave/windows/windows_side.h"

#include <dlfcn.h>

#include <string_view>

namespace {

class Library final : public LibrarySide {
public:
    bool start() override { return load(); }

    bool call(int outputs, const std::vector<wire::Value> &arguments) override
    {
        release();
        return load() && running.run(function, outputs, arguments);
    }

    const std::vector<wire::Value> &results() const override { return running.results(); }
    const std::string &error() const override { return function ? running.error() : words; }
    bool stopped() const override { return false; }
    const std::vector<std::string> &warnings() const override { return running.warnings(); }
    void release() override { running.release(); }

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
    host::ValueCall running;
    std::string words; // why it could not be loaded
};

} // namespace

LibrarySide *VerdanthLibrarySide(const char *name, const Caller *caller)
{
    static Library library;
    if (name == std::string_view("windows"))
        return WindowsSide(FolderOf(reinterpret_cast<void *>(&VerdanthLibrarySide)), *caller);
    return name == std::string_view("native") ? &library : nullptr;
}
