#include "material/parse_basis.h"
#include "tests/unit/material/package_view.h"

#include <gtest/gtest.h>

namespace {

BasisCode parsed(LPCWSTR text)
{
    BasisCode code = static_cast<BasisCode>(77);
    WideString error = OLESTR("untouched");
    EXPECT_TRUE(ParseBasis(text, code, error));
    EXPECT_EQ(Ascii(error), "untouched");
    return code;
}

TEST(ParseBasis, TakesNullAndEmptyForNoBasis)
{
    EXPECT_EQ(parsed(nullptr), 0);
    EXPECT_EQ(parsed(OLESTR("")), 0);
}

TEST(ParseBasis, GivesOneForMassInAnyCase)
{
    EXPECT_EQ(parsed(OLESTR("mass")), 1);
    EXPECT_EQ(parsed(OLESTR("MaSS")), 1);
}

TEST(ParseBasis, GivesTwoForMoleInAnyCase)
{
    EXPECT_EQ(parsed(OLESTR("mole")), 2);
    EXPECT_EQ(parsed(OLESTR("MOLE")), 2);
}

TEST(ParseBasis, RefusesAnUnknownWord)
{
    for (LPCWSTR word : {OLESTR("volume"), OLESTR("molar"), OLESTR(" mole"), OLESTR("mol")}) {
        BasisCode code = MassBasis;
        WideString error;
        EXPECT_FALSE(ParseBasis(word, code, error));
        EXPECT_EQ(code, MassBasis);
        EXPECT_EQ(Ascii(error), "Invalid or unsupported basis: " + Ascii(word));
    }
}

} // namespace
