#include "platform/native/seam.h"
#include "platform/native/text.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::u16string shown;

int remember(HWND, LPCWSTR text, LPCWSTR caption, UINT style)
{
    shown = std::u16string(caption) + u"|" + text;
    return static_cast<int>(style);
}

} // namespace

TEST(MessageBox, IsWrittenToTheTerminal)
{
    testing::internal::CaptureStderr();
    EXPECT_EQ(MessageBoxW(nullptr, u"50% \u00E9thane", u"A package", MB_ICONINFORMATION), IDOK);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "A package\n50% \xC3\xA9thane\n");
}

TEST(MessageBox, CanDoWithoutTexts)
{
    testing::internal::CaptureStderr();
    EXPECT_EQ(MessageBoxW(nullptr, nullptr, nullptr, 0), IDOK);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Error\n\n");
}

TEST(MessageBox, IsReplacedByATest)
{
    seam::messageBox = remember;
    EXPECT_EQ(MessageBoxW(nullptr, u"text", u"caption", 64), 64);
    seam::messageBox = nullptr;
    EXPECT_EQ(shown, u"caption|text");
}
