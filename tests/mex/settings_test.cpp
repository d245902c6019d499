// Commands 17 and 18.
#include "tests/mex/library_call.h"
#include "tests/support/mex_test.h"

#include <cmath>

using namespace support;

namespace {

class SettingsCommands : public MexTest {
protected:
    WideString unitOfFraction() { return mustReturn(1, {Scalar(19), Text("fraction")})[0].text(); }

    // True when a package's log message reaches the user.
    bool warningsAreOn()
    {
        if (!package) {
            package = &world.addPackage("Alone");
            package->answer("GetCompoundList", E_FAIL);
            package->onCall = [this](const std::string &method) {
                if (method == "GetCompoundList")
                    LogMessage(*package, "hello");
            };
            handle = open("Alone");
        }
        return call(1, {Scalar(7), handle}).warnings == std::vector<std::string>{"CAPE-OPEN: hello"};
    }

    void TearDown() override
    {
        handle = Array();
        MexTest::TearDown();
    }

private:
    PackageScript *package = nullptr;
    Array handle;
};

const char *const wrongBasis = "Expected string value 'mole' or 'mass' as argument";

} // namespace

TEST_F(SettingsCommands, ALoadedLibraryStartsWithMoleBasisAndWarnings)
{
    EXPECT_EQ(unitOfFraction(), Wide("mole fraction"));
    EXPECT_TRUE(warningsAreOn());
}

TEST_F(SettingsCommands, TheBasisIsSetByItsWordInAnyCase)
{
    mustReturn(0, {Scalar(18), Text("MASS")});
    EXPECT_EQ(unitOfFraction(), Wide("mass fraction"));
    mustReturn(0, {Scalar(18), Text("mOLe")});
    EXPECT_EQ(unitOfFraction(), Wide("mole fraction"));
}

TEST_F(SettingsCommands, AnotherWordIsRefusedAndTheBasisStays)
{
    mustReturn(0, {Scalar(18), Text("mass")});
    for (const Array &argument :
         {Text("molar"), Text("mole "), Text(""), Scalar(1), Empty(), EmptyCell(), Texts({"mole", "mole"})})
        EXPECT_EQ(call(0, {Scalar(18), argument}).error, wrongBasis);
    EXPECT_EQ(unitOfFraction(), Wide("mass fraction"));
}

TEST_F(SettingsCommands, TheBasisMayComeInACellOfOne)
{
    mustReturn(0, {Scalar(18), Texts({"mass"})});
    EXPECT_EQ(unitOfFraction(), Wide("mass fraction"));
}

TEST_F(SettingsCommands, ZeroAndFalseTurnWarningsOff)
{
    for (const Array &off : {Scalar(0), Logical(false), Int32(0), Single(0), Scalar(-0.0)}) {
        mustReturn(0, {Scalar(17), Scalar(1)});
        EXPECT_TRUE(warningsAreOn());
        mustReturn(0, {Scalar(17), off});
        EXPECT_FALSE(warningsAreOn());
    }
}

TEST_F(SettingsCommands, AnythingElseTurnsWarningsOnNaNIncluded)
{
    for (const Array &on : {Scalar(std::nan("")), Scalar(0.5), Scalar(-3), Logical(true), Int32(2)}) {
        mustReturn(0, {Scalar(17), Scalar(0)});
        mustReturn(0, {Scalar(17), on});
        EXPECT_TRUE(warningsAreOn());
    }
}

TEST_F(SettingsCommands, AStringIsJudgedByItsFirstCharacter)
{
    mustReturn(0, {Scalar(17), Scalar(0)});
    mustReturn(0, {Scalar(17), Text("off")}); // 'o' is not zero
    EXPECT_TRUE(warningsAreOn());
    mustReturn(0, {Scalar(17), Text(WideString(1, WCHAR(0)))});
    EXPECT_FALSE(warningsAreOn());
}

TEST_F(SettingsCommands, AReloadedLibraryHasTheInitialSettings)
{
    mustReturn(0, {Scalar(18), Text("mass")});
    mustReturn(0, {Scalar(17), Scalar(0)});
    matlab.clear();
    matlab.load();
    EXPECT_EQ(unitOfFraction(), Wide("mole fraction"));
}

TEST_F(SettingsCommands, TheVersionIsToldBehindItsFixedPrefix)
{
    EXPECT_EQ(mustReturn(1, {Scalar(26)})[0].text(), Wide("Verdanth.DLL version: 2.0.0.4"));
    EXPECT_EQ(mustReturn(1, {Scalar(26)})[0].text(), Wide("Verdanth.DLL version: 2.0.0.4"));
}

TEST_F(SettingsCommands, AVersionThatCannotBeHadIsToldInTheResult)
{
    const WideString failed = Wide("Failed to get Verdanth.DLL version");
    {
        LibraryCall<"GetFileVersionInfoW", decltype(GetFileVersionInfoW)> block(
            GetFileVersionInfoW, [](LPCWSTR, DWORD, DWORD, LPVOID) { return FALSE; });
        EXPECT_EQ(mustReturn(1, {Scalar(26)})[0].text(), failed);
    }
    {
        LibraryCall<"VerQueryValueW", decltype(VerQueryValueW)> query(
            VerQueryValueW, [](LPCVOID, LPCWSTR, LPVOID *, UINT *) { return FALSE; });
        EXPECT_EQ(mustReturn(1, {Scalar(26)})[0].text(), failed);
    }
    EXPECT_EQ(mustReturn(1, {Scalar(26)})[0].text(), Wide("Verdanth.DLL version: 2.0.0.4"));
}

TEST_F(SettingsCommands, TheVersionIsReadFromTheFileThatTheLibraryWasLoadedFrom)
{
    std::vector<std::string> steps;
    LibraryCall<"GetModuleFileNameW", decltype(GetModuleFileNameW)> name(
        GetModuleFileNameW, [&](HMODULE module, LPWSTR path, DWORD capacity) {
            steps.push_back("path of " + std::to_string(capacity));
            return GetModuleFileNameW(module, path, capacity);
        });
    LibraryCall<"GetFileVersionInfoW", decltype(GetFileVersionInfoW)> block(
        GetFileVersionInfoW, [&](LPCWSTR path, DWORD handle, DWORD size, LPVOID target) {
            EXPECT_EQ(static_cast<const void *>(path), target) << "the block takes the place of the path";
            steps.push_back("block of " + std::to_string(size));
            return GetFileVersionInfoW(path, handle, size, target);
        });
    LibraryCall<"VerQueryValueW", decltype(VerQueryValueW)> query(
        VerQueryValueW, [&](LPCVOID data, LPCWSTR path, LPVOID *value, UINT *size) {
            steps.push_back("value of " + Narrow(path));
            const BOOL found = VerQueryValueW(data, path, value, size);
            static VS_FIXEDFILEINFO other;
            other.dwFileVersionMS = 0xFFFF0001;
            other.dwFileVersionLS = 0x00028000;
            *value = &other;
            return found;
        });
    EXPECT_EQ(mustReturn(1, {Scalar(26)})[0].text(), Wide("Verdanth.DLL version: 65535.1.2.32768"));
    EXPECT_EQ(steps, (std::vector<std::string>{"path of 512", "block of 1024", "value of \\"}));
}

TEST_F(SettingsCommands, TheLibrarysOwnHandleIsTakenWithTheFirstCommandThatNeedsItAndKept)
{
    std::vector<std::string> loaded;
    LibraryCall<"LoadLibraryW", decltype(LoadLibraryW)> loads(LoadLibraryW, [&](LPCWSTR name) {
        loaded.push_back(Narrow(name));
        return LoadLibraryW(name);
    });
    mustReturn(1, {Scalar(5)});
    EXPECT_EQ(loaded, std::vector<std::string>());
    mustReturn(1, {Scalar(26)});
    mustReturn(1, {Scalar(26)});
    EXPECT_EQ(loaded, std::vector<std::string>{"Verdanth.mexw64"});
    LibraryCall<"LoadLibraryA", decltype(LoadLibraryA)> viewer(LoadLibraryA, [](LPCSTR) -> HMODULE { return nullptr; });
    EXPECT_EQ(call(0, {Scalar(28)}).error, "Failed to load help file");
    EXPECT_EQ(loaded.size(), 1u);
}
