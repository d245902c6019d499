#include "properties/property_map.h"

#include "tests/unit/support/allocation_watch.h"

#include <gtest/gtest.h>

namespace {

TEST(PropertyMap, FindsANameThatDiffersOnlyInCase)
{
    PropertyMap map;
    PropertyValues &stored = map.entry(OLESTR("heatCapacityCp"));
    for (const LPCWSTR name : {OLESTR("heatCapacityCp"), OLESTR("HEATCAPACITYCP"), OLESTR("heatcapacitycp")}) {
        PropertyValues *found = nullptr;
        ASSERT_TRUE(map.find(name, found));
        EXPECT_EQ(&stored, found);
        EXPECT_EQ(&stored, &map.entry(name));
    }
    EXPECT_EQ(1u, map.all().size());
}

TEST(PropertyMap, FindOnAnEmptyMapLeavesTheOutPointerAlone)
{
    const PropertyMap map;
    PropertyValues other;
    PropertyValues *found = &other;
    EXPECT_FALSE(map.find(OLESTR("volume"), found));
    EXPECT_EQ(&other, found);
}

TEST(PropertyMap, FindOfAnAbsentNameLeavesTheOutPointerAlone)
{
    PropertyMap map;
    map.entry(OLESTR("volume"));
    PropertyValues other;
    PropertyValues *found = &other;
    EXPECT_FALSE(map.find(OLESTR("volum"), found));
    EXPECT_FALSE(map.find(OLESTR("volume.Dpressure"), found));
    EXPECT_FALSE(map.find(OLESTR(""), found));
    EXPECT_FALSE(map.find(nullptr, found));
    EXPECT_EQ(&other, found);
}

TEST(PropertyMap, FindAllocatesNothingForNamesUpToOneHundredAndTwentySevenCharacters)
{
    PropertyMap map;
    const WideString longest(127, OLESTR('N'));
    PropertyValues &stored = map.entry(longest.c_str());
    // More entries than a small map searches one by one, so that the hash is used.
    for (WCHAR c = OLESTR('a'); c <= OLESTR('z'); ++c)
        map.entry(WideString(40, c).c_str());
    PropertyValues *found = nullptr;
    const AllocationWatch watch;
    const bool hit = map.find(longest.c_str(), found);
    const bool derivativeHit = map.find(OLESTR("logFugacityCoefficient.DmolFraction"), found);
    const std::size_t allocations = watch.count();
    EXPECT_EQ(0u, allocations);
    EXPECT_TRUE(hit);
    EXPECT_FALSE(derivativeHit);
    EXPECT_EQ(&stored, found);
}

TEST(PropertyMap, FindsANameOfOneHundredAndTwentyEightCharactersAndMore)
{
    PropertyMap map;
    for (const std::size_t length : {127, 128, 129, 500})
        map.entry(WideString(length, OLESTR('X')).c_str()).basis = static_cast<std::int32_t>(length);
    for (const std::size_t length : {127, 128, 129, 500}) {
        PropertyValues *found = nullptr;
        ASSERT_TRUE(map.find(WideString(length, OLESTR('x')).c_str(), found));
        EXPECT_EQ(static_cast<std::int32_t>(length), found->basis);
    }
}

TEST(PropertyMap, KeepsAnAccentedCapitalAndItsSmallFormApart)
{
    PropertyMap map;
    PropertyValues &capital = map.entry(OLESTR("\u00C9nergie"));
    PropertyValues &small = map.entry(OLESTR("\u00E9nergie"));
    EXPECT_NE(&capital, &small);
    PropertyValues *found = nullptr;
    ASSERT_TRUE(map.find(OLESTR("\u00C9NERGIE"), found));
    EXPECT_EQ(&capital, found);
}

TEST(PropertyMap, KeepsAPropertyAndItsDerivativeAsTwoEntriesThatClearRemoves)
{
    PropertyMap map;
    map.entry(OLESTR("enthalpy")).resize(1);
    map.entry(OLESTR("enthalpy.Dtemperature")).resize(1);
    EXPECT_EQ(2u, map.all().size());
    EXPECT_FALSE(map.empty());
    map.clear();
    EXPECT_TRUE(map.empty());
    PropertyValues *found = nullptr;
    EXPECT_FALSE(map.find(OLESTR("enthalpy"), found));
    EXPECT_FALSE(map.find(OLESTR("enthalpy.Dtemperature"), found));
}

TEST(PropertyMap, SlotMakesANullPointerOnceAndGivesItsPlaceAgain)
{
    PropertyMap map;
    PropertyValues *&slot = map.slot(OLESTR("Density"));
    EXPECT_EQ(nullptr, slot);
    slot = new PropertyValues;
    EXPECT_EQ(&slot, &map.slot(OLESTR("dENSITY")));
    EXPECT_EQ(slot, map.slot(OLESTR("density")));
}

TEST(PropertyMap, SlotOfAKeyLowerCasesACopyOfItsText)
{
    PropertyMap map;
    PropertyValues *&slot = map.slot(WSTRMapKeyPtr(OLESTR("LIQUID:surfaceTension")));
    const WSTRMapKey key(OLESTR("Liquid:SurfaceTension"));
    EXPECT_EQ(&slot, &map.slot(key));
    EXPECT_EQ(OLESTR("Liquid:SurfaceTension"), WideString(key.GetKeyText()));
    PropertyValues *found = nullptr;
    EXPECT_TRUE(map.find(OLESTR("liquid:surfacetension"), found));
}

TEST(PropertyMap, ClearsEntriesWithoutValues)
{
    PropertyMap map;
    map.slot(OLESTR("volume"));
    map.clear();
    EXPECT_TRUE(map.empty());
}

TEST(PropertyValues, StartEmptyOnAMoleBasis)
{
    PropertyMap map;
    const PropertyValues &values = map.entry(OLESTR("volume"));
    EXPECT_EQ(0u, values.count);
    EXPECT_EQ(nullptr, values.values);
    EXPECT_EQ(0, values.basis);
}

TEST(PropertyValues, KeepTheArrayWhenTheCountStays)
{
    PropertyValues values;
    ASSERT_TRUE(values.resize(3));
    values.values[2] = 7;
    const double *const array = values.values;
    const AllocationWatch watch;
    const bool kept = values.resize(3);
    const std::size_t allocations = watch.count();
    EXPECT_TRUE(kept);
    EXPECT_EQ(0u, allocations);
    EXPECT_EQ(array, values.values);
    EXPECT_EQ(7, values.values[2]);
}

TEST(PropertyValues, TakeANewArrayWhenTheCountChanges)
{
    PropertyValues values;
    ASSERT_TRUE(values.resize(3));
    const AllocationWatch watch;
    const bool resized = values.resize(5);
    const std::size_t allocations = watch.count();
    EXPECT_TRUE(resized);
    EXPECT_EQ(1u, allocations);
    EXPECT_EQ(5u, values.count);
    values.values[4] = 1; // the memory checker sees a short array
}

TEST(PropertyValues, HoldNoArrayForNoValues)
{
    PropertyValues values;
    ASSERT_TRUE(values.resize(0));
    EXPECT_EQ(nullptr, values.values);
    ASSERT_TRUE(values.resize(2));
    ASSERT_TRUE(values.resize(0));
    EXPECT_EQ(0u, values.count);
    EXPECT_EQ(nullptr, values.values);
}

TEST(PropertyValues, AreLeftWithTheCountAndNoArrayWhenMemoryIsOut)
{
    PropertyValues values;
    ASSERT_TRUE(values.resize(3));
    {
        const RefusedAllocations refused;
        EXPECT_FALSE(values.resize(5));
    }
    EXPECT_EQ(5u, values.count);
    EXPECT_EQ(nullptr, values.values);
    ASSERT_TRUE(values.resize(5));
    EXPECT_NE(nullptr, values.values);
}

} // namespace
