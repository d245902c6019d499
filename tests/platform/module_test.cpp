#include "platform/platform.h"
#include "platform/procedure.h"

#include <gtest/gtest.h>

namespace {

constexpr const WCHAR *moduleName = OLESTR("platform_test_module.dll");

// The test module, loaded while this lives.
struct LoadedModule {
    HMODULE module = LoadLibraryW(moduleName);

    LoadedModule() = default;
    ~LoadedModule() { EXPECT_TRUE(FreeLibrary(module)); }
    LoadedModule(const LoadedModule &) = delete;
    LoadedModule &operator=(const LoadedModule &) = delete;

    WideString path() const
    {
        WCHAR text[1024];
        return WideString(text, GetModuleFileNameW(module, text, 1024));
    }
};

} // namespace

TEST(Module, IsLoadedByItsBareName)
{
    LoadedModule loaded;
    ASSERT_NE(loaded.module, nullptr);
    const HMODULE again = LoadLibraryA("platform_test_module.dll");
    EXPECT_EQ(again, loaded.module);
    EXPECT_TRUE(FreeLibrary(again));
}

TEST(Module, IsLoadedByItsPathWithBackslashes)
{
    WideString path;
    {
        LoadedModule loaded;
        path = loaded.path();
    }
    const HMODULE module = LoadLibraryW(path.c_str());
    ASSERT_NE(module, nullptr);
    EXPECT_TRUE(FreeLibrary(module));
}

TEST(Module, ThatIsMissingIsNotLoaded)
{
    SetLastError(0);
    EXPECT_EQ(LoadLibraryW(OLESTR("no_such_module.dll")), nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_MOD_NOT_FOUND));
    EXPECT_EQ(LoadLibraryA("no_such_module.dll"), nullptr);
}

TEST(Module, GivesItsFunctionsByName)
{
    LoadedModule loaded;
    auto *twice = findProcedure<int(int)>(loaded.module, "Twice");
    ASSERT_NE(twice, nullptr);
    EXPECT_EQ(twice(21), 42);
}

TEST(Module, GivesItsFunctionsByOrdinal)
{
    LoadedModule loaded;
    auto *fourteen = findProcedure<int(int)>(loaded.module, reinterpret_cast<LPCSTR>(std::uintptr_t{14}));
    ASSERT_NE(fourteen, nullptr);
    EXPECT_EQ(fourteen(3), 42);
}

TEST(Module, HasNoOtherFunctions)
{
    LoadedModule loaded;
    SetLastError(0);
    EXPECT_EQ(GetProcAddress(loaded.module, "Thrice"), nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_PROC_NOT_FOUND));
    EXPECT_EQ(GetProcAddress(loaded.module, reinterpret_cast<LPCSTR>(std::uintptr_t{99})), nullptr);
}

TEST(ModuleFileName, IsAFullPathWithBackslashes)
{
    LoadedModule loaded;
    const WideString path = loaded.path();
    const std::size_t slash = path.rfind(OLESTR('\\'));
    ASSERT_NE(slash, WideString::npos);
    EXPECT_NE(slash, 0u);
    EXPECT_EQ(path.substr(slash + 1, 21), OLESTR("platform_test_module."));
    EXPECT_EQ(path.find(OLESTR('/')), WideString::npos);
    char narrow[1024];
    const DWORD length = GetModuleFileNameA(loaded.module, narrow, sizeof narrow);
    EXPECT_EQ(WideString(narrow, narrow + length), path);
}

TEST(ModuleFileName, OfNoModuleIsTheProgramsOwn)
{
    WCHAR text[1024];
    const WideString path(text, GetModuleFileNameW(nullptr, text, 1024));
    EXPECT_NE(path.find(OLESTR("platform_tests"), path.rfind(OLESTR('\\'))), WideString::npos);
}

TEST(ModuleFileName, IsCutWhereItDoesNotFit)
{
    LoadedModule loaded;
    WCHAR text[5] = {OLESTR('?'), OLESTR('?'), OLESTR('?'), OLESTR('?'), OLESTR('?')};
    SetLastError(0);
    EXPECT_EQ(GetModuleFileNameW(loaded.module, text, 4), 4u);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INSUFFICIENT_BUFFER));
    EXPECT_EQ(WideString(text, 3), loaded.path().substr(0, 3)); // the fourth may or may not be a terminator
    EXPECT_EQ(text[4], OLESTR('?'));
}

TEST(ModuleFileName, FitsWithItsTerminator)
{
    LoadedModule loaded;
    const WideString path = loaded.path();
    WCHAR text[1024];
    const auto length = static_cast<DWORD>(path.size());
    EXPECT_EQ(GetModuleFileNameW(loaded.module, text, length + 1), length);
    EXPECT_EQ(GetModuleFileNameW(loaded.module, text, length), length);
    EXPECT_EQ(WideString(text, length - 1), path.substr(0, length - 1));
}

TEST(Version, IsReadOverThePathInTheSameBuffer)
{
    LoadedModule loaded;
    alignas(8) WCHAR buffer[1024] = {};
    ASSERT_GT(GetModuleFileNameW(loaded.module, buffer, 512), 0u);
    ASSERT_TRUE(GetFileVersionInfoW(buffer, 0, sizeof buffer, buffer));
    void *block = nullptr;
    UINT size = 0;
    ASSERT_TRUE(VerQueryValueW(buffer, OLESTR("\\"), &block, &size));
    ASSERT_EQ(size, sizeof(VS_FIXEDFILEINFO));
    const auto *version = static_cast<const VS_FIXEDFILEINFO *>(block);
    EXPECT_EQ(version->dwSignature, 0xFEEF04BDu);
    EXPECT_EQ(version->dwFileVersionMS, 0x00030001u);
    EXPECT_EQ(version->dwFileVersionLS, 0x0004000Fu);
    EXPECT_EQ(version->dwProductVersionMS, 0x00020007u);
    EXPECT_EQ(version->dwProductVersionLS, 0x00010008u);
}

TEST(Version, OfAMissingFileIsNotRead)
{
    BYTE block[256];
    EXPECT_FALSE(GetFileVersionInfoW(OLESTR("no_such_module.dll"), 0, sizeof block, block));
}

TEST(Version, OfAProgramWithoutOneIsNotRead)
{
    WCHAR path[1024];
    ASSERT_GT(GetModuleFileNameW(nullptr, path, 1024), 0u);
    BYTE block[256];
    EXPECT_FALSE(GetFileVersionInfoW(path, 0, sizeof block, block));
}
