#include "tests/platform/scratch_key.h"

#include <algorithm>
#include <vector>

namespace {

std::vector<WideString> subKeys(HKEY key)
{
    std::vector<WideString> names;
    WCHAR name[256];
    for (DWORD index = 0;; ++index) {
        const LSTATUS status = RegEnumKeyW(key, index, name, 256);
        if (status != ERROR_SUCCESS) {
            EXPECT_EQ(status, ERROR_NO_MORE_ITEMS);
            return names;
        }
        names.emplace_back(name);
    }
}

LSTATUS open(HKEY parent, const WideString &path)
{
    HKEY key = nullptr;
    const LSTATUS status = RegOpenKeyExW(parent, path.c_str(), 0, KEY_READ, &key);
    if (status == ERROR_SUCCESS) {
        EXPECT_EQ(RegCloseKey(key), ERROR_SUCCESS);
    }
    return status;
}

} // namespace

TEST(Registry, FindsKeysWithoutRegardToCase)
{
    ScratchKey scratch;
    scratch.addKey(OLESTR("Implemented Categories\\{ABC}"));
    EXPECT_EQ(open(scratch.handle(), OLESTR("Implemented Categories\\{ABC}")), ERROR_SUCCESS);
    EXPECT_EQ(open(scratch.handle(), OLESTR("IMPLEMENTED categories\\{abc}")), ERROR_SUCCESS);
    EXPECT_EQ(open(HKEY_CLASSES_ROOT, scratch.name() + OLESTR("\\implemented categories")), ERROR_SUCCESS);
}

TEST(Registry, FindsKeysWithAccentsWithoutRegardToCase)
{
    ScratchKey scratch;
    scratch.addKey(OLESTR("\u00C9thane \u0394 \u0416"));
    EXPECT_EQ(open(scratch.handle(), OLESTR("\u00E9THANE \u03B4 \u0436")), ERROR_SUCCESS);
}

TEST(Registry, SaysThatAKeyIsMissing)
{
    ScratchKey scratch;
    scratch.addKey(OLESTR("a"));
    EXPECT_EQ(open(scratch.handle(), OLESTR("b")), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(open(scratch.handle(), OLESTR("a\\b")), ERROR_FILE_NOT_FOUND);
}

TEST(Registry, OpensTheKeyItselfWithoutAPath)
{
    ScratchKey scratch;
    scratch.addKey(OLESTR("a"));
    HKEY key = nullptr;
    ASSERT_EQ(RegOpenKeyExW(scratch.handle(), nullptr, 0, KEY_READ, &key), ERROR_SUCCESS);
    EXPECT_EQ(subKeys(key), std::vector<WideString>{OLESTR("a")});
    EXPECT_EQ(RegCloseKey(key), ERROR_SUCCESS);
}

TEST(Registry, EnumeratesKeysAsSpelledInOrderWithoutRegardToCase)
{
    ScratchKey scratch;
    const std::vector<WideString> sorted = {OLESTR("10"),  OLESTR("9"),   OLESTR("a"),     OLESTR("b"),
                                            OLESTR("B2"),  OLESTR("C"),   OLESTR("e"),     OLESTR("Z"),
                                            OLESTR("{a}"), OLESTR("{B}"), OLESTR("\u00E9")};
    std::vector<WideString> made = sorted;
    std::reverse(made.begin(), made.end());
    for (const WideString &name : made)
        scratch.addKey(name);
    EXPECT_EQ(subKeys(scratch.handle()), sorted);
}

TEST(Registry, EnumeratesNothingInAKeyWithoutKeys)
{
    ScratchKey scratch;
    EXPECT_EQ(subKeys(scratch.handle()), std::vector<WideString>{});
}

TEST(Registry, KeepsTheFirstSpellingOfAKey)
{
    ScratchKey scratch;
    scratch.addKey(OLESTR("Name"));
    scratch.addKey(OLESTR("NAME"));
    EXPECT_EQ(subKeys(scratch.handle()), std::vector<WideString>{OLESTR("Name")});
}

TEST(Registry, EnumeratesANameOnlyWhereItFits)
{
    ScratchKey scratch;
    scratch.addKey(OLESTR("four"));
    WCHAR name[5];
    EXPECT_EQ(RegEnumKeyW(scratch.handle(), 0, name, 4), ERROR_MORE_DATA);
    EXPECT_EQ(RegEnumKeyW(scratch.handle(), 0, name, 5), ERROR_SUCCESS);
    EXPECT_EQ(WideString(name), OLESTR("four"));
}

TEST(Registry, SaysWhetherAKeyIsNew)
{
    ScratchKey scratch;
    for (const DWORD expected : {1u, 2u}) { // created, opened
        HKEY key = nullptr;
        DWORD disposition = 0;
        EXPECT_EQ(
            RegCreateKeyExW(scratch.handle(), OLESTR("a\\b"), 0, nullptr, 0, KEY_READ, nullptr, &key, &disposition),
            ERROR_SUCCESS);
        EXPECT_EQ(disposition, expected);
        RegCloseKey(key);
    }
}

TEST(Registry, ReadsATextWithItsTypeAndItsSizeInBytes)
{
    ScratchKey scratch;
    scratch.setText(OLESTR("Name"), OLESTR("Peng-Robinson"));
    WCHAR text[64];
    DWORD type = 99;
    DWORD size = sizeof text;
    EXPECT_EQ(RegQueryValueExW(scratch.handle(), OLESTR("NAME"), nullptr, &type, reinterpret_cast<BYTE *>(text), &size),
              ERROR_SUCCESS);
    EXPECT_EQ(type, static_cast<DWORD>(REG_SZ));
    EXPECT_EQ(size, 28u); // thirteen characters and the terminator
    EXPECT_EQ(WideString(text), OLESTR("Peng-Robinson"));
}

TEST(Registry, TellsTheSizeOfAValueWithoutABuffer)
{
    ScratchKey scratch;
    scratch.setText(OLESTR("Name"), OLESTR("abc"), REG_EXPAND_SZ);
    DWORD type = 99;
    DWORD size = 0;
    EXPECT_EQ(RegQueryValueExW(scratch.handle(), OLESTR("Name"), nullptr, &type, nullptr, &size), ERROR_SUCCESS);
    EXPECT_EQ(type, static_cast<DWORD>(REG_EXPAND_SZ));
    EXPECT_EQ(size, 8u);
    EXPECT_EQ(RegQueryValueExW(scratch.handle(), OLESTR("Name"), nullptr, nullptr, nullptr, nullptr), ERROR_SUCCESS);
}

TEST(Registry, RefusesABufferThatIsTooSmallAndTellsTheSize)
{
    ScratchKey scratch;
    scratch.setText(OLESTR("Name"), OLESTR("abc"));
    WCHAR text[4] = {OLESTR('x'), 0, 0, 0};
    DWORD type = 99;
    DWORD size = 7;
    EXPECT_EQ(RegQueryValueExW(scratch.handle(), OLESTR("Name"), nullptr, &type, reinterpret_cast<BYTE *>(text), &size),
              ERROR_MORE_DATA);
    EXPECT_EQ(size, 8u);
    EXPECT_EQ(type, static_cast<DWORD>(REG_SZ));
    EXPECT_EQ(RegQueryValueExW(scratch.handle(), OLESTR("Name"), nullptr, &type, reinterpret_cast<BYTE *>(text), &size),
              ERROR_SUCCESS);
    EXPECT_EQ(WideString(text), OLESTR("abc"));
}

TEST(Registry, RefusesABufferWithoutASize)
{
    ScratchKey scratch;
    scratch.setText(OLESTR("Name"), OLESTR("abc"));
    BYTE buffer[16];
    EXPECT_EQ(RegQueryValueExW(scratch.handle(), OLESTR("Name"), nullptr, nullptr, buffer, nullptr),
              ERROR_INVALID_PARAMETER);
}

TEST(Registry, SaysThatAValueIsMissing)
{
    ScratchKey scratch;
    DWORD size = 0;
    EXPECT_EQ(RegQueryValueExW(scratch.handle(), OLESTR("Name"), nullptr, nullptr, nullptr, &size),
              ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(RegQueryValueExW(scratch.handle(), nullptr, nullptr, nullptr, nullptr, &size), ERROR_FILE_NOT_FOUND);
}

TEST(Registry, HasADefaultValueWithoutAName)
{
    ScratchKey scratch;
    scratch.setText(nullptr, OLESTR("default"));
    WCHAR text[16];
    for (const WCHAR *name : {static_cast<const WCHAR *>(nullptr), OLESTR("")}) {
        DWORD size = sizeof text;
        EXPECT_EQ(RegQueryValueExW(scratch.handle(), name, nullptr, nullptr, reinterpret_cast<BYTE *>(text), &size),
                  ERROR_SUCCESS);
        EXPECT_EQ(WideString(text), OLESTR("default"));
    }
}

TEST(Registry, GivesOtherTypesByteForByte)
{
    ScratchKey scratch;
    const BYTE stored[] = {1, 0, 255, 7, 9};
    ASSERT_EQ(RegSetValueExW(scratch.handle(), OLESTR("Bytes"), 0, REG_BINARY, stored, sizeof stored), ERROR_SUCCESS);
    BYTE read[8] = {42, 42, 42, 42, 42, 42, 42, 42};
    DWORD type = 99;
    DWORD size = sizeof read;
    EXPECT_EQ(RegQueryValueExW(scratch.handle(), OLESTR("Bytes"), nullptr, &type, read, &size), ERROR_SUCCESS);
    EXPECT_EQ(type, static_cast<DWORD>(REG_BINARY));
    ASSERT_EQ(size, 5u);
    EXPECT_EQ(std::vector<BYTE>(read, read + 8), (std::vector<BYTE>{1, 0, 255, 7, 9, 42, 42, 42}));
}

TEST(Registry, TerminatesATextThatWasStoredWithout)
{
    ScratchKey scratch;
    const WCHAR stored[] = {OLESTR('a'), OLESTR('b'), OLESTR('c')};
    ASSERT_EQ(RegSetValueExW(scratch.handle(), OLESTR("Name"), 0, REG_SZ, reinterpret_cast<const BYTE *>(stored),
                             2 * sizeof(WCHAR)),
              ERROR_SUCCESS);
    WCHAR text[4] = {OLESTR('x'), OLESTR('x'), OLESTR('x'), 0};
    DWORD size = 3 * sizeof(WCHAR);
    EXPECT_EQ(
        RegQueryValueExW(scratch.handle(), OLESTR("Name"), nullptr, nullptr, reinterpret_cast<BYTE *>(text), &size),
        ERROR_SUCCESS);
    EXPECT_EQ(size, 4u);
    EXPECT_EQ(WideString(text), OLESTR("ab"));
}

TEST(Registry, ReadsNarrowTexts)
{
    ScratchKey scratch;
    scratch.addKey(OLESTR("Inproc"));
    scratch.setText(nullptr, OLESTR("hhctrl.ocx"));
    const std::string narrowName(scratch.name().begin(), scratch.name().end());
    HKEY key = nullptr;
    ASSERT_EQ(RegOpenKeyExA(HKEY_CLASSES_ROOT, narrowName.c_str(), 0, KEY_READ, &key), ERROR_SUCCESS);
    char text[32];
    DWORD type = 99;
    DWORD size = 5;
    EXPECT_EQ(RegQueryValueExA(key, nullptr, nullptr, &type, reinterpret_cast<BYTE *>(text), &size), ERROR_MORE_DATA);
    size = sizeof text;
    EXPECT_EQ(RegQueryValueExA(key, "", nullptr, &type, reinterpret_cast<BYTE *>(text), &size), ERROR_SUCCESS);
    EXPECT_EQ(type, static_cast<DWORD>(REG_SZ));
    EXPECT_EQ(size, 11u);
    EXPECT_STREQ(text, "hhctrl.ocx");
    EXPECT_EQ(RegCloseKey(key), ERROR_SUCCESS);
    EXPECT_EQ(RegOpenKeyExA(HKEY_CLASSES_ROOT, (narrowName + "\\Outproc").c_str(), 0, KEY_READ, &key),
              ERROR_FILE_NOT_FOUND);
}

TEST(Registry, ReadsATextOfNoBytesAsNoBytes)
{
    ScratchKey scratch;
    ASSERT_EQ(RegSetValueExW(scratch.handle(), OLESTR("Value"), 0, REG_SZ, nullptr, 0), ERROR_SUCCESS);
    DWORD type = 0;
    DWORD size = 8;
    WCHAR wide[4];
    EXPECT_EQ(
        RegQueryValueExW(scratch.handle(), OLESTR("Value"), nullptr, &type, reinterpret_cast<LPBYTE>(wide), &size),
        ERROR_SUCCESS);
    EXPECT_EQ(type, REG_SZ);
    EXPECT_EQ(size, 0u);
    size = 8;
    BYTE narrow[8];
    EXPECT_EQ(RegQueryValueExA(scratch.handle(), "Value", nullptr, &type, narrow, &size), ERROR_SUCCESS);
    EXPECT_EQ(type, REG_SZ);
    EXPECT_EQ(size, 0u);
}

TEST(Registry, DeletesAKeyWithAllBelowIt)
{
    ScratchKey scratch;
    scratch.addKey(OLESTR("a\\b\\c"));
    scratch.addKey(OLESTR("d"));
    EXPECT_EQ(RegDeleteTreeW(scratch.handle(), OLESTR("A")), ERROR_SUCCESS);
    EXPECT_EQ(subKeys(scratch.handle()), std::vector<WideString>{OLESTR("d")});
    EXPECT_EQ(RegDeleteTreeW(scratch.handle(), OLESTR("a")), ERROR_FILE_NOT_FOUND);
}

TEST(Registry, RefusesHandlesThatAreNotOpen)
{
    ScratchKey scratch;
    HKEY key = nullptr;
    ASSERT_EQ(RegOpenKeyExW(scratch.handle(), nullptr, 0, KEY_READ, &key), ERROR_SUCCESS);
    EXPECT_EQ(RegCloseKey(key), ERROR_SUCCESS);
    EXPECT_EQ(RegCloseKey(key), ERROR_INVALID_HANDLE);
    EXPECT_EQ(RegCloseKey(nullptr), ERROR_INVALID_HANDLE);
    EXPECT_EQ(open(key, OLESTR("a")), ERROR_INVALID_HANDLE);
    WCHAR name[16];
    EXPECT_EQ(RegEnumKeyW(key, 0, name, 16), ERROR_INVALID_HANDLE);
    DWORD size = 0;
    EXPECT_EQ(RegQueryValueExW(key, nullptr, nullptr, nullptr, nullptr, &size), ERROR_INVALID_HANDLE);
}
