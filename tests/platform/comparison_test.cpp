#include "platform/platform.h"

#include <gtest/gtest.h>

TEST(Lstrcmp, TellsEqualTextsFromOthers)
{
    EXPECT_EQ(lstrcmpW(OLESTR("ethane"), OLESTR("ethane")), 0);
    EXPECT_NE(lstrcmpW(OLESTR("ethane"), OLESTR("Ethane")), 0);
    EXPECT_NE(lstrcmpW(OLESTR("ethane"), OLESTR("ethan")), 0);
    EXPECT_NE(lstrcmpW(OLESTR("ethane"), OLESTR("")), 0);
}

TEST(Lstrcmp, PutsLettersInOrder)
{
    EXPECT_EQ(lstrcmpW(OLESTR("butane"), OLESTR("ethane")), -1);
    EXPECT_EQ(lstrcmpW(OLESTR("ethane"), OLESTR("butane")), 1);
    EXPECT_EQ(lstrcmpW(OLESTR("ethan"), OLESTR("ethane")), -1);
}

TEST(Lstrcmp, PutsNullBeforeEveryText)
{
    EXPECT_EQ(lstrcmpW(nullptr, nullptr), 0);
    EXPECT_EQ(lstrcmpW(nullptr, OLESTR("")), -1);
    EXPECT_EQ(lstrcmpW(OLESTR(""), nullptr), 1);
    EXPECT_EQ(lstrcmpiW(nullptr, nullptr), 0);
    EXPECT_EQ(lstrcmpiW(nullptr, OLESTR("a")), -1);
    EXPECT_EQ(lstrcmpiW(OLESTR("a"), nullptr), 1);
}

TEST(Lstrcmpi, PassesOverCase)
{
    EXPECT_EQ(lstrcmpiW(OLESTR("temperatureDerivative"), OLESTR("TEMPERATUREdERIVATIVE")), 0);
    EXPECT_EQ(lstrcmpiW(OLESTR("{cf51e383}"), OLESTR("{CF51E383}")), 0);
    EXPECT_EQ(lstrcmpiW(OLESTR("BUTANE"), OLESTR("ethane")), -1);
    EXPECT_EQ(lstrcmpiW(OLESTR("ethane"), OLESTR("BUTANE")), 1);
    EXPECT_NE(lstrcmpiW(OLESTR("ethane"), OLESTR("ethanes")), 0);
}

TEST(Lstrcmpi, PassesOverTheCaseOfAccentedGreekAndCyrillicLetters)
{
    EXPECT_EQ(lstrcmpiW(OLESTR("\u00E9\u00E8\u00FC\u00F1\u00E5\u00F8\u00E7\u00FE"),
                        OLESTR("\u00C9\u00C8\u00DC\u00D1\u00C5\u00D8\u00C7\u00DE")),
              0); // Latin 1
    EXPECT_EQ(lstrcmpiW(OLESTR("\u0105\u010D\u0142\u0151\u0161\u017E\u00FF"),
                        OLESTR("\u0104\u010C\u0141\u0150\u0160\u017D\u0178")),
              0); // Polish, Czech, Hungarian, y diaeresis
    EXPECT_EQ(lstrcmpiW(OLESTR("\u03B1\u03B3\u03C6\u03C9\u03AC\u03CE"), OLESTR("\u0391\u0393\u03A6\u03A9\u0386\u038F")),
              0);
    EXPECT_EQ(lstrcmpiW(OLESTR("\u0430\u044F\u0451\u0457\u0491"), OLESTR("\u0410\u042F\u0401\u0407\u0490")), 0);
}

TEST(Lstrcmpi, KeepsAccentsApartFromPlainLetters)
{
    EXPECT_NE(lstrcmpiW(OLESTR("\u00E9thane"), OLESTR("ethane")), 0);
    EXPECT_NE(lstrcmpiW(OLESTR("\u00F8"), OLESTR("\u00D6")), 0);
}

TEST(Lstrlen, CountsUnits)
{
    EXPECT_EQ(lstrlenW(nullptr), 0);
    EXPECT_EQ(lstrlenW(OLESTR("")), 0);
    EXPECT_EQ(lstrlenW(OLESTR("abc")), 3);
}
