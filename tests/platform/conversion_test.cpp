#include "platform/platform.h"

#include <gtest/gtest.h>

namespace {

std::string narrow(const WideString &text)
{
    char buffer[64];
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), buffer, sizeof buffer,
                                         nullptr, nullptr);
    return std::string(buffer, static_cast<std::size_t>(size));
}

WideString widen(const std::string &text)
{
    WCHAR buffer[64];
    const int size = MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), buffer, 64);
    return WideString(buffer, static_cast<std::size_t>(size));
}

struct Pair {
    WideString wide;
    std::string utf8;
};

// One for each length of a sequence, with the first and the last character that has it.
const Pair pairs[] = {
    {OLESTR("a\u007F"), "a\x7F"},
    {OLESTR("\u0080\u00E9\u07FF"), "\xC2\x80\xC3\xA9\xDF\xBF"},
    {OLESTR("\u0800\u20AC\uD7FF\uE000\uFFFD"), "\xE0\xA0\x80\xE2\x82\xAC\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBD"},
    {OLESTR("\U00010000\U0001F600\U0010FFFF"), "\xF0\x90\x80\x80\xF0\x9F\x98\x80\xF4\x8F\xBF\xBF"},
};

} // namespace

TEST(Utf8, IsWrittenForEveryLengthOfSequence)
{
    for (const Pair &pair : pairs)
        EXPECT_EQ(narrow(pair.wide), pair.utf8);
}

TEST(Utf8, IsReadForEveryLengthOfSequence)
{
    for (const Pair &pair : pairs)
        EXPECT_EQ(widen(pair.utf8), pair.wide);
}

TEST(Utf8, HasTheReplacementCharacterForHalvesOfPairs)
{
    const WCHAR high = 0xD83D;
    const WCHAR low = 0xDE00;
    EXPECT_EQ(narrow({OLESTR('a'), high}), "a\xEF\xBF\xBD");
    EXPECT_EQ(narrow({low, OLESTR('b')}), "\xEF\xBF\xBD"
                                          "b");
    EXPECT_EQ(narrow({high, OLESTR('b')}), "\xEF\xBF\xBD"
                                           "b");
    EXPECT_EQ(narrow({low, high}), "\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(Utf8, ReadsInvalidBytesAsTheReplacementCharacter)
{
    EXPECT_EQ(widen("a\xFF"
                    "b"),
              OLESTR("a\uFFFDb"));
    EXPECT_EQ(widen("a\x80"
                    "b"),
              OLESTR("a\uFFFDb"));                    // continues nothing
    EXPECT_EQ(widen("a\xE2\x82"), OLESTR("a\uFFFD")); // ends too early
    EXPECT_EQ(widen("\xE2\x82"
                    "b"),
              OLESTR("\uFFFDb")); // broken off
    EXPECT_EQ(widen("\xF0\x9F\x98"
                    "b"),
              OLESTR("\uFFFDb"));
}

TEST(Utf8, ReadsNoOverlongFormsAndNoSurrogates)
{
    for (const std::string text :
         {"\xC0\xAF", "\xE0\x80\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80"}) {
        const WideString read = widen(text);
        EXPECT_EQ(read, WideString(read.size(), WCHAR{0xFFFD}));
        EXPECT_GE(read.size(), 1u);
    }
}

TEST(WideCharToMultiByte, TakesATerminatedTextWithItsTerminator)
{
    char buffer[8] = {'x', 'x', 'x', 'x', 'x', 'x', 'x', 'x'};
    EXPECT_EQ(WideCharToMultiByte(CP_UTF8, 0, OLESTR("abc"), -1, buffer, 8, nullptr, nullptr), 4);
    EXPECT_STREQ(buffer, "abc");
    EXPECT_EQ(buffer[4], 'x');
}

TEST(WideCharToMultiByte, TellsTheSizeForACapacityOfZero)
{
    EXPECT_EQ(WideCharToMultiByte(CP_UTF8, 0, OLESTR("\u20AC"), -1, nullptr, 0, nullptr, nullptr), 4);
    EXPECT_EQ(WideCharToMultiByte(CP_UTF8, 0, OLESTR("\u20AC"), 1, nullptr, 0, nullptr, nullptr), 3);
}

TEST(WideCharToMultiByte, FailsWhereTheTextDoesNotFit)
{
    char buffer[4];
    SetLastError(0);
    EXPECT_EQ(WideCharToMultiByte(CP_UTF8, 0, OLESTR("abcd"), -1, buffer, 4, nullptr, nullptr), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INSUFFICIENT_BUFFER));
}

TEST(WideCharToMultiByte, RefusesANullTextAndALengthOfZero)
{
    char buffer[4];
    SetLastError(0);
    EXPECT_EQ(WideCharToMultiByte(CP_UTF8, 0, nullptr, -1, buffer, 4, nullptr, nullptr), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
    SetLastError(0);
    EXPECT_EQ(WideCharToMultiByte(CP_UTF8, 0, OLESTR("a"), 0, buffer, 4, nullptr, nullptr), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
}

TEST(WideCharToMultiByte, NarrowsPlainTextInTheThreadsCodePage)
{
    char buffer[16];
    EXPECT_EQ(WideCharToMultiByte(CP_THREAD_ACP, 0, OLESTR("no such phase"), -1, buffer, 16, nullptr, nullptr), 14);
    EXPECT_STREQ(buffer, "no such phase");
}

TEST(MultiByteToWideChar, TellsTheSizeAndFailsWhereTheTextDoesNotFit)
{
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, 0, "\xE2\x82\xAC", -1, nullptr, 0), 2);
    WCHAR buffer[2];
    SetLastError(0);
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, 0, "ab", -1, buffer, 2), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INSUFFICIENT_BUFFER));
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, 0, "a", -1, buffer, 2), 2);
    EXPECT_EQ(WideString(buffer), OLESTR("a"));
}
