#include "tests/support/class_registration.h"

#include <gtest/gtest.h>

using namespace support;

namespace {

bool keyExists(const std::string &path)
{
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_CLASSES_ROOT, Wide(path).c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS)
        return false;
    RegCloseKey(key);
    return true;
}

const std::string classIdText = "{7E57FFFF-3B1C-4D0A-9E55-216B0C5FA810}";
const std::string key = "CLSID\\" + classIdText;

} // namespace

TEST(ClassRegistrationOfTests, WritesWhatAnInstallerDoes)
{
    ClassRegistration registration;
    RegisteredClass entry = ManagerClass("Name of it", classIdText);
    entry.progId = Wide("Scripted.Manager");
    registration.add(entry);
    EXPECT_TRUE(keyExists(key + "\\Implemented Categories\\{CF51E383-0110-4ED8-ACB7-B50CFDE6908E}"));
    EXPECT_FALSE(keyExists(key + "\\Implemented Categories\\{CF51E384-0110-4ED8-ACB7-B50CFDE6908E}"));

    HKEY description = nullptr;
    ASSERT_EQ(RegOpenKeyExW(HKEY_CLASSES_ROOT, Wide(key + "\\CapeDescription").c_str(), 0, KEY_READ, &description),
              ERROR_SUCCESS);
    WCHAR name[32] = {};
    DWORD type = 0;
    DWORD size = sizeof name;
    EXPECT_EQ(RegQueryValueExW(description, OLESTR("Name"), nullptr, &type, reinterpret_cast<LPBYTE>(name), &size),
              ERROR_SUCCESS);
    RegCloseKey(description);
    EXPECT_EQ(type, REG_SZ);
    EXPECT_EQ(size, 11 * sizeof(WCHAR)); // ten letters and the terminator
    EXPECT_EQ(WideString(name), Wide("Name of it"));

    CLSID classId;
    ASSERT_EQ(CLSIDFromString(Wide(classIdText).c_str(), &classId), S_OK);
    LPOLESTR progId = nullptr;
    ASSERT_EQ(ProgIDFromCLSID(classId, &progId), S_OK);
    EXPECT_EQ(WideString(progId), Wide("Scripted.Manager"));
    CoTaskMemFree(progId);
}

TEST(ClassRegistrationOfTests, UsesTheViewOf32BitClassesWhenAsked)
{
    ClassRegistration registration;
    RegisteredClass entry = PackageClass("Old", classIdText);
    entry.view = RegistryView::wow64;
    registration.add(entry);
    EXPECT_TRUE(keyExists("WOW6432Node\\CLSID\\" + classIdText + "\\CapeDescription"));
    EXPECT_FALSE(keyExists(key));
}

TEST(ClassRegistrationOfTests, TakesItsClassesBack)
{
    {
        ClassRegistration registration;
        registration.add(PackageClass("Name", classIdText));
        EXPECT_TRUE(keyExists(key));
    }
    EXPECT_FALSE(keyExists(key));
}

TEST(ClassRegistrationOfTests, RemovesManagersAndPackagesOfOthers)
{
    ClassRegistration others;
    others.add(PackageClass("Name", classIdText));
    ClassRegistration ours;
    EXPECT_FALSE(keyExists(key));
}
