#include "toolbox/octave/windows/settings.h"
#include "client/seconds.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

namespace {

constexpr double patienceAtStart = 60;

std::string variable(const char *name)
{
    const char *value = std::getenv(name);
    return value ? value : "";
}

std::string homeFolder()
{
    if (std::string home = variable("HOME"); !home.empty())
        return home;
    const passwd *user = getpwuid(getuid());
    return user ? user->pw_dir : "/";
}

// A folder of the user's own for data, where the desktops of Linux have theirs.
std::string ownPrefix()
{
    const std::string data = variable("XDG_DATA_HOME");
    return (data.empty() || data[0] != '/' ? homeFolder() + "/.local/share" : data) + "/verdanth/wine";
}

// Wine takes no other path. A blank home is the user's.
std::string absolute(std::string path)
{
    if (path.rfind("~/", 0) == 0)
        path.replace(0, 1, homeFolder());
    std::error_code failure;
    path = std::filesystem::absolute(path, failure).lexically_normal().string();
    while (path.size() > 1 && path.back() == '/')
        path.pop_back();
    return path;
}

bool readLimit(const char *name, double &seconds, std::string &error)
{
    return ReadSeconds(name, variable(name), seconds, error);
}

} // namespace

bool ReadSettings(Settings &settings, std::string &error)
{
    const std::string prefix = variable("VERDANTH_WINEPREFIX");
    settings.prefix = prefix.empty() ? ownPrefix() : absolute(prefix);
    settings.files = variable("VERDANTH_WINDOWS_FILES");
    settings.loader = variable("VERDANTH_WINE_LOADER");
    settings.callLimit = 0;
    settings.startLimit = patienceAtStart;
    return readLimit("VERDANTH_TIME_LIMIT", settings.callLimit, error) &&
           readLimit("VERDANTH_START_LIMIT", settings.startLimit, error);
}
