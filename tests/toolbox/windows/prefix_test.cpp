// The way to a prefix, with a script in the place of Wine that writes down what it is asked for.
#include "tests/toolbox/windows/workplace.h"
#include "toolbox/octave/windows/prefix.h"

#include <unistd.h>

#include <filesystem>

namespace fs = std::filesystem;

namespace {

constexpr char remedy[] = ". Another folder is named by capeOpenBackend('windows', 'Prefix', folder) or, in the "
                          "environment, VERDANTH_WINEPREFIX";

class PrefixOfTheUser : public Workplace {
protected:
    PrefixOfTheUser()
    {
        settings.prefix = file("data/verdanth/wine");
        files = {file("lib"), file("lib/VerdanthHost64.exe"), file("lib/VerdanthReference.dll"),
                 file("lib/Verdanth6432Relay.exe"), true};
        wine.loader = script("wine", R"(printf "%s: %s\n" "$WINEPREFIX" "$*" >>)" + quoted(file("asked")) + R"(
case $1 in wineboot)
    mkdir -p "$WINEPREFIX/drive_c/windows/system32" "$WINEPREFIX/drive_c/windows/syswow64"
    touch "$WINEPREFIX/system.reg" "$WINEPREFIX/drive_c/windows/system32/kernel32.dll"
    [ -n "$NO_32_BITS" ] || touch "$WINEPREFIX/drive_c/windows/syswow64/kernel32.dll"
esac
[ "$1" != "$FAILS" ])");
        wine.server = script("wineserver", "echo server $* >>" + quoted(file("asked")));
        set("NO_32_BITS", "");
        set("FAILS", "nothing");
    }

    static std::string quoted(const std::string &text) { return "'" + text + "'"; }
    bool prepare() { return PreparePrefix(settings, wine, files, caller, warning, error); }
    std::string refusal()
    {
        EXPECT_FALSE(prepare());
        return error;
    }
    std::string asked()
    {
        const std::string lines = contentOf(file("asked"));
        fs::remove(file("asked"));
        return lines;
    }
    std::string line(const std::string &command) const { return settings.prefix + ": " + command + "\n"; }
    std::string registering() const
    {
        return line("regsvr32 /s " + WindowsPath(files.reference)) + line(files.relay + " /RegServer") +
               line(files.relay + " /RegTypeLib");
    }

    Settings settings;
    Wine wine;
    WindowsFiles files;
    std::string warning, error;
};

} // namespace

TEST_F(PrefixOfTheUser, IsMadeOnceWithAWord)
{
    ASSERT_TRUE(prepare()) << error;
    EXPECT_EQ(asked(), line("wineboot -i") + line("regedit /S " + WindowsPath(settings.prefix + "/verdanth.reg")) +
                           registering() + "server -k\n");
    EXPECT_EQ(told, "Verdanth: a Wine prefix is made in " + settings.prefix + ", once; this takes half a minute\n");
    EXPECT_EQ(warning, "");
    told.clear();
    ASSERT_TRUE(prepare()) << error;
    EXPECT_EQ(asked() + told, "");
}

TEST_F(PrefixOfTheUser, ThatIsThereIsTakenAsItIs)
{
    for (const char *name :
         {"system.reg", "drive_c/windows/system32/kernel32.dll", "drive_c/windows/syswow64/kernel32.dll"})
        write(std::string("data/verdanth/wine/") + name, "as it was");
    ASSERT_TRUE(prepare()) << error;
    EXPECT_EQ(asked(), registering());
    EXPECT_EQ(told, "");
    EXPECT_EQ(contentOf(settings.prefix + "/system.reg"), "as it was");
}

TEST_F(PrefixOfTheUser, LearnsThatTheFilesLieElsewhere)
{
    ASSERT_TRUE(prepare()) << error;
    asked();
    files = {file("other"), file("other/VerdanthHost64.exe"), file("other/VerdanthReference.dll"),
             file("other/Verdanth6432Relay.exe"), true};
    ASSERT_TRUE(prepare()) << error;
    EXPECT_EQ(asked(), registering());
}

TEST_F(PrefixOfTheUser, RegistersWhatThereIs)
{
    files.reference.clear();
    files.relay.clear();
    ASSERT_TRUE(prepare()) << error;
    EXPECT_EQ(asked().find("/s "), std::string::npos);
}

TEST_F(PrefixOfTheUser, LearnsThatThereAreMoreFiles)
{
    files.reference.clear();
    ASSERT_TRUE(prepare()) << error;
    asked();
    files.reference = file("lib/VerdanthReference.dll");
    ASSERT_TRUE(prepare()) << error;
    EXPECT_EQ(asked(), registering());
    files.hasStandard = false;
    ASSERT_TRUE(prepare()) << error;
    asked();
    files.hasStandard = true;
    ASSERT_TRUE(prepare()) << error;
    EXPECT_EQ(asked(), registering());
}

TEST_F(PrefixOfTheUser, RegistersTheTypeLibraryWhereItIs)
{
    files.hasStandard = false;
    ASSERT_TRUE(prepare()) << error;
    EXPECT_EQ(asked().find("/RegTypeLib"), std::string::npos);
}

TEST_F(PrefixOfTheUser, WithoutA32BitHalfServes64BitPackages)
{
    set("NO_32_BITS", "1");
    ASSERT_TRUE(prepare()) << error;
    EXPECT_EQ(asked().find("/RegServer"), std::string::npos);
    EXPECT_EQ(warning, "Wine has no 32-bit half in the prefix " + settings.prefix +
                           ": packages for 32 bits can not be used. How to get it stands in the guide, on Windows "
                           "packages on Linux");
}

TEST_F(PrefixOfTheUser, IsMadeAnewWhenItsMakingWasStopped)
{
    set("FAILS", "wineboot");
    EXPECT_EQ(refusal(), "The Wine prefix " + settings.prefix +
                             " can not be made: wineboot failed (exit code 1), and "
                             "what Wine said is in " +
                             settings.prefix + ".log" + remedy);
    write("data/verdanth/wine/drive_c/left.txt", "");
    set("FAILS", "nothing");
    asked();
    ASSERT_TRUE(prepare()) << error;
    EXPECT_EQ(asked().substr(0, line("wineboot -i").size()), line("wineboot -i"));
    EXPECT_FALSE(fs::exists(settings.prefix + "/drive_c/left.txt"));
}

TEST_F(PrefixOfTheUser, ThatIsSomethingElseIsLeftAlone)
{
    write("data/verdanth/wine/thesis.txt", "years of work");
    EXPECT_EQ(refusal(), "The Wine prefix " + settings.prefix +
                             " is broken: there is no system.reg in it. Remove the folder" + remedy);
    EXPECT_EQ(contentOf(settings.prefix + "/thesis.txt"), "years of work");
    EXPECT_EQ(asked(), "");
}

TEST_F(PrefixOfTheUser, ThatWasRobbedOfItsFilesIsBroken)
{
    ASSERT_TRUE(prepare()) << error;
    fs::remove(settings.prefix + "/drive_c/windows/system32/kernel32.dll");
    EXPECT_EQ(refusal(), "The Wine prefix " + settings.prefix +
                             " is broken: the registry, or Windows' kernel32.dll, is "
                             "not in it. Remove the folder" +
                             remedy);
}

TEST_F(PrefixOfTheUser, CanNotBeWhereNothingCanBeWritten)
{
    settings.prefix = write("data/file", "") + "/wine";
    EXPECT_EQ(refusal(), "The Wine prefix " + settings.prefix + " can not be made: Not a directory" + remedy);
    settings.prefix = "/proc/self/fdinfo/wine"; // for root, too
    EXPECT_EQ(refusal(), "The Wine prefix " + settings.prefix + " can not be made: No such file or directory" + remedy);
}

TEST_F(PrefixOfTheUser, IsNobodyElses)
{
    settings.prefix = "/usr";
    if (geteuid() == 0) {
        constexpr uid_t someone = 65534;
        write("theirs/system.reg", "");
        settings.prefix = file("theirs");
        ASSERT_EQ(chown(settings.prefix.c_str(), someone, static_cast<gid_t>(-1)), 0);
    }
    EXPECT_EQ(refusal(), "The Wine prefix " + settings.prefix +
                             " can not be used: it belongs to another user, and Wine takes none but one's own" +
                             remedy);
    EXPECT_EQ(asked(), "");
}

TEST_F(PrefixOfTheUser, WithoutTheRelayIsTold)
{
    set("FAILS", files.relay);
    EXPECT_EQ(refusal(), "The Wine prefix " + settings.prefix + " can not be made: registering " + files.relay +
                             " failed (exit code 1), and what Wine said is in " + settings.prefix + ".log" + remedy);
    set("FAILS", "nothing");
    EXPECT_TRUE(prepare()) << error;
}

TEST_F(PrefixOfTheUser, IsNotWaitedForWhenInterrupted)
{
    wine.loader = script("slow", "exec sleep 100");
    caller.interrupted = [] { return true; };
    EXPECT_NE(refusal().find("wineboot failed (interrupted)"), std::string::npos) << error;
}
