// What discovery asks of the registry, and what it makes of a registry that fails.
#include "tests/mex/support/library_call.h"
#include "tests/support/mex_test.h"

#include <memory>
#include <set>

using namespace support;

namespace {

constexpr const char *counterId1 = "{0000A001-3B1C-4D0A-9E55-216B0C5FA810}";
constexpr const char *counterId2 = "{0000A002-3B1C-4D0A-9E55-216B0C5FA810}";
constexpr const char *oldId = "{0000A003-3B1C-4D0A-9E55-216B0C5FA810}";
constexpr LSTATUS accessDenied = 5;

// Every registry call of the library that concerns the classes of a test, as one line of text; the rest of the
// machine's registry passes by in silence. A call can be made to fail.
class RegistryCalls {
public:
    explicit RegistryCalls(int failingCall = 0) : failing(failingCall) {}

    std::string failingText; // the calls whose text this is fail too
    std::vector<std::string> made;
    int opened = 0; // all keys, of the test's classes or not
    int closed = 0;
    std::set<REGSAM> accessMasks;

    bool failureIsPending() const { return failing > 0; }

private:
    bool strikes(const std::string &text)
    {
        made.push_back(text);
        return (failing > 0 && --failing == 0) || text == failingText;
    }
    static bool isOurs(const std::string &text) { return text.find("{0000A00") != std::string::npos; }
    static bool isRoot(const std::string &text) { return text == "CLSID" || text == "WOW6432Node\\CLSID"; }

    int failing;
    std::set<HKEY> ours;

    LibraryCall<"RegOpenKeyExW", decltype(RegOpenKeyExW)> opens{
        RegOpenKeyExW, [this](HKEY parent, LPCWSTR path, DWORD options, REGSAM access, PHKEY key) {
            accessMasks.insert(access);
            const std::string text = Narrow(path);
            const bool own = isOurs(text) || isRoot(text);
            if (own && strikes("open " + text))
                return accessDenied;
            const LSTATUS status = RegOpenKeyExW(parent, path, options, access, key);
            if (status == ERROR_SUCCESS) {
                ++opened;
                if (own && text.ends_with("\\CapeDescription"))
                    ours.insert(*key);
            }
            return status;
        }};
    LibraryCall<"RegEnumKeyW", decltype(RegEnumKeyW)> enumerations{
        RegEnumKeyW, [this](HKEY key, DWORD index, LPWSTR name, DWORD capacity) {
            EXPECT_EQ(capacity, 1024u);
            const LSTATUS status = RegEnumKeyW(key, index, name, capacity);
            if (status == ERROR_SUCCESS && isOurs(Narrow(name)) && strikes("name " + Narrow(name)))
                return accessDenied;
            return status;
        }};
    LibraryCall<"RegQueryValueExW", decltype(RegQueryValueExW)> queries{
        RegQueryValueExW, [this](HKEY key, LPCWSTR name, LPDWORD reserved, LPDWORD type, LPBYTE data, LPDWORD size) {
            if (ours.count(key) && strikes("value " + Narrow(name) + " of " + std::to_string(*size)))
                return accessDenied;
            return RegQueryValueExW(key, name, reserved, type, data, size);
        }};
    LibraryCall<"RegCloseKey", decltype(RegCloseKey)> closes{RegCloseKey, [this](HKEY key) {
                                                                 ++closed;
                                                                 ours.erase(key);
                                                                 return RegCloseKey(key);
                                                             }};
};

// "first" and "second" of the native view, "old" of the 32-bit view alone.
class RegistryUse : public MexTest {
protected:
    void SetUp() override
    {
        MexTest::SetUp();
        world.registry().add(PackageClass("first", counterId1));
        world.registry().add(PackageClass("second", counterId2));
        world.registry().add(In32BitView(PackageClass("old", oldId)));
    }

    std::vector<WideString> listed() { return mustReturn(1, {Scalar(1)})[0].texts(); }

    std::vector<WideString> listedWithout(const std::string &call)
    {
        RegistryCalls calls;
        calls.failingText = call;
        return listed();
    }
};

std::string managerKey(const std::string &classId)
{
    return "open " + classId + "\\Implemented Categories\\{CF51E383-0110-4ed8-ACB7-B50CFDE6908E}";
}
std::string packageKey(const std::string &classId)
{
    return "open " + classId + "\\Implemented Categories\\{CF51E384-0110-4ed8-ACB7-B50CFDE6908E}";
}
std::string descriptionKey(const std::string &classId) { return "open " + classId + "\\CapeDescription"; }

} // namespace

TEST_F(RegistryUse, AsksForEachClassItsNameItsCategoriesAndItsDescription)
{
    world.registry().add(ManagerClass("manager", "{0000A004-3B1C-4D0A-9E55-216B0C5FA810}"));
    RegisteredClass none = PackageClass("none", "{0000A005-3B1C-4D0A-9E55-216B0C5FA810}");
    none.categories.clear();
    world.registry().add(none);
    const std::string managerId = "{0000A004-3B1C-4D0A-9E55-216B0C5FA810}";
    const std::string noneId = "{0000A005-3B1C-4D0A-9E55-216B0C5FA810}";
    RegistryCalls calls;
    listed();
    EXPECT_EQ(calls.made, (std::vector<std::string>{"open CLSID",
                                                    std::string("name ") + counterId1,
                                                    managerKey(counterId1),
                                                    packageKey(counterId1),
                                                    descriptionKey(counterId1),
                                                    "value Name of 1024",
                                                    std::string("name ") + counterId2,
                                                    managerKey(counterId2),
                                                    packageKey(counterId2),
                                                    descriptionKey(counterId2),
                                                    "value Name of 1024",
                                                    "name " + managerId,
                                                    managerKey(managerId),
                                                    descriptionKey(managerId),
                                                    "value Name of 1024",
                                                    "name " + noneId,
                                                    managerKey(noneId),
                                                    packageKey(noneId),
                                                    "open WOW6432Node\\CLSID",
                                                    std::string("name ") + oldId,
                                                    managerKey(oldId),
                                                    packageKey(oldId),
                                                    descriptionKey(oldId),
                                                    "value Name of 1024"}));
}

TEST_F(RegistryUse, OpensKeysForReadingAndClosesEachAgain)
{
    RegistryCalls calls;
    listed();
    EXPECT_EQ(calls.accessMasks, std::set<REGSAM>{0x20019});
    EXPECT_GE(calls.opened, 8);
    EXPECT_EQ(calls.closed, calls.opened);
}

TEST_F(RegistryUse, IsOverAfterTheFirstListing)
{
    listed();
    RegistryCalls calls;
    listed();
    mustReturn(1, {Scalar(2), Text("first")});
    refusal(1, {Scalar(2), Text("nobody")});
    refusal(1, {Scalar(3), Text("nobody"), Text("")});
    EXPECT_EQ(calls.opened, 0);
    EXPECT_EQ(calls.made, std::vector<std::string>());
}

TEST_F(RegistryUse, ANativeRootThatCannotBeOpenedLeavesThe32BitView)
{
    EXPECT_EQ(listedWithout("open CLSID"), Names({"old"}));
}

TEST_F(RegistryUse, A32BitRootThatCannotBeOpenedLeavesTheNativeView)
{
    EXPECT_EQ(listedWithout("open WOW6432Node\\CLSID"), Names({"first", "second"}));
}

TEST_F(RegistryUse, ASubKeyThatCannotBeReadIsSkippedAndTheNextIsTried)
{
    EXPECT_EQ(listedWithout(std::string("name ") + counterId1), Names({"second", "old"}));
}

TEST_F(RegistryUse, ACategoryThatCannotBeOpenedIsNoCategory)
{
    EXPECT_EQ(listedWithout(packageKey(counterId1)), Names({"second", "old"}));
}

TEST_F(RegistryUse, ADescriptionThatCannotBeOpenedLeavesTheClassId)
{
    EXPECT_EQ(listedWithout(descriptionKey(counterId1)), Names({counterId1, "second", "old"}));
}

TEST_F(RegistryUse, ANameThatCannotBeReadLeavesTheClassId)
{
    EXPECT_EQ(listedWithout("value Name of 1024"), Names({counterId1, counterId2, oldId}));
}

TEST_F(RegistryUse, WhateverCallFailsTheListIsMadeAndEveryKeyIsClosed)
{
    int call = 0;
    bool failed = true;
    while (failed) {
        SCOPED_TRACE(++call);
        ASSERT_LT(call, 100);
        {
            RegistryCalls calls(call);
            EXPECT_LE(listed().size(), 3u);
            EXPECT_EQ(calls.closed, calls.opened);
            failed = !calls.failureIsPending();
        }
        matlab.clear();
        matlab.load();
    }
    EXPECT_GT(call, 15);
}

TEST_F(RegistryUse, AScanThatFailedIsNotRepeated)
{
    EXPECT_EQ(listedWithout("open CLSID"), Names({"old"}));
    EXPECT_EQ(listed(), Names({"old"}));
}

TEST_F(RegistryUse, WithoutMemoryForTheScanTheListStaysEmpty)
{
    {
        const NoMemoryFor buffer(1024 * sizeof(WCHAR));
        RegistryCalls calls;
        EXPECT_EQ(listed(), Names({}));
        EXPECT_EQ(buffer.refused(), 1);
        EXPECT_EQ(calls.opened, 0);
    }
    EXPECT_EQ(listed(), Names({}));
    EXPECT_EQ(refusal(1, {Scalar(3), Text("first"), Text("")}), "no such package manager: \"first\"");
}

// A registry that fails without end would keep the scan, and MATLAB, for ever.
TEST_F(RegistryUse, OfAViewThatNeverSaysItIsAtItsEndEnds)
{
    int asked = 0;
    LibraryCall<"RegEnumKeyW", decltype(RegEnumKeyW)> enumerations(
        RegEnumKeyW, [&](HKEY key, DWORD index, LPWSTR name, DWORD capacity) -> LSTATUS {
            ++asked;
            const LSTATUS status = RegEnumKeyW(key, index, name, capacity);
            return status == ERROR_NO_MORE_ITEMS ? accessDenied : status;
        });
    EXPECT_EQ(listed(), Names({"first", "second", "old"}));
    EXPECT_GT(asked, 2 * 10000) << "a key that can't be read is no end";
}
