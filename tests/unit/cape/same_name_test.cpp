#include "cape/same_name.h"

#include <gtest/gtest.h>

TEST(SameName, DoesNotRegardCase)
{
    EXPECT_TRUE(SameName(OLESTR("vaporFraction"), OLESTR("VAPORfraction")));
    EXPECT_TRUE(SameName(OLESTR("\u00C9thane"), OLESTR("\u00E9THANE")));
    EXPECT_FALSE(SameName(OLESTR("vapor"), OLESTR("liquid")));
}

TEST(SameName, ANullEqualsNullAndEmptyAndNothingElse)
{
    EXPECT_TRUE(SameName(nullptr, nullptr));
    EXPECT_TRUE(SameName(nullptr, OLESTR("")));
    EXPECT_TRUE(SameName(OLESTR(""), nullptr));
    EXPECT_FALSE(SameName(nullptr, OLESTR("a")));
    EXPECT_FALSE(SameName(OLESTR("a"), nullptr));
}

TEST(SameName, OneNameInFrontOfAnotherIsAnotherName)
{
    EXPECT_FALSE(SameName(OLESTR("enthalpy"), OLESTR("enthalpyF")));
    EXPECT_FALSE(SameName(OLESTR("enthalpyF"), OLESTR("enthalpy")));
    EXPECT_FALSE(SameName(OLESTR(""), OLESTR("a")));
}

TEST(SameName, SignsBesideTheLettersAreNotFolded)
{
    // '@' and '`', '[' and '{' differ by the bit that tells upper from lower case.
    EXPECT_FALSE(SameName(OLESTR("a@"), OLESTR("a`")));
    EXPECT_FALSE(SameName(OLESTR("[x"), OLESTR("{x")));
}

TEST(SameName, AnAccentMatters) { EXPECT_FALSE(SameName(OLESTR("\u00E9thane"), OLESTR("ethane"))); }

TEST(SameName, NamesThatDifferBehindAnAccentAreOthers)
{
    EXPECT_FALSE(SameName(OLESTR("\u00E9thane"), OLESTR("\u00E9thene")));
    EXPECT_FALSE(SameName(OLESTR("\u00E9"), OLESTR("\u00E9t")));
}
