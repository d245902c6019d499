#include "properties/property_keys.h"

#include "tests/unit/support/allocation_watch.h"

#include <gtest/gtest.h>

namespace {

TEST(LowerCharacter, TurnsOnlyTheCapitalsOfTheAlphabet)
{
    EXPECT_EQ(OLESTR('a'), LowerCharacter(OLESTR('A')));
    EXPECT_EQ(OLESTR('z'), LowerCharacter(OLESTR('Z')));
    for (const WCHAR other : {OLESTR('@'), OLESTR('['), OLESTR('`'), OLESTR('{'), OLESTR('a'), OLESTR('z'), OLESTR('7'),
                              OLESTR('.'), OLESTR(':'), OLESTR(' '), OLESTR('\u00C4'), OLESTR('\u0130')})
        EXPECT_EQ(other, LowerCharacter(other));
}

TEST(WSTRMapKey, KeepsItsTextAsItStands)
{
    const WSTRMapKey key(OLESTR("Enthalpy.Dpressure"));
    EXPECT_EQ(OLESTR("Enthalpy.Dpressure"), WideString(key.GetKeyText()));
}

TEST(WSTRMapKeyString, LowerCasesItsText)
{
    const WSTRMapKeyString key(OLESTR("triplePointTemperature "));
    EXPECT_EQ(OLESTR("triplepointtemperature "), WideString(key.GetKeyText()));
}

TEST(WSTRMapKeyString, KeepsAnAccentedCapital)
{
    const WSTRMapKeyString capital(OLESTR("\u00C4ther"));
    const WSTRMapKeyString small(OLESTR("\u00E4ther"));
    EXPECT_EQ(OLESTR("\u00C4ther"), WideString(capital.GetKeyText()));
    EXPECT_FALSE(WSTRMapKeyEqual()(capital, small));
}

TEST(WSTRMapKeyStringNoDeriv, CutsAtTheFirstDot)
{
    EXPECT_EQ(OLESTR("enthalpy"), WideString(WSTRMapKeyStringNoDeriv(OLESTR("enthalpy.dmoles")).GetKeyText()));
    EXPECT_EQ(OLESTR("a"), WideString(WSTRMapKeyStringNoDeriv(OLESTR("a.b.c")).GetKeyText()));
    EXPECT_EQ(OLESTR(""), WideString(WSTRMapKeyStringNoDeriv(OLESTR(".dmoles")).GetKeyText()));
    EXPECT_EQ(OLESTR("enthalpy"), WideString(WSTRMapKeyStringNoDeriv(OLESTR("enthalpy.")).GetKeyText()));
}

TEST(WSTRMapKeyStringNoDeriv, KeepsANameWithoutADotWhole)
{
    EXPECT_EQ(OLESTR("enthalpy"), WideString(WSTRMapKeyStringNoDeriv(OLESTR("enthalpy")).GetKeyText()));
    EXPECT_EQ(OLESTR(""), WideString(WSTRMapKeyStringNoDeriv(OLESTR("")).GetKeyText()));
}

TEST(WSTRMapKeyStringNoDeriv, DoesNoLowerCasing)
{
    EXPECT_EQ(OLESTR("Enthalpy"), WideString(WSTRMapKeyStringNoDeriv(OLESTR("Enthalpy.Dmoles")).GetKeyText()));
}

TEST(WSTRMapKeyPtr, GivesTheBorrowedPointerItself)
{
    const LPCWSTR text = OLESTR("volume");
    EXPECT_EQ(text, WSTRMapKeyPtr(text).GetKeyText());
}

TEST(WSTRMapKeyEqual, ComparesCharacterForCharacter)
{
    const WSTRMapKeyEqual equal;
    EXPECT_TRUE(equal(WSTRMapKeyPtr(OLESTR("volume")), WSTRMapKeyString(OLESTR("VOLUME"))));
    EXPECT_FALSE(equal(WSTRMapKeyPtr(OLESTR("Volume")), WSTRMapKeyPtr(OLESTR("volume"))));
    EXPECT_FALSE(equal(WSTRMapKeyPtr(OLESTR("volum")), WSTRMapKeyPtr(OLESTR("volume"))));
    EXPECT_FALSE(equal(WSTRMapKeyPtr(OLESTR("co-op")), WSTRMapKeyPtr(OLESTR("coop"))));
    EXPECT_TRUE(equal(WSTRMapKeyPtr(OLESTR("")), WSTRMapKeyPtr(OLESTR(""))));
}

TEST(HashName, OfAnEmptyTextIsTheSeed) { EXPECT_EQ(0x811C9DC5u, HashName(OLESTR(""))); }

// 0x811C9DC5 = 2166136261 and 0x1000193 = 16777619; their product is 36342608889142559, which 64 bits
// hold without wrapping and 32 bits do not. The published 32-bit hash of "a" is 0xE40C292C (xor
// first) or 0x050C5D7E (multiply first).
TEST(HashName, MultipliesFirstAndRunsInSixtyFourBits)
{
    EXPECT_EQ(36342608889142559u ^ 0x61u, HashName(OLESTR("a")));
    EXPECT_EQ(0x00811D69050C5D7Eu, HashName(OLESTR("a")));
}

// (0x00811D69050C5D7E * 0x1000193) mod 2^64 = 0x344658B070772D5A, xor 0x62 = 0x344658B070772D38;
// the value of "temperature" from the same recurrence in whole numbers of any length.
TEST(HashName, WrapsAtSixtyFourBits)
{
    EXPECT_EQ(0x344658B070772D38u, HashName(OLESTR("ab")));
    EXPECT_EQ(0x3B31BD4335A123F9u, HashName(OLESTR("temperature")));
}

TEST(HashName, TakesInAllSixteenBitsOfACharacter)
{
    EXPECT_EQ(36342608889142559u ^ 0xFFFFu, HashName(OLESTR("\uFFFF")));
}

TEST(HashName, IsSensitiveToCase) { EXPECT_NE(HashName(OLESTR("Volume")), HashName(OLESTR("volume"))); }

TEST(LowerName, CopiesLowerCased)
{
    EXPECT_EQ(OLESTR("fugacity.dmoles"), WideString(LowerName(OLESTR("Fugacity.Dmoles")).text()));
}

TEST(LowerName, OfANullNameIsEmpty) { EXPECT_EQ(WideString(), LowerName(nullptr).text()); }

TEST(LowerName, AllocatesNothingUpToOneHundredAndTwentySevenCharacters)
{
    const WideString name(127, OLESTR('Q'));
    const AllocationWatch watch;
    const LowerName lowerName(name.c_str());
    const std::size_t allocations = watch.count();
    EXPECT_EQ(0u, allocations);
    EXPECT_EQ(WideString(127, OLESTR('q')), lowerName.text());
}

TEST(LowerName, MovesALongerNameToOneBlock)
{
    for (const std::size_t length : {128, 129, 255, 256, 1000}) {
        const WideString name(length, OLESTR('Q'));
        const AllocationWatch watch;
        const LowerName lowerName(name.c_str());
        const std::size_t allocations = watch.count();
        EXPECT_EQ(1u, allocations);
        EXPECT_EQ(WideString(length, OLESTR('q')), lowerName.text());
    }
}

} // namespace
