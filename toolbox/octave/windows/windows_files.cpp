#include "toolbox/octave/windows/windows_files.h"

#include <filesystem>
#include <vector>

namespace {

constexpr const char *needed[] = {"VerdanthHost64.exe", "Verdanth.mexw64", "libmx.dll", "libmex.dll"};

bool exists(const std::string &file)
{
    std::error_code failure;
    return std::filesystem::exists(file, failure);
}

std::string ifExists(const std::string &file) { return exists(file) ? file : ""; }

} // namespace

bool FindWindowsFiles(const std::string &named, const std::string &own, WindowsFiles &files, std::string &error)
{
    // Beside this library where it is installed; in the sources, where they are built.
    const std::vector<std::string> folders =
        named.empty() ? std::vector<std::string>{own + "/windows", own + "/../windows-x64"} : std::vector{named};
    for (const std::string &folder : folders)
        if (exists(folder + "/" + needed[0])) {
            std::error_code failure;
            files.folder = std::filesystem::canonical(folder, failure).string();
        }
    if (files.folder.empty())
        files.folder = folders.front();
    for (const char *name : needed)
        if (!exists(files.folder + "/" + name)) {
            error = std::string("The Windows files of Verdanth were not found: there is no ") + name + " in " +
                    files.folder +
                    ". Put them there, or name their folder by VERDANTH_WINDOWS_FILES, in the environment";
            return false;
        }
    files.host = files.folder + "/" + needed[0];
    files.reference = ifExists(files.folder + "/VerdanthReference.dll");
    files.relay = ifExists(files.folder + "/Verdanth6432Relay.exe");
    if (files.relay.empty())
        files.relay = ifExists(files.folder + "/../windows-x86/Verdanth6432Relay.exe");
    if (!files.relay.empty())
        files.relay = std::filesystem::path(files.relay).lexically_normal().string();
    const std::size_t folderOfRelay = files.relay.rfind('/') + 1;
    files.hasStandard = !files.relay.empty() && exists(files.relay.substr(0, folderOfRelay) + "CapeOpen11.tlb");
    return true;
}
