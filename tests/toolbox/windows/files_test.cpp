// Where Wine and the Windows files are looked for.
#include "tests/toolbox/windows/workplace.h"
#include "toolbox/octave/windows/windows_files.h"
#include "toolbox/octave/windows/wine.h"

#include <filesystem>

namespace {

class WineOnThisMachine : public Workplace {
protected:
    Settings settings;
    Wine wine;
    std::string error;
};

class FilesOfWindows : public Workplace {
protected:
    void put(const std::string &where)
    {
        for (const char *name : {"VerdanthHost64.exe", "Verdanth.mexw64", "libmx.dll", "libmex.dll"})
            write(where + "/" + name, "");
    }
    WindowsFiles files;
    std::string error;
};

} // namespace

TEST_F(WineOnThisMachine, IsTheOneThatIsNamed)
{
    settings.loader = script("bin/wine", "echo wine-99 of mine");
    const std::string server = script("bin/wineserver", "");
    ASSERT_TRUE(FindWine(settings, wine, error)) << error;
    EXPECT_EQ(wine.loader, settings.loader);
    EXPECT_EQ(wine.server, server);
    EXPECT_EQ(VersionOf(wine), "wine-99 of mine");
}

TEST_F(WineOnThisMachine, HasToBeAProgram)
{
    settings.loader = write("text", "not a program");
    EXPECT_FALSE(FindWine(settings, wine, error));
    EXPECT_EQ(error, "Wine was not found: VERDANTH_WINE_LOADER names " + settings.loader + ", which is no program");
}

TEST_F(WineOnThisMachine, ReadsOtherLibrariesOnlyWhereTheUserSaysNothing)
{
    wine.halfPath = "/half";
    set("WINEDEBUG", "+all");
    set("WINEARCH", "win32");
    unset("WINEDLLPATH");
    const auto has = [&](const std::string &line) {
        const std::vector<std::string> lines = EnvironmentIn("/a prefix", wine);
        return std::count(lines.begin(), lines.end(), line) == 1;
    };
    EXPECT_TRUE(has("WINEPREFIX=/a prefix"));
    EXPECT_TRUE(has("LC_ALL=C.UTF-8"));
    EXPECT_TRUE(has("WINEDLLPATH=/half"));
    EXPECT_TRUE(has("WINEDEBUG=+all"));
    EXPECT_FALSE(has("WINEDEBUG=-all"));
    EXPECT_FALSE(has("WINEARCH=win32"));
    set("WINEDLLPATH", "/mine");
    EXPECT_TRUE(has("WINEDLLPATH=/mine"));
    EXPECT_FALSE(has("WINEDLLPATH=/half"));
}

TEST_F(FilesOfWindows, LieBesideTheLibraryOrWhereTheyAreBuilt)
{
    put("build/windows-x64");
    write("build/windows-x64/VerdanthReference.dll", "");
    write("build/windows-x86/Verdanth6432Relay.exe", "");
    std::filesystem::create_directories(file("build/linux"));
    ASSERT_TRUE(FindWindowsFiles("", file("build/linux"), files, error)) << error;
    EXPECT_EQ(files.host, file("build/windows-x64/VerdanthHost64.exe"));
    EXPECT_EQ(files.reference, file("build/windows-x64/VerdanthReference.dll"));
    EXPECT_EQ(files.relay, file("build/windows-x86/Verdanth6432Relay.exe"));
    EXPECT_FALSE(files.hasStandard);
    put("installed/windows");
    write("installed/windows/Verdanth6432Relay.exe", "");
    write("installed/windows/CapeOpen11.tlb", "");
    ASSERT_TRUE(FindWindowsFiles("", file("installed"), files, error)) << error;
    EXPECT_EQ(files.folder, file("installed/windows"));
    EXPECT_EQ(files.reference, "");
    EXPECT_EQ(files.relay, file("installed/windows/Verdanth6432Relay.exe"));
    EXPECT_TRUE(files.hasStandard);
}

TEST_F(FilesOfWindows, MayLieAsTheyAreShipped)
{
    for (const char *name : {"host/VerdanthHost64.exe", "host/libmx.dll", "host/libmex.dll", "toolbox/Verdanth.mexw64",
                             "reference/x64/VerdanthReference.dll", "Verdanth6432Relay.exe", "CapeOpen11.tlb"})
        write(std::string("unpacked/") + name, "");
    ASSERT_TRUE(FindWindowsFiles(file("unpacked"), file("lib"), files, error)) << error;
    EXPECT_EQ(files.folder, file("unpacked"));
    EXPECT_EQ(files.host, file("unpacked/host/VerdanthHost64.exe"));
    EXPECT_EQ(files.reference, file("unpacked/reference/x64/VerdanthReference.dll"));
    EXPECT_EQ(files.relay, file("unpacked/Verdanth6432Relay.exe"));
    EXPECT_TRUE(files.hasStandard);
}

TEST_F(FilesOfWindows, AreAllNeeded)
{
    constexpr char remedy[] = ". Unpack Verdanth's zip file for Windows there, or name its folder by "
                              "VERDANTH_WINDOWS_FILES, in the environment";
    EXPECT_FALSE(FindWindowsFiles("", file("lib"), files, error));
    EXPECT_EQ(error, "The Windows files of Verdanth were not found: there is no VerdanthHost64.exe in " +
                         file("lib/windows") + remedy);
    put("mine");
    ASSERT_TRUE(FindWindowsFiles(file("mine"), file("lib"), files, error)) << error;
    std::filesystem::remove(file("mine/libmx.dll"));
    EXPECT_FALSE(FindWindowsFiles(file("mine"), file("lib"), files, error));
    EXPECT_EQ(error, "The Windows files of Verdanth were not found: there is no libmx.dll in " + file("mine") + remedy);
}

TEST(WindowsPaths, BeginWithTheDiskOfTheWholeMachine) { EXPECT_EQ(WindowsPath("/a b/c.dll"), "Z:\\a b\\c.dll"); }
