#include "toolbox/octave/windows/windows_side.h"
#include "client/remote_library.h"
#include "toolbox/octave/windows/host_start.h"
#include "toolbox/octave/windows/wine.h"

#include <pthread.h>

#include <utility>

namespace {

class Windows final : public RemoteLibrary {
public:
    explicit Windows(std::string installed);
    std::string description() override;

private:
    bool readWishes(Wishes &wishes, std::string &error) override;
    std::unique_ptr<HostConnection> startHost(const Caller &caller, std::string &warning, std::string &error) override
    {
        return StartHost(settings, folder, caller, warning, error);
    }

    std::string folder;
    Settings settings;
};

Windows *instance = nullptr; // what a copy of this process has to leave alone

Windows::Windows(std::string installed) : RemoteLibrary("another prefix was chosen"), folder(std::move(installed))
{
    instance = this;
    pthread_atfork(nullptr, nullptr, [] { instance->leaveToParent(); });
}

bool Windows::readWishes(Wishes &wishes, std::string &error)
{
    if (!ReadSettings(settings, error))
        return false;
    wishes = {settings.prefix + '\n' + settings.files + '\n' + settings.loader, settings.limits.call};
    return true;
}

std::string Windows::description()
{
    Settings wanted;
    Wine wine;
    std::string error;
    if (!ReadSettings(wanted, error) || !FindWine(wanted, wine, error))
        return "windows: " + error;
    return "windows: " + VersionOf(wine) + ", " + wanted.prefix;
}

} // namespace

LibrarySide *WindowsSide(const std::string &folder, const Caller &caller)
{
    static Windows side(folder);
    side.serve(caller); // another one each time that Octave has loaded Verdanth.mex anew
    return &side;
}
