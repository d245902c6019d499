// Command 26.
#include "tests/mex/support/library_call.h"
#include "tests/support/mex_test.h"

using namespace support;

namespace {

class Version : public MexTest {};

} // namespace

TEST_F(Version, IsToldBehindItsFixedPrefix)
{
    EXPECT_EQ(mustReturn(1, {Scalar(26)})[0].text(), Wide("Verdanth.DLL version: 2.0.0.4"));
    EXPECT_EQ(mustReturn(1, {Scalar(26)})[0].text(), Wide("Verdanth.DLL version: 2.0.0.4"));
}

TEST_F(Version, ThatCannotBeHadIsToldInTheResult)
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

TEST_F(Version, IsReadFromTheFileThatTheLibraryWasLoadedFrom)
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

// The name of the host's program would be told in its place.
TEST_F(Version, AndHelpOfARenamedLibrarySayWhatIsWrong)
{
    LibraryCall<"LoadLibraryW", decltype(LoadLibraryW)> loads(LoadLibraryW, [](LPCWSTR) -> HMODULE { return nullptr; });
    EXPECT_EQ(mustReturn(1, {Scalar(26)})[0].text(),
              Wide("Failed to get Verdanth.DLL version: its file is not called Verdanth.mexw64"));
    EXPECT_EQ(refusal(0, {Scalar(28)}), "Failed to load help file: the library's file is not called Verdanth.mexw64");
}

TEST_F(Version, TheLibrarysOwnHandleIsTakenWithTheFirstCommandThatNeedsItAndKept)
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
