#include "tests/support/message_boxes.h"

#include "tests/support/text.h"

#include <gtest/gtest.h>

using namespace support;

TEST(MessageBoxesOfTheProcess, AreAnsweredAndKeptInOrder)
{
    MessageBoxes boxes;
    EXPECT_EQ(MessageBoxW(nullptr, OLESTR("first text"), OLESTR("Caption 1"), MB_ICONINFORMATION), IDOK);
    EXPECT_EQ(MessageBoxW(nullptr, OLESTR("second text"), OLESTR("Caption 2"), MB_ICONINFORMATION), IDOK);
    EXPECT_EQ(boxes.shown(), (std::vector<ShownMessage>{{Wide("first text"), Wide("Caption 1")},
                                                        {Wide("second text"), Wide("Caption 2")}}));
}
