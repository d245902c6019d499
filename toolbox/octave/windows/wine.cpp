#include "toolbox/octave/windows/wine.h"
#include "client/deadline.h"
#include "toolbox/octave/windows/child_process.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>

namespace {

// Debian's loader of 64-bit programs, without its launcher's advice about 32-bit ones.
constexpr char loaderOfDebian[] = "/usr/lib/wine/wine64";
// Where the sources of Verdanth have 32-bit libraries put for a Wine without them.
constexpr char halfOfDebian[] = "/usr/local/lib/verdanth-wine";

bool isProgram(const std::string &file)
{
    struct stat found = {};
    return stat(file.c_str(), &found) == 0 && S_ISREG(found.st_mode) && access(file.c_str(), X_OK) == 0;
}

std::string onPath(const std::string &program)
{
    const char *variable = std::getenv("PATH");
    std::string path = variable ? variable : "";
    while (!path.empty()) {
        std::string file = path.substr(0, path.find(':'));
        path.erase(0, file.size() + 1);
        const bool isFolder = !file.empty();
        file.append("/").append(program);
        if (isFolder && isProgram(file))
            return file;
    }
    return {};
}

std::string firstProgram(const std::vector<std::string> &files)
{
    const auto found = std::find_if(files.begin(), files.end(), isProgram);
    return found == files.end() ? "" : *found;
}

bool run(const std::string &prefix, const Wine &wine, const std::vector<std::string> &command, double seconds,
         const std::string &log, const Caller &caller, std::string &error)
{
    const int nothing = open("/dev/null", O_RDWR | O_CLOEXEC);
    const int written = open(log.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0666);
    const int output = written < 0 ? nothing : written;
    std::vector<std::string> environment = EnvironmentIn(prefix, wine);
    // No questions about substitutes for .NET and a browser, no entries in the user's menus.
    if (!std::getenv("WINEDLLOVERRIDES"))
        environment.emplace_back("WINEDLLOVERRIDES=mscoree,mshtml=;winemenubuilder.exe=d");
    ChildProcess process;
    const bool started = process.start(command, environment, {nothing, output, output}, error);
    close(nothing);
    if (written >= 0)
        close(written);
    if (!started)
        return false;
    const Deadline end(seconds);
    while (process.runs()) {
        const bool late = end.isOver();
        if (late || caller.interrupted()) {
            process.kill();
            error = late ? "it did not end within " + std::to_string(static_cast<int>(seconds)) + " s" : "interrupted";
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    error = process.howItEnded();
    return process.succeeded();
}

} // namespace

bool FindWine(const Settings &settings, Wine &wine, std::string &error)
{
    struct stat found = {};
    wine.halfPath = stat(halfOfDebian, &found) == 0 ? halfOfDebian : "";
    const std::vector<std::string> loaders =
        settings.loader.empty() ? std::vector{std::string(loaderOfDebian), onPath("wine64"), onPath("wine")}
                                : std::vector{settings.loader};
    wine.loader = firstProgram(loaders);
    if (wine.loader.empty()) {
        error = "Wine was not found";
        error += settings.loader.empty()
                     ? ". On Debian and Ubuntu \"sudo apt install wine wine64\" installs it; one that lies "
                       "elsewhere is named by VERDANTH_WINE_LOADER, in the environment"
                     : ": VERDANTH_WINE_LOADER names " + settings.loader + ", which is no program";
        return false;
    }
    wine.server =
        firstProgram({wine.loader.substr(0, wine.loader.rfind('/') + 1) + "wineserver", onPath("wineserver")});
    return true;
}

std::string VersionOf(const Wine &wine)
{
    FILE *output = popen(("'" + wine.loader + "' --version 2>/dev/null").c_str(), "re");
    if (!output)
        return {};
    char line[200] = "";
    const std::string text = std::fgets(line, sizeof line, output) ? line : "";
    pclose(output);
    return text.substr(0, text.find('\n'));
}

std::vector<std::string> EnvironmentIn(const std::string &prefix, const Wine &wine)
{
    // One code page and language wherever it runs; no kind of prefix that a user wants elsewhere.
    constexpr const char *ours[] = {"WINEPREFIX=", "LC_ALL=", "LANGUAGE=", "WINEARCH="};
    std::vector<std::string> variables = {"WINEPREFIX=" + prefix, "LC_ALL=C.UTF-8"};
    for (char *const *variable = environ; *variable; ++variable) {
        const std::string text = *variable;
        if (std::none_of(std::begin(ours), std::end(ours), [&](const char *name) { return text.rfind(name, 0) == 0; }))
            variables.push_back(text);
    }
    // Unless the user wants to know: Wine's own messages, and libraries that lie apart.
    if (!std::getenv("WINEDEBUG"))
        variables.emplace_back("WINEDEBUG=-all");
    if (!wine.halfPath.empty() && !std::getenv("WINEDLLPATH"))
        variables.push_back("WINEDLLPATH=" + wine.halfPath);
    return variables;
}

std::string WindowsPath(const std::string &file)
{
    std::string path = "Z:" + file;
    std::replace(path.begin(), path.end(), '/', '\\');
    return path;
}

void StopServer(const std::string &prefix, const Wine &wine)
{
    constexpr double patience = 30;
    const Caller nobody = {[] { return false; }, [](const char *) {}};
    std::string error; // it may have ended already
    if (!wine.server.empty())
        run(prefix, wine, {wine.server, "-k"}, patience, "/dev/null", nobody, error);
}

bool RunInPrefix(const std::string &prefix, const Wine &wine, const std::vector<std::string> &command, double seconds,
                 const std::string &log, const Caller &caller, std::string &error)
{
    std::vector<std::string> whole = {wine.loader};
    whole.insert(whole.end(), command.begin(), command.end());
    return run(prefix, wine, whole, seconds, log, caller, error);
}
