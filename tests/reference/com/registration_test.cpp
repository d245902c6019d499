// What the library writes to the class registry, and creation through it.
#include "cape/com/registry_key.h"
#include "reference/server/class_table.h"
#include "tests/reference/com/host.h"
#include "tests/support/registered_text.h"

#include <gtest/gtest.h>

using namespace reference;
using support::keyExists;
using support::registeredText;

namespace {

constexpr std::string_view packageKey = "CLSID\\{8337DA1D-2C46-4715-9C96-CFCE8AE51506}";

// The keys of classes are apart by the width of the library, those of program ids are not: the id tells.
const std::string ownWidth = std::to_string(8 * sizeof(void *));
const std::string otherWidth = sizeof(void *) == 8 ? "32" : "64";
const std::string managerProgram = "Verdanth.ReferencePackages";
const std::string packageProgram = "Verdanth.NaturalGas";

std::string under(std::string_view key, std::string_view path) { return std::string(key) + "\\" + std::string(path); }

// Registers for the test and leaves the registry as it was found.
class Registration : public testing::Test {
protected:
    void SetUp() override
    {
        wasRegistered = keyExists(0, managerKey);
        ASSERT_EQ(library.registerServer(), S_OK);
    }
    void TearDown() override { EXPECT_EQ(wasRegistered ? library.registerServer() : library.unregisterServer(), S_OK); }

    Library library;
    bool wasRegistered = false;
};

} // namespace

TEST_F(Registration, DescribesBothClasses)
{
    const WideString path = library.path();
    const struct {
        std::string_view key;
        const char *name;
        std::string programId;
        const char *category;
        const char *otherCategory;
    } classes[] = {{managerKey, "Verdanth Reference Packages", managerProgram + ownWidth,
                    "Implemented Categories\\{CF51E383-0110-4ed8-ACB7-B50CFDE6908E}",
                    "Implemented Categories\\{CF51E384-0110-4ed8-ACB7-B50CFDE6908E}"},
                   {packageKey, "Verdanth Natural Gas (stand-alone)", packageProgram + ownWidth,
                    "Implemented Categories\\{CF51E384-0110-4ed8-ACB7-B50CFDE6908E}",
                    "Implemented Categories\\{CF51E383-0110-4ed8-ACB7-B50CFDE6908E}"}};
    for (const auto &each : classes) {
        SCOPED_TRACE(each.name);
        EXPECT_EQ(registeredText(0, each.key, ""), each.name);
        EXPECT_EQ(registeredText(0, under(each.key, "InprocServer32"), ""), std::string(path.begin(), path.end()));
        EXPECT_EQ(registeredText(0, under(each.key, "InprocServer32"), "ThreadingModel"), "Apartment");
        EXPECT_EQ(registeredText(0, under(each.key, "ProgID"), ""), each.programId);
        EXPECT_TRUE(keyExists(0, under(each.key, each.category)));
        EXPECT_FALSE(keyExists(0, under(each.key, each.otherCategory)));
        EXPECT_TRUE(keyExists(0, under(each.key, "Implemented Categories\\{678C09A1-7D66-11D2-A67D-00105A42887F}")));
        EXPECT_EQ(registeredText(0, under(each.key, "CapeDescription"), "Name"), each.name);
        EXPECT_NE(registeredText(0, under(each.key, "CapeDescription"), "Description"), "(none)");
        EXPECT_EQ(registeredText(0, under(each.key, "CapeDescription"), "CapeVersion"), "1.1");
        for (const char *value : {"ComponentVersion", "VendorURL", "About"})
            EXPECT_NE(registeredText(0, under(each.key, "CapeDescription"), value), "(none)") << value;
        EXPECT_EQ(registeredText(0, under(each.programId, "CLSID"), ""), std::string(each.key.substr(6)));
    }
    EXPECT_EQ(registeredText(0, "Component Categories\\{CF51E383-0110-4ED8-ACB7-B50CFDE6908E}", "409"),
              "CAPE-OPEN 1.1 Property Package Manager");
    EXPECT_EQ(registeredText(0, "Component Categories\\{CF51E384-0110-4ED8-ACB7-B50CFDE6908E}", "409"),
              "CAPE-OPEN 1.1 Property Package");
}

TEST_F(Registration, DescribesThePackagesOfTheManager)
{
    for (const std::string name : {"Natural gas", "Water and light alcohols", "All compounds (Soave-Redlich-Kwong)"}) {
        const std::string key = under(managerKey, "PropertyPackages\\" + name + "\\CapeDescription");
        EXPECT_EQ(registeredText(0, key, "Name"), name);
        EXPECT_NE(registeredText(0, key, "Description"), "(none)") << name;
    }
    EXPECT_FALSE(keyExists(0, under(packageKey, "PropertyPackages")));
}

TEST_F(Registration, LetsBothClassesBeCreated)
{
    ASSERT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
    constexpr DWORD anyContext =
        CLSCTX_INPROC_SERVER | CLSCTX_INPROC_HANDLER | CLSCTX_LOCAL_SERVER | CLSCTX_REMOTE_SERVER;
    {
        ComPointer<ICapeThermoPropertyPackageManager> manager;
        EXPECT_EQ(CoCreateInstance(managerClass, nullptr, anyContext, InterfaceId<ICapeThermoPropertyPackageManager>,
                                   manager.outVoid()),
                  S_OK);
        ComPointer<IDispatch> package;
        EXPECT_EQ(CoCreateInstance(standAloneClass, nullptr, anyContext, InterfaceId<IDispatch>, package.outVoid()),
                  S_OK);
        EXPECT_TRUE(as<ICapeThermoPropertyRoutine>(package.get()));
    }
    CoUninitialize();
}

// Natively there is no library of the other width; its program ids are put there by hand.
TEST_F(Registration, LeavesTheProgramIdsOfTheOtherWidth)
{
    const std::string mark = "a test's";
    for (const std::string &program : {managerProgram, packageProgram}) {
        const std::string key = program + otherWidth;
        const std::string before = registeredText(0, key); // a library may really be there
        if (before == "(none)") {
            RegistryKey::create(HKEY_CLASSES_ROOT, wide(key).c_str()).setText(nullptr, wide(mark));
        }
        const std::string expected = before == "(none)" ? mark : before;
        EXPECT_EQ(library.registerServer(), S_OK);
        EXPECT_EQ(registeredText(0, key), expected);
        EXPECT_EQ(library.unregisterServer(), S_OK);
        EXPECT_EQ(registeredText(0, key), expected);
        if (before == "(none)") {
            EXPECT_EQ(RegDeleteTreeW(HKEY_CLASSES_ROOT, wide(key).c_str()), ERROR_SUCCESS);
        }
    }
}

TEST_F(Registration, IsTakenBackWhole)
{
    ASSERT_EQ(library.unregisterServer(), S_OK);
    for (const std::string &key :
         {std::string(managerKey), std::string(packageKey), managerProgram + ownWidth, packageProgram + ownWidth})
        EXPECT_FALSE(keyExists(0, key)) << key;
    // The categories are everybody's.
    EXPECT_TRUE(keyExists(0, "Component Categories\\{CF51E383-0110-4ED8-ACB7-B50CFDE6908E}"));
    EXPECT_EQ(library.unregisterServer(), S_OK); // a second time finds nothing, which is no failure
}
