#include "toolbox/octave/windows/host_start.h"
#include "toolbox/octave/windows/prefix.h"

#include <cstdio>

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
    auto host = std::make_unique<HostConnection>();
    const std::string program = "The Windows program " + files.host + " did not start";
    switch (host->start({wine.loader, files.host}, EnvironmentIn(settings.prefix, wine), settings.startLimit, caller)) {
    case HostConnection::Outcome::Done:
        return host;
    case HostConnection::Outcome::Interrupted:
        error.clear();
        break;
    case HostConnection::Outcome::Late:
        error = program + " within " + InSeconds(settings.startLimit) +
                ". VERDANTH_START_LIMIT, in the environment, gives it more";
        break;
    default:
        error = program + ": " + host->reason() + ". If the Wine prefix " + settings.prefix +
                " is broken, remove it, and it will be made anew";
    }
    return nullptr;
}

std::string InSeconds(double seconds)
{
    char text[40];
    std::snprintf(text, sizeof text, "%g s", seconds);
    return text;
}
