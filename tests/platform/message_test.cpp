#include "platform/platform.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace {

constexpr DWORD fromTemplate = FORMAT_MESSAGE_FROM_STRING | FORMAT_MESSAGE_ARGUMENT_ARRAY;
constexpr DWORD fromSystem = FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS;
constexpr DWORD neutral = 0x400;

WideString format(const WCHAR *source, DWORD_PTR first, DWORD_PTR second = 0)
{
    DWORD_PTR arguments[] = {first, second};
    WCHAR buffer[256];
    const DWORD length =
        FormatMessageW(fromTemplate, source, 0, neutral, buffer, 256, reinterpret_cast<MessageInserts *>(arguments));
    EXPECT_EQ(buffer[length], 0);
    return WideString(buffer, length);
}

} // namespace

TEST(FormatMessage, PutsAResultCodeIntoATemplate)
{
    EXPECT_EQ(format(OLESTR("error code 0x%1!08X!"), 0x80004005u), OLESTR("error code 0x80004005"));
    EXPECT_EQ(format(OLESTR("error code 0x%1!08X!"), 0xABCu), OLESTR("error code 0x00000ABC"));
}

TEST(FormatMessage, TakesInsertsInAnyOrder)
{
    EXPECT_EQ(format(OLESTR("%2!u! of %1!d!"), static_cast<DWORD_PTR>(-7), 9), OLESTR("9 of -7"));
    EXPECT_EQ(format(OLESTR("<%1!5d!|%2!x!>"), 42, 255), OLESTR("<   42|ff>"));
}

TEST(FormatMessage, TakesTextsWithAndWithoutAFormat)
{
    const WCHAR *text = OLESTR("butane");
    EXPECT_EQ(format(OLESTR("%1 and %2!s!"), reinterpret_cast<DWORD_PTR>(text), reinterpret_cast<DWORD_PTR>(text)),
              OLESTR("butane and butane"));
}

TEST(FormatMessage, HasEscapes)
{
    EXPECT_EQ(format(OLESTR("100%% %1!u!%!"), 5), OLESTR("100% 5!"));
    EXPECT_EQ(format(OLESTR("a%nb"), 0), OLESTR("a\r\nb"));
    EXPECT_EQ(format(OLESTR("a%0b"), 0), OLESTR("a"));
}

TEST(FormatMessage, LeavesInsertsAloneWhenAskedTo)
{
    WCHAR buffer[32];
    EXPECT_EQ(FormatMessageW(FORMAT_MESSAGE_FROM_STRING | FORMAT_MESSAGE_IGNORE_INSERTS, OLESTR("0x%1!08X!"), 0,
                             neutral, buffer, 32, nullptr),
              9u);
    EXPECT_EQ(WideString(buffer), OLESTR("0x%1!08X!"));
}

TEST(FormatMessage, FailsWhereTheTextDoesNotFit)
{
    WCHAR buffer[4];
    SetLastError(0);
    EXPECT_EQ(FormatMessageW(FORMAT_MESSAGE_FROM_STRING | FORMAT_MESSAGE_IGNORE_INSERTS, OLESTR("abcd"), 0, neutral,
                             buffer, 4, nullptr),
              0u);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INSUFFICIENT_BUFFER));
}

TEST(FormatMessage, HasTheSystemsWordsWithALineEnd)
{
    for (const HRESULT result : {E_NOTIMPL, E_FAIL, E_ACCESSDENIED, E_INVALIDARG, E_OUTOFMEMORY}) {
        WCHAR buffer[256];
        const DWORD length =
            FormatMessageW(fromSystem, nullptr, static_cast<DWORD>(result), neutral, buffer, 256, nullptr);
        ASSERT_GT(length, 4u) << std::hex << result;
        EXPECT_EQ(WideString(buffer, length).substr(length - 2), OLESTR("\r\n"));
    }
}

TEST(FormatMessage, SaysThatTheSystemHasNoWords)
{
    // The first code behind the CAPE-OPEN block, and the last of it.
    for (const DWORD code : {0x8004051Bu, 0x8004051Au}) {
        WCHAR buffer[256];
        SetLastError(0);
        EXPECT_EQ(FormatMessageW(fromSystem, nullptr, code, neutral, buffer, 256, nullptr), 0u);
        EXPECT_EQ(GetLastError(), 317u); // ERROR_MR_MID_NOT_FOUND
    }
}

TEST(Swprintf, FormatsNumbers)
{
    WCHAR buffer[64];
    EXPECT_EQ(swprintf(buffer, 64, OLESTR("version: %d.%d.%d.%d"), 2, 0, 0, 4), 16);
    EXPECT_EQ(WideString(buffer), OLESTR("version: 2.0.0.4"));
    EXPECT_EQ(swprintf(buffer, 64, OLESTR("%5.2f|%08X"), 3.14159, 0xABCDu), 14);
    EXPECT_EQ(WideString(buffer), OLESTR(" 3.14|0000ABCD"));
}

TEST(ExpandEnvironmentStrings, PutsInValuesAndKeepsUnknownNames)
{
    const std::string path = std::getenv("PATH");
    std::string expanded(path.size() + 4, '?');
    EXPECT_EQ(ExpandEnvironmentStringsA("<%PATH%>", expanded.data(), static_cast<DWORD>(expanded.size())),
              path.size() + 3);
    EXPECT_EQ(expanded.c_str(), "<" + path + ">");
    char text[64];
    EXPECT_EQ(ExpandEnvironmentStringsA("50% of %VERDANTH_TEST_NOT_SET% stay", text, 64), 36u);
    EXPECT_STREQ(text, "50% of %VERDANTH_TEST_NOT_SET% stay");
}

TEST(ExpandEnvironmentStrings, TellsTheSizeWhereTheTextDoesNotFit)
{
    char text[4];
    EXPECT_EQ(ExpandEnvironmentStringsA("abcdef", text, 4), 7u);
}

TEST(GetTickCount, GoesOn)
{
    const DWORD start = GetTickCount();
    while (GetTickCount() == start) {
    }
    EXPECT_LT(GetTickCount() - start, 10000u);
}
