#include "tests/support/automation_values.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

using namespace support;

TEST(TextOfTests, GoesThroughSixteenBitsAndBack)
{
    const std::string utf8 = "a\xC3\xA9\xE2\x82\xAC\xF0\x9D\x84\x9E"; // a, e acute, euro sign, G clef
    const WideString wide = Wide(utf8);
    ASSERT_EQ(wide.size(), 5u);
    EXPECT_EQ(static_cast<unsigned>(wide[0]), 0x61u);
    EXPECT_EQ(static_cast<unsigned>(wide[1]), 0xE9u);
    EXPECT_EQ(static_cast<unsigned>(wide[2]), 0x20ACu);
    EXPECT_EQ(static_cast<unsigned>(wide[3]), 0xD834u);
    EXPECT_EQ(static_cast<unsigned>(wide[4]), 0xDD1Eu);
    EXPECT_EQ(Narrow(wide), utf8);
}

TEST(ValuesOfTests, ArraysKeepTheirLowerBoundAndTheirElements)
{
    for (LONG lowerBound : {0, 1, -3}) {
        const Variant texts = TextArray({"a", "", "c"}, lowerBound);
        LONG lower = 99;
        LONG upper = 99;
        EXPECT_EQ(texts.value.vt, VT_ARRAY | VT_BSTR);
        EXPECT_EQ(SafeArrayGetLBound(texts.value.parray, 1, &lower), S_OK);
        EXPECT_EQ(SafeArrayGetUBound(texts.value.parray, 1, &upper), S_OK);
        EXPECT_EQ(lower, lowerBound);
        EXPECT_EQ(upper, lowerBound + 2);
        EXPECT_EQ(TextsOf(texts.value), Names({"a", "", "c"}));
        EXPECT_EQ(NumbersOf(NumberArray({1.5, -2}, lowerBound).value), (std::vector<double>{1.5, -2}));
        EXPECT_EQ(LongsOf(LongArray({7, 8}, lowerBound).value), (std::vector<LONG>{7, 8}));
    }
}

TEST(ValuesOfTests, AnEmptyVariantHasNoElements)
{
    EXPECT_TRUE(TextsOf(Variant().value).empty());
    EXPECT_TRUE(NumbersOf(NumberArray({}).value).empty());
}

TEST(ValuesOfTests, CopiesAreApart)
{
    Variant first = TextVariant("one");
    const Variant second = first;
    first = TextVariant("two");
    EXPECT_EQ(TextOf(second.value.bstrVal), Wide("one"));
    EXPECT_EQ(TextOf(first.value.bstrVal), Wide("two"));
}

TEST(ValuesOfTests, ArraysHoldAnyVariants)
{
    const Variant array = ArrayOfVariants({RealVariant(2.5), TextVariant("x"), LongVariant(3)});
    LONG index = 1;
    Variant element;
    EXPECT_EQ(SafeArrayGetElement(array.value.parray, &index, &element.value), S_OK);
    EXPECT_EQ(TextOf(element.value.bstrVal), Wide("x"));
}

TEST(ValuesOfTests, ReadingAnotherTypeOrTwoDimensionsFailsTheTest)
{
    static const Variant numbers = NumberArray({1});
    static const Variant twoDimensional = TwoDimensionalArray(VT_R8, 2, 2);
    EXPECT_NONFATAL_FAILURE(TextsOf(numbers.value), "no one-dimensional array");
    EXPECT_NONFATAL_FAILURE(NumbersOf(twoDimensional.value), "no one-dimensional array");
}
