#include "toolbox/octave/windows/prefix.h"
#include "generated/prefix_setup.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>
#include <vector>

namespace fs = std::filesystem;

namespace {

constexpr double patience = 600; // of slow disks: Wine copies a gigabyte
constexpr char remedy[] = ". Another folder is named by capeOpenBackend('windows', 'Prefix', folder) or, in the "
                          "environment, VERDANTH_WINEPREFIX";
constexpr char unfinished[] = "unfinished";

std::string contentOf(const std::string &file)
{
    std::ostringstream text;
    text << std::ifstream(file).rdbuf();
    return text.str();
}

bool exists(const std::string &file)
{
    std::error_code failure;
    return fs::exists(file, failure);
}

// One process at a time changes a prefix.
class PrefixLock {
public:
    PrefixLock() = default;
    PrefixLock(const PrefixLock &) = delete;
    PrefixLock &operator=(const PrefixLock &) = delete;
    ~PrefixLock()
    {
        if (descriptor >= 0)
            close(descriptor);
    }

    bool take(const std::string &file, const Caller &caller, std::string &error)
    {
        descriptor = open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
        if (descriptor < 0) {
            error = std::strerror(errno);
            return false;
        }
        while (flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
            if (caller.interrupted()) {
                error = "interrupted";
                return false;
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        }
        return true;
    }

private:
    int descriptor = -1;
};

class Preparation {
public:
    Preparation(const Settings &settings, const Wine &program, const WindowsFiles &ours, const Caller &whoWaits)
        : folder(settings.prefix), marker(folder + "/.verdanth"), wine(program), files(ours), caller(whoWaits)
    {
    }

    bool isOfAnother() const
    {
        struct stat found = {};
        return stat(folder.c_str(), &found) == 0 && found.st_uid != geteuid();
    }

    bool done() const { return contentOf(marker) == markOfThis() && isWhole(); }

    bool run(std::string &error)
    {
        std::error_code failure;
        fs::create_directories(fs::path(folder).parent_path(), failure);
        PrefixLock lock;
        std::string reason = failure.message();
        if (failure || !lock.take(folder + ".lock", caller, reason)) {
            error = "The Wine prefix " + folder + " can not be made: " + reason + remedy;
            return false;
        }
        if (done()) // by another process meanwhile
            return true;
        const bool there = exists(folder + "/system.reg") && !isUnfinished();
        if (!(there || make(error)) || !registerFiles(error))
            return false;
        if (!there)
            StopServer(folder, wine); // until then the registry is in its memory
        return checkWhole(error) && mark(markOfThis(), error);
    }

    bool has32Bits() const { return exists(folder + "/drive_c/windows/syswow64/kernel32.dll"); }

private:
    // What is registered in it.
    std::string markOfThis() const
    {
        return "2\n" + files.reference + "\n" + files.relay + "\n" + (files.hasStandard ? "CapeOpen11.tlb\n" : "");
    }
    bool isUnfinished() const { return contentOf(marker) == unfinished; }
    bool isWhole() const
    {
        return exists(folder + "/system.reg") && exists(folder + "/drive_c/windows/system32/kernel32.dll");
    }

    bool mark(const std::string &content, std::string &error)
    {
        std::ofstream file(marker, std::ios::trunc);
        file << content;
        file.close();
        if (!file)
            error = "The Wine prefix " + folder + " can not be made: it can not be written to" + remedy;
        return !file.fail();
    }

    bool runHere(const std::vector<std::string> &command, const std::string &purpose, std::string &error)
    {
        const std::string log = folder + ".log";
        std::string end;
        if (RunInPrefix(folder, wine, command, patience, log, caller, end))
            return true;
        error = "The Wine prefix " + folder + " can not be made: " + purpose + " failed (" + end +
                "), and what Wine said is in " + log + remedy;
        return false;
    }

    bool make(std::string &error)
    {
        std::error_code failure;
        if (isUnfinished())
            fs::remove_all(folder, failure); // whoever made it was stopped
        if (exists(folder) && !fs::is_empty(folder, failure)) {
            error = "The Wine prefix " + folder + " is broken: there is no system.reg in it. Remove the folder" +
                    std::string(remedy);
            return false;
        }
        fs::create_directories(folder, failure);
        if (failure) {
            error = "The Wine prefix " + folder + " can not be made: " + failure.message() + remedy;
            return false;
        }
        if (!mark(unfinished, error))
            return false;
        caller.tell(("Verdanth: a Wine prefix is made in " + folder + ", once; this takes half a minute").c_str());
        fs::remove(folder + ".log", failure);
        const std::string settings = folder + "/verdanth.reg";
        std::ofstream(settings) << prefixSetup;
        if (runHere({"wineboot", "-i"}, "wineboot", error) &&
            runHere({"regedit", "/S", WindowsPath(settings)}, "regedit", error))
            return true;
        StopServer(folder, wine);
        return false;
    }

    bool checkWhole(std::string &error) const
    {
        if (isWhole())
            return true;
        error = "The Wine prefix " + folder +
                " is broken: the registry, or Windows' kernel32.dll, is not in it. Remove the folder" +
                std::string(remedy);
        return false;
    }

    bool registerFiles(std::string &error)
    {
        if (!files.reference.empty() &&
            !runHere({"regsvr32", "/s", WindowsPath(files.reference)}, "registering " + files.reference, error))
            return false;
        if (files.relay.empty() || !has32Bits())
            return true;
        return runHere({files.relay, "/RegServer"}, "registering " + files.relay, error) &&
               (!files.hasStandard ||
                runHere({files.relay, "/RegTypeLib"}, "registering the type library of CAPE-OPEN", error));
    }

    std::string folder;
    std::string marker;
    const Wine &wine;
    const WindowsFiles &files;
    const Caller &caller;
};

} // namespace

bool PreparePrefix(const Settings &settings, const Wine &wine, const WindowsFiles &files, const Caller &caller,
                   std::string &warning, std::string &error)
{
    Preparation preparation(settings, wine, files, caller);
    if (preparation.isOfAnother()) {
        error = "The Wine prefix " + settings.prefix +
                " can not be used: it belongs to another user, and Wine takes none but one's own" + remedy;
        return false;
    }
    if (!preparation.done() && !preparation.run(error))
        return false;
    if (!preparation.has32Bits())
        warning =
            "Wine has no 32-bit half in the prefix " + settings.prefix +
            ": packages for 32 bits can not be used. How to get it stands in the guide, on Windows packages on Linux";
    return true;
}
