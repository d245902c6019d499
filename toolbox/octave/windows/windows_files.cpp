#include "toolbox/octave/windows/windows_files.h"

#include <filesystem>
#include <vector>

namespace {

constexpr char hostName[] = "VerdanthHost64.exe";

bool exists(const std::string &file)
{
    std::error_code failure;
    return std::filesystem::exists(file, failure);
}

// The first that there is of `names` in the folder, without steps up in it; empty if there is none.
std::string oneOf(const std::string &folder, const std::vector<const char *> &names)
{
    for (const char *name : names)
        if (exists(folder + "/" + name))
            return std::filesystem::path(folder + "/" + name).lexically_normal().string();
    return {};
}

} // namespace

// All in one folder, as they are built, or in several, as they are shipped.
bool FindWindowsFiles(const std::string &named, const std::string &own, WindowsFiles &files, std::string &error)
{
    // Beside this library where it is installed; in the sources, where they are built.
    const std::vector<std::string> folders =
        named.empty() ? std::vector<std::string>{own + "/windows", own + "/../windows-x64"} : std::vector{named};
    files = {};
    for (const std::string &folder : folders)
        if (files.host.empty()) {
            std::error_code failure;
            files.folder = std::filesystem::weakly_canonical(folder, failure).string();
            files.host = oneOf(files.folder, {hostName, "host/VerdanthHost64.exe"});
        }
    if (files.host.empty())
        files.folder = folders.front();
    const std::string beside = files.host.substr(0, files.host.rfind('/') + 1);
    std::string missing;
    if (files.host.empty())
        missing = hostName;
    else if (oneOf(beside, {"Verdanth.mexw64", "../toolbox/Verdanth.mexw64"}).empty())
        missing = "Verdanth.mexw64";
    else
        for (const char *name : {"libmx.dll", "libmex.dll"})
            if (!exists(beside + name))
                missing = name;
    if (!missing.empty()) {
        error = "The Windows files of Verdanth were not found: there is no " + missing + " in " + files.folder +
                ". Unpack Verdanth's zip file for Windows there, or name its folder by VERDANTH_WINDOWS_FILES, in the "
                "environment";
        return false;
    }
    files.reference = oneOf(files.folder, {"VerdanthReference.dll", "reference/x64/VerdanthReference.dll"});
    files.relay = oneOf(files.folder, {"Verdanth6432Relay.exe", "../windows-x86/Verdanth6432Relay.exe"});
    files.hasStandard =
        !files.relay.empty() && exists(files.relay.substr(0, files.relay.rfind('/')) + "/CapeOpen11.tlb");
    return true;
}
