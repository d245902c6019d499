#include "cape/list_access.h"

#include <gtest/gtest.h>

#include <cstring>

#include <cstdint>

namespace {

// A one-dimensional array of the type with two elements from the lower bound on.
VARIANT pairOf(VARTYPE type, LONG lowerBound)
{
    SAFEARRAYBOUND bound;
    bound.cElements = 2;
    bound.lLbound = lowerBound;
    VARIANT value;
    VariantInit(&value);
    value.vt = static_cast<VARTYPE>(VT_ARRAY | type);
    value.parray = SafeArrayCreate(type, 1, &bound);
    return value;
}

TEST(TakeDoubles, GivesTheElementsFromTheFirstWhateverItsIndex)
{
    for (LONG lowerBound : {0, 1, -5}) {
        VARIANT value = pairOf(VT_R8, lowerBound);
        for (LONG i = 0; i < 2; ++i) {
            LONG index = lowerBound + i;
            double element = 1.5 + i;
            ASSERT_EQ(SafeArrayPutElement(value.parray, &index, &element), S_OK);
        }
        const double *data = nullptr;
        std::int32_t count = 0;
        WideString text;
        ASSERT_TRUE(TakeDoubles(value, data, count, text));
        ASSERT_EQ(count, 2);
        EXPECT_EQ(data[0], 1.5);
        EXPECT_EQ(data[1], 2.5);
        EXPECT_EQ(VariantClear(&value), S_OK);
    }
}

TEST(TakeDoubles, GivesNothingOfAnEmptyValue)
{
    VARIANT value;
    VariantInit(&value);
    const double *data = nullptr;
    std::int32_t count = 7;
    WideString text(OLESTR("as it was"));
    EXPECT_TRUE(TakeDoubles(value, data, count, text));
    EXPECT_EQ(count, 0);
    EXPECT_EQ(text, OLESTR("as it was"));
}

TEST(TakeDoubles, RefusesAnotherTypeAndAnotherDimensionInTheWordsOfValidate)
{
    const double *data = nullptr;
    std::int32_t count = 7;
    WideString text;
    VARIANT texts = pairOf(VT_BSTR, 0);
    EXPECT_FALSE(TakeDoubles(texts, data, count, text));
    EXPECT_EQ(text, OLESTR("Expected an array of type double precision"));
    VariantClear(&texts);

    SAFEARRAYBOUND bounds[2] = {{2, 0}, {2, 0}};
    VARIANT matrix;
    VariantInit(&matrix);
    matrix.vt = VT_ARRAY | VT_R8;
    matrix.parray = SafeArrayCreate(VT_R8, 2, bounds);
    EXPECT_FALSE(TakeDoubles(matrix, data, count, text));
    EXPECT_EQ(text, OLESTR("unexpected dimension; 1-dimensional array expected"));
    VariantClear(&matrix);
}

// The type that the VARIANT states need not be that of its array.
TEST(TakeDoubles, RefusesElementsThatAreNoDoubles)
{
    VARIANT value = pairOf(VT_I2, 0);
    value.vt = VT_ARRAY | VT_R8;
    const double *data = nullptr;
    std::int32_t count = 7;
    WideString text;
    EXPECT_FALSE(TakeDoubles(value, data, count, text));
    EXPECT_EQ(text, OLESTR("Expected an array of type double precision"));
    EXPECT_EQ(SafeArrayDestroy(value.parray), S_OK);
}

// Read as doubles they would reach beyond the end.
TEST(TakeDoubles, RefusesDoublesThatAreSaidToHaveAnotherSize)
{
    VARIANT value = pairOf(VT_R8, 0);
    value.parray->cbElements = 4;
    const double *data = nullptr;
    std::int32_t count = 7;
    WideString text;
    EXPECT_FALSE(TakeDoubles(value, data, count, text));
    EXPECT_EQ(text, OLESTR("Expected an array of type double precision"));
    value.parray->cbElements = sizeof(double);
    EXPECT_EQ(VariantClear(&value), S_OK);
}

TEST(TakeTexts, GivesTheStringsWhereTheyLie)
{
    VARIANT value = pairOf(VT_BSTR, 1);
    LONG index = 2;
    const BSTR second = SysAllocString(OLESTR("second"));
    ASSERT_EQ(SafeArrayPutElement(value.parray, &index, second), S_OK);
    SysFreeString(second);
    const BSTR *texts = nullptr;
    std::int32_t count = 0;
    WideString text;
    ASSERT_TRUE(TakeTexts(value, texts, count, text));
    ASSERT_EQ(count, 2);
    EXPECT_EQ(texts[0], nullptr);
    EXPECT_EQ(WideString(texts[1]), OLESTR("second"));
    EXPECT_EQ(VariantClear(&value), S_OK);
}

// What stands there may be a pointer to nowhere.
TEST(GiveDoubles, MakesAnArrayThatStartsAtZeroWhateverTheTargetHolds)
{
    VARIANT target;
    std::memset(&target, 0xCD, sizeof target);
    target.vt = VT_BSTR;
    const double values[] = {1, 2, 3};
    ASSERT_EQ(GiveDoubles(values, 3, &target), S_OK);
    LONG index = 0;
    ASSERT_EQ(target.vt, VT_ARRAY | VT_R8);
    LONG lower = -1;
    LONG upper = -1;
    EXPECT_EQ(SafeArrayGetLBound(target.parray, 1, &lower), S_OK);
    EXPECT_EQ(SafeArrayGetUBound(target.parray, 1, &upper), S_OK);
    EXPECT_EQ(lower, 0);
    EXPECT_EQ(upper, 2);
    for (index = 0; index < 3; ++index) {
        double element = 0;
        EXPECT_EQ(SafeArrayGetElement(target.parray, &index, &element), S_OK);
        EXPECT_EQ(element, values[index]);
    }
    EXPECT_EQ(target.parray->cLocks, 0u);
    EXPECT_EQ(VariantClear(&target), S_OK);
}

TEST(GiveDoubles, MakesAnArrayOfNoLength)
{
    VARIANT target;
    VariantInit(&target);
    ASSERT_EQ(GiveDoubles(nullptr, 0, &target), S_OK);
    ASSERT_EQ(target.vt, VT_ARRAY | VT_R8);
    LONG upper = 7;
    EXPECT_EQ(SafeArrayGetUBound(target.parray, 1, &upper), S_OK);
    EXPECT_EQ(upper, -1);
    EXPECT_EQ(VariantClear(&target), S_OK);
}

} // namespace
