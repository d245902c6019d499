#include "toolbox/octave/windows/host_start.h"
#include "toolbox/octave/windows/piped_process.h"
#include "toolbox/octave/windows/prefix.h"

#include <utility>

std::unique_ptr<HostConnection> StartHost(const Settings &settings, const std::string &folder, const Caller &caller,
                                          std::string &warning, std::string &error)
{
    Wine wine;
    WindowsFiles files;
    if (!FindWine(settings, wine, error) || !FindWindowsFiles(settings.files, folder, files, error) ||
        !PreparePrefix(settings, wine, files, caller, warning, error)) {
        if (caller.interrupted())
            error.clear();
        return nullptr;
    }
    const std::string name = "The Windows program " + files.host;
    const std::string remedy =
        ". If the Wine prefix " + settings.prefix + " is broken, remove it, and it will be made anew";
    auto process = std::make_unique<PipedProcess>();
    std::string reason;
    if (!process->start({wine.loader, files.host}, EnvironmentIn(settings.prefix, wine), reason)) {
        error = NotStarted(name, reason, remedy);
        return nullptr;
    }
    return ReadyHost(std::move(process), name, remedy, settings.limits.start, caller, error);
}
