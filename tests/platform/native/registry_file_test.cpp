#include "tests/platform/module/module_class.h"

#include <gtest/gtest.h>

namespace {

WideString defaultValue(const WCHAR *path)
{
    HKEY key = nullptr;
    EXPECT_EQ(RegOpenKeyExW(HKEY_CLASSES_ROOT, path, 0, KEY_READ, &key), ERROR_SUCCESS);
    WCHAR text[1024] = {};
    DWORD size = sizeof text;
    EXPECT_EQ(RegQueryValueExW(key, nullptr, nullptr, nullptr, reinterpret_cast<BYTE *>(text), &size), ERROR_SUCCESS);
    RegCloseKey(key);
    return text;
}

} // namespace

TEST(RegistryFile, BesideTheLibraryIsReadOnFirstUse)
{
    EXPECT_EQ(defaultValue(OLESTR("CLSID\\") FILED_CLASS_TEXT), u"Class of the test module");
}

TEST(RegistryFile, NamesALibraryBesideTheFolderItStandsIn)
{
    const WideString path = defaultValue(OLESTR("CLSID\\") FILED_CLASS_TEXT OLESTR("\\InprocServer32"));
    const HMODULE platform = LoadLibraryW(u"libverdanth_platform.so");
    WCHAR own[1024];
    WideString expected(own, GetModuleFileNameW(platform, own, 1024));
    FreeLibrary(platform);
    expected.replace(expected.rfind(u'\\') + 1, WideString::npos, u"platform_test_module.dll");
    EXPECT_EQ(path, expected);
}

TEST(RegistryFile, LetsItsClassBeCreated)
{
    ASSERT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
    IUnknown *object = nullptr;
    EXPECT_EQ(CoCreateInstance(filedClass, nullptr, CLSCTX_INPROC_SERVER, InterfaceId<IUnknown>,
                               reinterpret_cast<void **>(&object)),
              S_OK);
    ASSERT_NE(object, nullptr);
    EXPECT_EQ(object->Release(), 0u);
    CoUninitialize();
}
