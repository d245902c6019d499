// Command 28, with viewers that show nothing.
#include "tests/help/help_request.h"
#include "tests/support/mex_test.h"

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
        const FARPROC entry = GetProcAddress(viewer, "LastHelpRequest");
        ASSERT_TRUE(entry);
        viewerRequest = reinterpret_cast<HelpRequest *(*)()>(reinterpret_cast<void (*)()>(entry))();
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
