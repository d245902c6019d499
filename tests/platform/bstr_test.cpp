#include "platform/platform.h"

#include <gtest/gtest.h>

TEST(Bstr, KeepsItsLengthInFrontOfTheText)
{
    BSTR text = SysAllocString(OLESTR("ethane"));
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(WideString(text), OLESTR("ethane"));
    EXPECT_EQ(SysStringLen(text), 6u);
    EXPECT_EQ(SysStringByteLen(text), 12u);
    EXPECT_EQ(reinterpret_cast<const std::uint32_t *>(text)[-1], 12u);
    SysFreeString(text);
}

TEST(Bstr, OfANullTextIsNull) { EXPECT_EQ(SysAllocString(nullptr), nullptr); }

TEST(Bstr, NullHasLengthZeroAndCanBeFreed)
{
    EXPECT_EQ(SysStringLen(nullptr), 0u);
    EXPECT_EQ(SysStringByteLen(nullptr), 0u);
    SysFreeString(nullptr);
}

TEST(Bstr, OfAnEmptyTextIsNotNull)
{
    BSTR text = SysAllocString(OLESTR(""));
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(SysStringLen(text), 0u);
    EXPECT_EQ(text[0], 0);
    SysFreeString(text);
}

TEST(Bstr, TakesAPartOfATextAndTerminatesIt)
{
    BSTR text = SysAllocStringLen(OLESTR("n-butane"), 3);
    EXPECT_EQ(WideString(text), OLESTR("n-b"));
    EXPECT_EQ(SysStringLen(text), 3u);
    SysFreeString(text);
}

TEST(Bstr, KeepsTerminatorsInsideTheText)
{
    BSTR text = SysAllocStringLen(OLESTR("a\0b"), 3);
    EXPECT_EQ(SysStringLen(text), 3u);
    EXPECT_EQ(text[1], 0);
    EXPECT_EQ(text[2], OLESTR('b'));
    EXPECT_EQ(text[3], 0);
    SysFreeString(text);
}

TEST(Bstr, WithoutASourceHasRoomForTheLengthAskedFor)
{
    BSTR text = SysAllocStringLen(nullptr, 5);
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(SysStringLen(text), 5u);
    EXPECT_EQ(text[5], 0);
    for (int i = 0; i < 5; ++i)
        text[i] = static_cast<OLECHAR>(OLESTR('a') + i);
    EXPECT_EQ(WideString(text), OLESTR("abcde"));
    SysFreeString(text);
}
