#include "tests/platform/counting_object.h"

namespace {

VARIANT variantOf(const OLECHAR *text)
{
    VARIANT value;
    VariantInit(&value);
    value.vt = VT_BSTR;
    value.bstrVal = SysAllocString(text);
    return value;
}

VARIANT variantOf(IUnknown *object)
{
    VARIANT value;
    VariantInit(&value);
    value.vt = VT_UNKNOWN;
    value.punkVal = object;
    object->AddRef();
    return value;
}

VARIANT variantOf(double number)
{
    VARIANT value;
    VariantInit(&value);
    value.vt = VT_R8;
    value.dblVal = number;
    return value;
}

VARIANT copyOf(VARIANT source)
{
    VARIANT copy;
    VariantInit(&copy);
    EXPECT_EQ(VariantCopy(&copy, &source), S_OK);
    return copy;
}

} // namespace

TEST(Variant, IsEmptyAfterInit)
{
    VARIANT value;
    value.vt = 0x5555;
    VariantInit(&value);
    EXPECT_EQ(value.vt, VT_EMPTY);
}

TEST(Variant, ClearedIsEmptyWhateverItHeld)
{
    for (const VARTYPE type : {VT_EMPTY, VT_NULL, VT_I1, VT_UI1, VT_I2, VT_UI2, VT_I4, VT_UI4, VT_I8, VT_UI8, VT_INT,
                               VT_UINT, VT_R4, VT_R8, VT_CY, VT_DATE, VT_BOOL, VT_ERROR, VT_VARIANT}) {
        VARIANT value = variantOf(1.0);
        value.vt = type;
        EXPECT_EQ(VariantClear(&value), S_OK) << type;
        EXPECT_EQ(value.vt, VT_EMPTY) << type;
    }
}

TEST(Variant, OfAnUnknownTypeIsNeitherClearedNorCopied)
{
    VARIANT value = variantOf(1.0);
    for (const VARTYPE type : {VARTYPE{15}, VARTYPE{VT_ARRAY}, VARTYPE{0x1000 | VT_R8}}) {
        value.vt = type;
        EXPECT_EQ(VariantClear(&value), DISP_E_BADVARTYPE) << type;
        EXPECT_EQ(value.vt, type);
        VARIANT target = variantOf(2.0);
        EXPECT_EQ(VariantCopy(&target, &value), DISP_E_BADVARTYPE) << type;
    }
}

TEST(Variant, ClearedReleasesItsInterface)
{
    CountingObject object;
    VARIANT value = variantOf(&object);
    EXPECT_EQ(object.references, 2u);
    EXPECT_EQ(VariantClear(&value), S_OK);
    EXPECT_EQ(object.references, 1u);
}

TEST(Variant, ClearedFreesAnArrayWithItsElements)
{
    CountingObject object;
    LONG index = 0;
    VARIANT value;
    value.vt = VT_ARRAY | VT_UNKNOWN;
    value.parray = SafeArrayCreateVector(VT_UNKNOWN, 0, 1);
    ASSERT_EQ(SafeArrayPutElement(value.parray, &index, static_cast<IUnknown *>(&object)), S_OK);
    EXPECT_EQ(object.references, 2u);
    EXPECT_EQ(VariantClear(&value), S_OK);
    EXPECT_EQ(object.references, 1u);
}

TEST(Variant, ClearedLeavesAloneWhatItRefersTo)
{
    CountingObject object;
    IUnknown *pointer = &object;
    VARIANT value;
    value.vt = VT_BYREF | VT_UNKNOWN;
    value.byref = &pointer;
    EXPECT_EQ(VariantClear(&value), S_OK);
    EXPECT_EQ(value.vt, VT_EMPTY);
    EXPECT_EQ(object.references, 1u);
}

// What the type is after the failure is not the same everywhere.
TEST(Variant, WithALockedArrayCannotBeCleared)
{
    SAFEARRAY *array = SafeArrayCreateVector(VT_R8, 0, 2);
    VARIANT value;
    value.vt = VT_ARRAY | VT_R8;
    value.parray = array;
    void *data = nullptr;
    ASSERT_EQ(SafeArrayAccessData(array, &data), S_OK);
    EXPECT_EQ(VariantClear(&value), DISP_E_ARRAYISLOCKED);
    ASSERT_EQ(SafeArrayUnaccessData(array), S_OK);
    EXPECT_EQ(SafeArrayDestroy(array), S_OK);
}

TEST(Variant, WithANullArrayOrStringCanBeClearedAndCopied)
{
    VARIANT value;
    value.vt = VT_ARRAY | VT_R8;
    value.parray = nullptr;
    VARIANT copy = copyOf(value);
    EXPECT_EQ(copy.vt, VT_ARRAY | VT_R8);
    EXPECT_EQ(copy.parray, nullptr);
    EXPECT_EQ(VariantClear(&value), S_OK);
    value.vt = VT_BSTR;
    value.bstrVal = nullptr;
    EXPECT_EQ(VariantCopy(&copy, &value), S_OK);
    EXPECT_EQ(copy.vt, VT_BSTR);
    EXPECT_EQ(SysStringLen(copy.bstrVal), 0u);
    EXPECT_EQ(VariantClear(&copy), S_OK);
    EXPECT_EQ(VariantClear(&value), S_OK);
}

TEST(Variant, CopyOfAStringIsAnotherString)
{
    VARIANT value = variantOf(OLESTR("vapor"));
    VARIANT copy = copyOf(value);
    EXPECT_NE(copy.bstrVal, value.bstrVal);
    EXPECT_EQ(WideString(copy.bstrVal), OLESTR("vapor"));
    VariantClear(&value);
    VariantClear(&copy);
}

TEST(Variant, CopyOfAStringKeepsTerminatorsInside)
{
    VARIANT value;
    value.vt = VT_BSTR;
    value.bstrVal = SysAllocStringLen(OLESTR("x\0y"), 3);
    VARIANT copy = copyOf(value);
    ASSERT_EQ(SysStringLen(copy.bstrVal), 3u);
    EXPECT_EQ(copy.bstrVal[2], OLESTR('y'));
    VariantClear(&value);
    VariantClear(&copy);
}

TEST(Variant, CopyOfAnInterfaceHoldsAReference)
{
    CountingObject object;
    VARIANT value = variantOf(&object);
    VARIANT copy = copyOf(value);
    EXPECT_EQ(copy.punkVal, value.punkVal);
    EXPECT_EQ(object.references, 3u);
    VariantClear(&value);
    VariantClear(&copy);
    EXPECT_EQ(object.references, 1u);
}

TEST(Variant, CopyOfAnArrayIsAnotherArray)
{
    VARIANT value;
    value.vt = VT_ARRAY | VT_R8;
    value.parray = SafeArrayCreateVector(VT_R8, 7, 2);
    LONG index = 8;
    double number = 2.5;
    ASSERT_EQ(SafeArrayPutElement(value.parray, &index, &number), S_OK);
    VARIANT copy = copyOf(value);
    EXPECT_NE(copy.parray, value.parray);
    number = 0;
    ASSERT_EQ(SafeArrayPutElement(value.parray, &index, &number), S_OK);
    EXPECT_EQ(SafeArrayGetElement(copy.parray, &index, &number), S_OK);
    EXPECT_EQ(number, 2.5);
    VariantClear(&value);
    VariantClear(&copy);
}

TEST(Variant, CopyOfAReferenceRefersToTheSame)
{
    double number = 1.5;
    VARIANT value;
    value.vt = VT_BYREF | VT_R8;
    value.byref = &number;
    VARIANT copy = copyOf(value);
    EXPECT_EQ(copy.vt, VT_BYREF | VT_R8);
    EXPECT_EQ(copy.byref, &number);
}

TEST(Variant, CopyOverAValueClearsItFirst)
{
    CountingObject object;
    VARIANT target = variantOf(&object);
    VARIANT source = variantOf(4.0);
    EXPECT_EQ(VariantCopy(&target, &source), S_OK);
    EXPECT_EQ(object.references, 1u);
    EXPECT_EQ(target.vt, VT_R8);
    EXPECT_EQ(target.dblVal, 4.0);
}

TEST(Variant, CopyOntoItselfChangesNothing)
{
    CountingObject object;
    VARIANT value = variantOf(&object);
    EXPECT_EQ(VariantCopy(&value, &value), S_OK);
    EXPECT_EQ(object.references, 2u);
    VariantClear(&value);
}

TEST(Variant, CopyOntoALockedArrayFailsAndLeavesTheArray)
{
    SAFEARRAY *array = SafeArrayCreateVector(VT_R8, 0, 1);
    VARIANT target;
    target.vt = VT_ARRAY | VT_R8;
    target.parray = array;
    void *data = nullptr;
    ASSERT_EQ(SafeArrayAccessData(array, &data), S_OK);
    VARIANT source = variantOf(4.0);
    EXPECT_EQ(VariantCopy(&target, &source), DISP_E_ARRAYISLOCKED);
    ASSERT_EQ(SafeArrayUnaccessData(array), S_OK);
    EXPECT_EQ(SafeArrayDestroy(array), S_OK);
}
