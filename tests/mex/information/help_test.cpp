// Command 28, with viewers that show nothing.
#include "platform/procedure.h"
#include "tests/help/help_request.h"
#include "tests/mex/support/library_call.h"
#include "tests/support/mex_test.h"

#include <algorithm>

#include <cstring>

using namespace support;

namespace {

const WCHAR *const viewerKey = OLESTR("CLSID\\{ADB880A6-D8FF-11CF-9377-00AA003B7A11}\\InprocServer32");

// Puts a viewer in the place of the registered one while it lives.
class HelpCommand : public MexTest {
protected:
    void SetUp() override
    {
        MexTest::SetUp();
        viewer = LoadLibraryW(OLESTR("help_viewer.dll"));
        auto *const lastRequest = findProcedure<HelpRequest *()>(viewer, "LastHelpRequest");
        ASSERT_TRUE(lastRequest);
        viewerRequest = lastRequest();
        *viewerRequest = {};
        RegCreateKeyExW(HKEY_CLASSES_ROOT, viewerKey, 0, nullptr, 0, KEY_READ | KEY_WRITE, nullptr, &key, nullptr);
        DWORD size = sizeof former;
        wasRegistered = RegQueryValueExW(key, nullptr, nullptr, &formerType, former, &size) == ERROR_SUCCESS;
        formerSize = size;
    }
    void TearDown() override
    {
        if (wasRegistered)
            RegSetValueExW(key, nullptr, 0, formerType, former, formerSize);
        RegCloseKey(key);
        if (!wasRegistered)
            RegDeleteTreeW(HKEY_CLASSES_ROOT, OLESTR("CLSID\\{ADB880A6-D8FF-11CF-9377-00AA003B7A11}"));
        MexTest::TearDown();
        FreeLibrary(viewer);
    }

    void registerViewer(AnyText path, DWORD type = REG_SZ)
    {
        RegSetValueExW(key, nullptr, 0, type, reinterpret_cast<const BYTE *>(path.wide.c_str()),
                       static_cast<DWORD>((path.wide.size() + 1) * sizeof(WCHAR)));
    }

    std::string showHelp() { return call(0, {Scalar(28)}).error; }

    HelpRequest &request() { return *viewerRequest; }

private:
    HMODULE viewer = nullptr;
    HelpRequest *viewerRequest = nullptr;
    HKEY key = nullptr;
    bool wasRegistered = false;
    DWORD formerType = 0;
    DWORD formerSize = 0;
    BYTE former[1024];
};

// While it lives, the library finds no viewer wherever it looks.
class NoViewers {
public:
    std::vector<std::string> tried;

private:
    LibraryCall<"LoadLibraryA", decltype(LoadLibraryA)> loads{LoadLibraryA, [this](LPCSTR name) -> HMODULE {
                                                                  tried.push_back(name);
                                                                  return nullptr;
                                                              }};
};

std::string folderOfTheLibrary()
{
    const HMODULE library = LoadLibraryW(OLESTR("Verdanth.mexw64"));
    char path[1024] = {};
    GetModuleFileNameA(library, path, sizeof path);
    FreeLibrary(library);
    const std::string whole(path);
    return whole.substr(0, whole.rfind('\\') + 1);
}

} // namespace

TEST_F(HelpCommand, ShowsTheFileInTheParentOfTheLibrarysFolder)
{
    registerViewer("help_viewer.dll");
    EXPECT_EQ(showHelp(), "");
    EXPECT_EQ(request().count, 1);
    EXPECT_EQ(std::string(request().path), folderOfTheLibrary() + "..\\Verdanth.chm");
    EXPECT_EQ(request().command, 0u);
    EXPECT_FALSE(request().hasOwner);
    EXPECT_FALSE(request().hasData);
}

// The system fills the whole room with a path that is too long, and need not terminate it.
TEST_F(HelpCommand, APathOfMoreThan1023CharactersIsCut)
{
    registerViewer("help_viewer.dll");
    for (const std::size_t folder : {1010u, 1018u, 1022u}) {
        std::string longPath = "C:\\" + std::string(folder - 4, 'd') + "\\" + std::string(1024 - folder, 'f');
        LibraryCall<"GetModuleFileNameA", decltype(GetModuleFileNameA)> name(
            GetModuleFileNameA, [&](HMODULE, LPSTR path, DWORD capacity) {
                EXPECT_EQ(capacity, 1024u);
                std::memcpy(path, longPath.data(), capacity);
                return capacity;
            });
        EXPECT_EQ(showHelp(), "");
        EXPECT_EQ(std::string(request().path), (longPath.substr(0, folder) + "..\\Verdanth.chm").substr(0, 1023));
    }
}

TEST_F(HelpCommand, AFileThatTheViewerCanNotShowIsAnErrorAndTheViewerIsKept)
{
    registerViewer("help_viewer.dll");
    request().refuses = true;
    EXPECT_EQ(showHelp(), "Failed to load help file");
    request().refuses = false;
    EXPECT_EQ(showHelp(), "");
    EXPECT_EQ(request().count, 2);
}

TEST_F(HelpCommand, ARegisteredPathMayNameEnvironmentVariables)
{
    SetEnvironmentVariableA("VERDANTH_TEST_VIEWER", "help_viewer");
    registerViewer("%VERDANTH_TEST_VIEWER%.dll", REG_EXPAND_SZ);
    EXPECT_EQ(showHelp(), "");
    EXPECT_EQ(request().count, 1);
}

TEST_F(HelpCommand, AMissingViewerIsLookedForOnlyOnce)
{
    registerViewer("no_viewer.dll");
    EXPECT_EQ(showHelp(), "Failed to load help file");
    registerViewer("help_viewer.dll");
    EXPECT_EQ(showHelp(), "Failed to load help file");
    EXPECT_EQ(request().count, 0);
}

TEST_F(HelpCommand, LooksForTheViewerOnceWhereItIsRegisteredAndThenUnderItsName)
{
    registerViewer("nowhere\\help_viewer.dll");
    std::vector<std::string> steps;
    LibraryCall<"RegOpenKeyExA", decltype(RegOpenKeyExA)> opens(
        RegOpenKeyExA, [&](HKEY parent, LPCSTR path, DWORD options, REGSAM access, PHKEY result) {
            EXPECT_EQ(parent, HKEY_CLASSES_ROOT);
            EXPECT_EQ(access, 0x20019u);
            steps.push_back(path);
            return RegOpenKeyExA(parent, path, options, access, result);
        });
    LibraryCall<"RegQueryValueExA", decltype(RegQueryValueExA)> queries(
        RegQueryValueExA, [&](HKEY queried, LPCSTR name, LPDWORD reserved, LPDWORD type, LPBYTE data, LPDWORD size) {
            steps.push_back(std::string("value \"") + (name ? name : "") + "\" of " + std::to_string(*size));
            return RegQueryValueExA(queried, name, reserved, type, data, size);
        });
    LibraryCall<"RegCloseKey", decltype(RegCloseKey)> closes(RegCloseKey, [&](HKEY closed) {
        steps.push_back("closed");
        return RegCloseKey(closed);
    });
    LibraryCall<"LoadLibraryA", decltype(LoadLibraryA)> loads(LoadLibraryA, [&](LPCSTR name) -> HMODULE {
        steps.push_back(name);
        return nullptr;
    });
    EXPECT_EQ(showHelp(), "Failed to load help file");
    EXPECT_EQ(steps,
              (std::vector<std::string>{"CLSID\\{ADB880A6-D8FF-11CF-9377-00AA003B7A11}\\InprocServer32",
                                        "value \"\" of 260", "closed", "nowhere\\help_viewer.dll", "hhctrl.ocx"}));
    steps.clear();
    EXPECT_EQ(showHelp(), "Failed to load help file");
    EXPECT_EQ(steps, std::vector<std::string>()) << "it was missing once and is not looked for again";
}

TEST_F(HelpCommand, AViewerThatIsNotRegisteredIsLoadedByItsName)
{
    LibraryCall<"RegOpenKeyExA", decltype(RegOpenKeyExA)> opens(
        RegOpenKeyExA, [](HKEY, LPCSTR, DWORD, REGSAM, PHKEY) { return LSTATUS(ERROR_FILE_NOT_FOUND); });
    std::vector<std::string> loaded;
    LibraryCall<"LoadLibraryA", decltype(LoadLibraryA)> loads(LoadLibraryA, [&](LPCSTR name) {
        loaded.push_back(name);
        return LoadLibraryA("help_viewer.dll");
    });
    EXPECT_EQ(showHelp(), "");
    EXPECT_EQ(showHelp(), "");
    EXPECT_EQ(loaded, std::vector<std::string>{"hhctrl.ocx"}) << "the viewer and its entry are kept";
    EXPECT_EQ(request().count, 2);
}

TEST_F(HelpCommand, AViewerWhoseRegistrationCannotBeReadIsLoadedByItsName)
{
    registerViewer("help_viewer.dll");
    LibraryCall<"RegQueryValueExA", decltype(RegQueryValueExA)> queries(
        RegQueryValueExA, [](HKEY, LPCSTR, LPDWORD, LPDWORD, LPBYTE, LPDWORD) { return LSTATUS(5); });
    NoViewers none;
    EXPECT_EQ(showHelp(), "Failed to load help file");
    EXPECT_EQ(none.tried, std::vector<std::string>{"hhctrl.ocx"});
}

TEST_F(HelpCommand, ARegisteredPathIsTakenUpTo260Bytes)
{
    const std::string longest(255, 'v'); // with ".dll" and its terminator 260
    NoViewers none;
    registerViewer(longest + ".dll");
    EXPECT_EQ(showHelp(), "Failed to load help file");
    EXPECT_EQ(none.tried, (std::vector<std::string>{longest + ".dll", "hhctrl.ocx"}));
}

TEST_F(HelpCommand, ARegisteredPathOf260BytesWithoutATerminatorIsCut)
{
    LibraryCall<"RegQueryValueExA", decltype(RegQueryValueExA)> queries(
        RegQueryValueExA, [](HKEY, LPCSTR, LPDWORD, LPDWORD type, LPBYTE data, LPDWORD size) {
            *type = REG_SZ;
            *size = 260;
            std::fill_n(data, 260, BYTE('v'));
            return LSTATUS(ERROR_SUCCESS);
        });
    NoViewers none;
    EXPECT_EQ(showHelp(), "Failed to load help file");
    EXPECT_EQ(none.tried, (std::vector<std::string>{std::string(259, 'v'), "hhctrl.ocx"}));
}

TEST_F(HelpCommand, ARegisteredPathOfMoreThan260BytesIsNone)
{
    const std::string tooLong(256, 'v');
    NoViewers none;
    registerViewer(tooLong + ".dll");
    EXPECT_EQ(showHelp(), "Failed to load help file");
    EXPECT_EQ(none.tried, std::vector<std::string>{"hhctrl.ocx"});
}

TEST_F(HelpCommand, WithoutMemoryForThePathFailsBeforeTheLibraryIsAskedForIt)
{
    registerViewer("help_viewer.dll");
    {
        const NoMemoryFor path(1024);
        EXPECT_EQ(showHelp(), "out of memory");
        EXPECT_EQ(path.refused(), 1);
    }
    EXPECT_EQ(request().count, 0);
    EXPECT_EQ(showHelp(), "");
}

TEST_F(HelpCommand, ARegisteredPathThatGrowsBeyond260BytesIsNone)
{
    SetEnvironmentVariableA("VERDANTH_TEST_VIEWER", std::string(256, 'v').c_str());
    registerViewer("%VERDANTH_TEST_VIEWER%.dll", REG_EXPAND_SZ);
    NoViewers none;
    EXPECT_EQ(showHelp(), "Failed to load help file");
    EXPECT_EQ(none.tried, std::vector<std::string>{"hhctrl.ocx"});
}
