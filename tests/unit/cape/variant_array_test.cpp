#include "cape/variant_array.h"

#include "cape/com/bstr.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <limits>
#include <utility>

namespace {

VARIANT arrayOf(VARTYPE type, LONG lowerBound, ULONG count)
{
    VARIANT result;
    VariantInit(&result);
    SAFEARRAYBOUND bound;
    bound.cElements = count;
    bound.lLbound = lowerBound;
    result.parray = SafeArrayCreate(type, 1, &bound);
    result.vt = static_cast<VARTYPE>(VT_ARRAY | type);
    return result;
}

VARIANT textsFrom(LONG lowerBound, std::initializer_list<LPCWSTR> texts)
{
    VARIANT result = arrayOf(VT_BSTR, lowerBound, static_cast<ULONG>(texts.size()));
    LONG index = lowerBound;
    for (LPCWSTR text : texts) {
        SafeArrayPutElement(result.parray, &index, Bstr(text).get());
        ++index;
    }
    return result;
}

WideString whyNot(const VARIANT &value, VARTYPE expected)
{
    VariantArray array;
    array.Attach(value, 1);
    WideString message(OLESTR("as it was"));
    EXPECT_FALSE(array.Validate(expected, message));
    return message;
}

// What GetVariant gives for the one element of an array that stays its owner's.
VARIANT onlyElementOf(const VARIANT &values)
{
    VariantArray array;
    array.Attach(values, 0);
    VARIANT element;
    VariantInit(&element);
    WideString message;
    const bool valid = array.Validate(VT_VARIANT, message);
    EXPECT_TRUE(valid);
    if (valid)
        array.GetVariant(0, element);
    return element;
}

} // namespace

TEST(VariantArray, StartsEmptyAndOwned)
{
    const VariantArray array;
    EXPECT_EQ(array.value.vt, VT_EMPTY);
    EXPECT_EQ(array.owned, 1);
    EXPECT_EQ(array.count, 0);
}

TEST(VariantArray, AnEmptyVariantIsAValidEmptyListOfAnyTypeAndLeavesTheMessage)
{
    for (const VARTYPE type : {VT_BSTR, VT_R8, VT_VARIANT, VT_I4}) {
        VariantArray array;
        WideString message(OLESTR("as it was"));
        EXPECT_TRUE(array.Validate(type, message));
        EXPECT_EQ(array.count, 0);
        EXPECT_EQ(array.lowerBound, 0);
        EXPECT_EQ(message, OLESTR("as it was"));
    }
}

TEST(VariantArray, ReadsAnArrayWithLowerBoundOneFromItsFirstElement)
{
    VariantArray array;
    array.Attach(textsFrom(1, {OLESTR("a"), OLESTR("b"), OLESTR("c")}), 1);
    WideString message;
    ASSERT_TRUE(array.Validate(VT_BSTR, message));
    EXPECT_EQ(array.lowerBound, 1);
    EXPECT_EQ(array.count, 3);
    EXPECT_EQ(array.TextAt(0), OLESTR("a"));
    EXPECT_EQ(array.TextAt(2), OLESTR("c"));
}

TEST(VariantArray, ReadsNumbersBehindANegativeLowerBound)
{
    const VARIANT numbers = arrayOf(VT_R8, -7, 2);
    LONG index = -6;
    double second = 2.5;
    SafeArrayPutElement(numbers.parray, &index, &second);
    VariantArray array;
    array.Attach(numbers, 1);
    WideString message;
    ASSERT_TRUE(array.Validate(VT_R8, message));
    EXPECT_EQ(array.count, 2);
    EXPECT_EQ(array.GetDouble(1), 2.5);
}

TEST(VariantArray, AnArrayWithoutElementsHasCountZero)
{
    VariantArray array;
    array.Attach(arrayOf(VT_BSTR, 1, 0), 1);
    WideString message;
    EXPECT_TRUE(array.Validate(VT_BSTR, message));
    EXPECT_EQ(array.count, 0);
}

TEST(VariantArray, RefusesTwoDimensions)
{
    SAFEARRAYBOUND bounds[2];
    bounds[0].cElements = bounds[1].cElements = 2;
    bounds[0].lLbound = bounds[1].lLbound = 0;
    VARIANT value;
    VariantInit(&value);
    value.parray = SafeArrayCreate(VT_R8, 2, bounds);
    value.vt = VT_ARRAY | VT_R8;
    EXPECT_EQ(whyNot(value, VT_R8), OLESTR("unexpected dimension; 1-dimensional array expected"));
}

TEST(VariantArray, NamesTheExpectedElementTypeAndNotTheOneFound)
{
    EXPECT_EQ(whyNot(arrayOf(VT_R8, 0, 1), VT_BSTR), OLESTR("Expected an array of type string"));
    EXPECT_EQ(whyNot(arrayOf(VT_VARIANT, 0, 1), VT_BSTR), OLESTR("Expected an array of type string"));
    EXPECT_EQ(whyNot(arrayOf(VT_BSTR, 0, 1), VT_R8), OLESTR("Expected an array of type double precision"));
    EXPECT_EQ(whyNot(arrayOf(VT_BSTR, 0, 1), VT_VARIANT), OLESTR("Expected an array of type VARIANT"));
    EXPECT_EQ(whyNot(arrayOf(VT_BSTR, 0, 1), VT_I2), OLESTR("Expected an array of type short"));
    EXPECT_EQ(whyNot(arrayOf(VT_BSTR, 0, 1), VT_I4), OLESTR("Expected an array of type long"));
    EXPECT_EQ(whyNot(arrayOf(VT_BSTR, 0, 1), VT_EMPTY), OLESTR("Expected an array of type EMPTY"));
    EXPECT_EQ(whyNot(arrayOf(VT_BSTR, 0, 1), VT_BOOL), OLESTR("Expected an array of type <unknown>"));
}

// The elements are freed and copied as what the array itself knows them to be.
TEST(VariantArray, RefusesElementsThatAreNotWhatTheValueSays)
{
    const struct {
        VARTYPE said;
        VARTYPE held;
        LPCWSTR message;
    } cases[] = {
        {VT_BSTR, VT_R8, OLESTR("Expected an array of type string")},
        {VT_BSTR, VT_I8, OLESTR("Expected an array of type string")},
        {VT_BSTR, VT_UNKNOWN, OLESTR("Expected an array of type string")},
        {VT_VARIANT, VT_BSTR, OLESTR("Expected an array of type VARIANT")},
        {VT_VARIANT, VT_R8, OLESTR("Expected an array of type VARIANT")},
        {VT_R8, VT_R4, OLESTR("Expected an array of type double precision")},
        {VT_R8, VT_BSTR, OLESTR("Expected an array of type double precision")},
        {VT_R8, VT_DATE, OLESTR("Expected an array of type double precision")},
        {VT_R8, VT_I8, OLESTR("Expected an array of type double precision")},
    };
    for (const auto &each : cases) {
        VARIANT value = arrayOf(each.held, 0, 3);
        value.vt = static_cast<VARTYPE>(VT_ARRAY | each.said);
        EXPECT_EQ(whyNot(value, each.said), each.message) << each.said << " over " << each.held;
    }
}

namespace {

// As older runtimes make arrays: without a word on what the elements are.
VARIANT withoutElementType(VARIANT value, VARTYPE said)
{
    value.parray->fFeatures &= static_cast<USHORT>(~FADF_HAVEVARTYPE);
    value.vt = static_cast<VARTYPE>(VT_ARRAY | said);
    return value;
}

} // namespace

TEST(VariantArray, BelievesAnArrayThatDoesNotKnowItsElementsIfTheyOwnNothing)
{
    const VARIANT numbers = withoutElementType(arrayOf(VT_R8, 0, 2), VT_R8);
    static_cast<double *>(numbers.parray->pvData)[1] = 2.5;
    VariantArray array;
    array.Attach(numbers, 1);
    WideString message;
    ASSERT_TRUE(array.Validate(VT_R8, message));
    EXPECT_EQ(array.count, 2);
    EXPECT_EQ(array.GetDouble(1), 2.5);

    EXPECT_EQ(whyNot(withoutElementType(arrayOf(VT_R8, 0, 2), VT_BSTR), VT_BSTR),
              OLESTR("Expected an array of type string"));
    EXPECT_EQ(whyNot(withoutElementType(arrayOf(VT_R4, 0, 2), VT_R8), VT_R8),
              OLESTR("Expected an array of type double precision"));
}

TEST(VariantArray, RefusesElementsThatAreNowhere)
{
    VARIANT value = arrayOf(VT_R8, 0, 2);
    void *const data = std::exchange(value.parray->pvData, nullptr);
    VariantArray array;
    array.Attach(value, 0);
    WideString message;
    EXPECT_FALSE(array.Validate(VT_R8, message));
    EXPECT_EQ(message, OLESTR("Expected an array of type double precision"));
    value.parray->pvData = data;
    VariantClear(&value);
}

TEST(VariantArray, CountsFromTheLowestAndToTheHighestBoundOfAll)
{
    constexpr LONG lowest = std::numeric_limits<LONG>::min();
    constexpr LONG highest = std::numeric_limits<LONG>::max();
    const struct {
        LONG lower;
        ULONG count;
    } cases[] = {{lowest, 0}, {lowest, 1}, {lowest, 3}, {highest, 0}, {highest - 1, 1}, {highest - 2, 2}};
    for (const auto &each : cases) {
        VARIANT numbers = arrayOf(VT_R8, each.lower, each.count);
        for (ULONG i = 0; i < each.count; ++i)
            static_cast<double *>(numbers.parray->pvData)[i] = i + 0.5;
        VariantArray array;
        array.Attach(numbers, 1);
        WideString message;
        ASSERT_TRUE(array.Validate(VT_R8, message)) << each.lower;
        EXPECT_EQ(array.count, static_cast<std::int32_t>(each.count)) << each.lower;
        for (std::int32_t i = 0; i < array.count; ++i)
            EXPECT_EQ(array.GetDouble(i), i + 0.5) << each.lower;
    }
}

TEST(VariantArray, RefusesElementsUpToTheHighestNumberOfAll)
{
    EXPECT_EQ(whyNot(arrayOf(VT_R8, std::numeric_limits<LONG>::max(), 1), VT_R8),
              OLESTR("Expected an array of type double precision"));
}

// An array of so many elements would not fit into memory, but a descriptor can say what it likes.
TEST(VariantArray, RefusesMoreElementsThanAnIndexReaches)
{
    VARIANT value = arrayOf(VT_R8, 0, 1);
    value.parray->rgsabound[0].cElements = 0x80000000u;
    VariantArray array;
    array.Attach(value, 0);
    WideString message;
    EXPECT_FALSE(array.Validate(VT_R8, message));
    EXPECT_EQ(message, OLESTR("Expected an array of type double precision"));
    value.parray->rgsabound[0].cElements = 1;
    VariantClear(&value);
}

TEST(VariantArray, GivesAnElementThatCannotBeCopiedAsAnError)
{
    VARIANT values = arrayOf(VT_VARIANT, 0, 1);
    VARIANT &element = static_cast<VARIANT *>(values.parray->pvData)[0];
    element.vt = 0x0FFF; // no type of automation
    EXPECT_EQ(onlyElementOf(values).vt, VT_ERROR);
    element.vt = VT_EMPTY;
    VariantClear(&values);
}

TEST(VariantArray, MovesWithWhatItOwns)
{
    VariantArray source;
    source.Create(2, VT_R8);
    source.PutDouble(1, 7);
    VariantArray target(std::move(source));
    EXPECT_EQ(target.count, 2);
    EXPECT_EQ(target.GetDouble(1), 7);
    EXPECT_EQ(source.value.vt, VT_EMPTY);
}

TEST(VariantArray, RefusesAnArrayByReference)
{
    VARIANT inner = arrayOf(VT_R8, 0, 1);
    VARIANT outer;
    VariantInit(&outer);
    outer.vt = VT_BYREF | VT_VARIANT;
    outer.pvarVal = &inner;
    EXPECT_EQ(whyNot(outer, VT_R8), OLESTR("Expected an array of type double precision"));
    VariantClear(&inner);
}

TEST(VariantArray, CanNotBeReadBetweenAttachAndValidate)
{
    VariantArray array;
    array.Create(3, VT_R8);
    array.Attach(arrayOf(VT_R8, 0, 2), 1);
    EXPECT_EQ(array.count, 0);
}

TEST(VariantArray, ResetWithoutOwnershipLeavesTheArrayToItsOwner)
{
    VARIANT mine = textsFrom(0, {OLESTR("kept")});
    VariantArray array;
    array.Attach(mine, 0);
    array.Reset(1);
    EXPECT_EQ(array.value.vt, VT_EMPTY);
    EXPECT_EQ(array.owned, 1);
    LONG index = 0;
    Bstr kept;
    ASSERT_EQ(SafeArrayGetElement(mine.parray, &index, kept.out()), S_OK);
    EXPECT_EQ(TextOf(kept.get()), OLESTR("kept"));
    VariantClear(&mine);
}

// The leak checker tells when an array is not cleared, a double free when it is cleared twice.
TEST(VariantArray, AttachAndCreateClearWhatWasOwned)
{
    VariantArray array;
    array.Attach(textsFrom(0, {OLESTR("first")}), 1);
    array.Attach(textsFrom(0, {OLESTR("second")}), 1);
    array.Create(1, VT_BSTR);
    array.PutString(0, Bstr(OLESTR("third")).get());
    EXPECT_EQ(array.TextAt(0), OLESTR("third"));
}

TEST(VariantArray, PutStringKeepsACopyAndTakesNull)
{
    VariantArray array;
    array.Create(2, VT_BSTR);
    {
        const Bstr text(OLESTR("copied"));
        array.PutString(0, text.get());
    }
    array.PutString(1, nullptr);
    EXPECT_EQ(array.TextAt(0), OLESTR("copied"));
    EXPECT_EQ(array.TextAt(1), OLESTR(""));
}

TEST(VariantArray, GetVariantGivesACopy)
{
    VARIANT value = arrayOf(VT_VARIANT, 1, 1);
    VARIANT text;
    VariantInit(&text);
    text.vt = VT_BSTR;
    text.bstrVal = SysAllocString(OLESTR("inside"));
    LONG index = 1;
    SafeArrayPutElement(value.parray, &index, &text);
    VariantClear(&text);
    VARIANT element = onlyElementOf(value);
    VariantClear(&value);
    ASSERT_EQ(element.vt, VT_BSTR);
    EXPECT_EQ(TextOf(element.bstrVal), OLESTR("inside"));
    VariantClear(&element);
}

TEST(VariantArray, HandOverMakesTheReceiverTheOnlyOwner)
{
    VARIANT received;
    VariantInit(&received);
    {
        VariantArray array;
        array.Create(2, VT_R8);
        array.PutDouble(1, 42.0);
        array.HandOver(&received);
    }
    ASSERT_EQ(received.vt, VT_ARRAY | VT_R8);
    LONG index = 1;
    double number = 0;
    ASSERT_EQ(SafeArrayGetElement(received.parray, &index, &number), S_OK);
    EXPECT_EQ(number, 42.0);
    VariantClear(&received);
}
