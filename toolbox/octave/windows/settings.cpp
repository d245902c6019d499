#include "toolbox/octave/windows/settings.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

namespace {

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

} // namespace

bool ReadSettings(Settings &settings, std::string &error)
{
    const std::string prefix = variable("VERDANTH_WINEPREFIX");
    settings.prefix = prefix.empty() ? ownPrefix() : absolute(prefix);
    settings.files = variable("VERDANTH_WINDOWS_FILES");
    settings.loader = variable("VERDANTH_WINE_LOADER");
    settings.limits = {};
    return ReadLimits(variable, settings.limits, error);
}
