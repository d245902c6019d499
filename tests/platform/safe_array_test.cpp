#include "tests/platform/counting_object.h"

#include <climits>
#include <vector>

namespace {

SAFEARRAY *makeArray(VARTYPE type, std::vector<SAFEARRAYBOUND> bounds)
{
    return SafeArrayCreate(type, static_cast<UINT>(bounds.size()), bounds.data());
}

struct ElementType {
    VARTYPE type;
    UINT size;
    USHORT features;
};

constexpr ElementType elementTypes[] = {
    {VT_I1, 1, FADF_HAVEVARTYPE},
    {VT_UI1, 1, FADF_HAVEVARTYPE},
    {VT_I2, 2, FADF_HAVEVARTYPE},
    {VT_UI2, 2, FADF_HAVEVARTYPE},
    {VT_BOOL, 2, FADF_HAVEVARTYPE},
    {VT_I4, 4, FADF_HAVEVARTYPE},
    {VT_UI4, 4, FADF_HAVEVARTYPE},
    {VT_INT, 4, FADF_HAVEVARTYPE},
    {VT_UINT, 4, FADF_HAVEVARTYPE},
    {VT_ERROR, 4, FADF_HAVEVARTYPE},
    {VT_R4, 4, FADF_HAVEVARTYPE},
    {VT_R8, 8, FADF_HAVEVARTYPE},
    {VT_CY, 8, FADF_HAVEVARTYPE},
    {VT_DATE, 8, FADF_HAVEVARTYPE},
    {VT_BSTR, sizeof(void *), FADF_HAVEVARTYPE | FADF_BSTR},
    {VT_VARIANT, sizeof(VARIANT), FADF_HAVEVARTYPE | FADF_VARIANT},
    {VT_UNKNOWN, sizeof(void *), FADF_HAVEIID | FADF_UNKNOWN},
    {VT_DISPATCH, sizeof(void *), FADF_HAVEIID | FADF_DISPATCH},
};

} // namespace

TEST(SafeArray, OfEveryElementTypeHasItsSizeAndFeatures)
{
    for (const ElementType &expected : elementTypes) {
        SAFEARRAY *array = makeArray(expected.type, {{3, 0}});
        ASSERT_NE(array, nullptr) << expected.type;
        EXPECT_EQ(SafeArrayGetElemsize(array), expected.size) << expected.type;
        EXPECT_EQ(array->fFeatures, expected.features) << expected.type;
        VARTYPE type = VT_EMPTY;
        EXPECT_EQ(SafeArrayGetVartype(array, &type), S_OK);
        EXPECT_EQ(type, expected.type);
        EXPECT_EQ(SafeArrayDestroy(array), S_OK);
    }
}

TEST(SafeArray, OfWhatIsNoElementTypeIsNotMade)
{
    for (const VARTYPE type : {VARTYPE{VT_EMPTY}, VARTYPE{VT_NULL}, VARTYPE{VT_ARRAY | VT_R8}, VARTYPE{15}})
        EXPECT_EQ(makeArray(type, {{3, 0}}), nullptr) << type;
}

TEST(SafeArray, WithoutDimensionsOrBoundsIsNotMade)
{
    SAFEARRAYBOUND bound{1, 0};
    EXPECT_EQ(SafeArrayCreate(VT_R8, 0, &bound), nullptr);
    EXPECT_EQ(SafeArrayCreate(VT_R8, 1, nullptr), nullptr);
}

TEST(SafeArray, StartsWithZeros)
{
    SAFEARRAY *array = makeArray(VT_R8, {{4, 1}});
    for (LONG index = 1; index <= 4; ++index) {
        double number = -1;
        EXPECT_EQ(SafeArrayGetElement(array, &index, &number), S_OK);
        EXPECT_EQ(number, 0.0);
    }
    SafeArrayDestroy(array);
}

TEST(SafeArray, HasAnyLowerBound)
{
    for (const LONG lowerBound : {42, 1, 0, -3}) {
        SAFEARRAY *array = makeArray(VT_I4, {{3, lowerBound}});
        LONG bound = 99;
        EXPECT_EQ(SafeArrayGetLBound(array, 1, &bound), S_OK);
        EXPECT_EQ(bound, lowerBound);
        EXPECT_EQ(SafeArrayGetUBound(array, 1, &bound), S_OK);
        EXPECT_EQ(bound, lowerBound + 2);

        for (LONG index = lowerBound; index < lowerBound + 3; ++index) {
            LONG number = 10 * index;
            EXPECT_EQ(SafeArrayPutElement(array, &index, &number), S_OK) << index;
        }
        for (LONG index = lowerBound; index < lowerBound + 3; ++index) {
            LONG number = 99;
            EXPECT_EQ(SafeArrayGetElement(array, &index, &number), S_OK) << index;
            EXPECT_EQ(number, 10 * index);
        }
        for (LONG index : {lowerBound - 1, lowerBound + 3, LONG{INT_MAX}, LONG{INT_MIN}}) {
            LONG number = 7;
            EXPECT_EQ(SafeArrayGetElement(array, &index, &number), DISP_E_BADINDEX) << index;
            EXPECT_EQ(SafeArrayPutElement(array, &index, &number), DISP_E_BADINDEX) << index;
        }
        SafeArrayDestroy(array);
    }
}

TEST(SafeArray, WithoutElementsHasAnUpperBoundBelowTheLower)
{
    SAFEARRAY *array = makeArray(VT_BSTR, {{0, 1}});
    ASSERT_NE(array, nullptr);
    LONG bound = 99;
    EXPECT_EQ(SafeArrayGetLBound(array, 1, &bound), S_OK);
    EXPECT_EQ(bound, 1);
    EXPECT_EQ(SafeArrayGetUBound(array, 1, &bound), S_OK);
    EXPECT_EQ(bound, 0);
    LONG index = 1;
    BSTR text = nullptr;
    EXPECT_EQ(SafeArrayGetElement(array, &index, &text), DISP_E_BADINDEX);
    SAFEARRAY *copy = nullptr;
    EXPECT_EQ(SafeArrayCopy(array, &copy), S_OK);
    EXPECT_EQ(SafeArrayGetDim(copy), 1u);
    SafeArrayDestroy(copy);
    SafeArrayDestroy(array);
}

TEST(SafeArray, OfTwoDimensionsHasTheBoundsOfEach)
{
    SAFEARRAY *array = makeArray(VT_R8, {{2, 1}, {3, -5}});
    EXPECT_EQ(SafeArrayGetDim(array), 2u);
    const LONG expected[2][2] = {{1, 2}, {-5, -3}};
    for (UINT dimension = 1; dimension <= 2; ++dimension) {
        LONG bound = 99;
        EXPECT_EQ(SafeArrayGetLBound(array, dimension, &bound), S_OK);
        EXPECT_EQ(bound, expected[dimension - 1][0]);
        EXPECT_EQ(SafeArrayGetUBound(array, dimension, &bound), S_OK);
        EXPECT_EQ(bound, expected[dimension - 1][1]);
    }
    LONG bound = 99;
    EXPECT_EQ(SafeArrayGetLBound(array, 0, &bound), DISP_E_BADINDEX);
    EXPECT_EQ(SafeArrayGetUBound(array, 3, &bound), DISP_E_BADINDEX);
    SafeArrayDestroy(array);
}

TEST(SafeArray, OfTwoDimensionsStoresTheFirstFastest)
{
    SAFEARRAY *array = makeArray(VT_R8, {{2, 1}, {3, -5}});
    for (LONG second = -5; second < -2; ++second)
        for (LONG first = 1; first < 3; ++first) {
            LONG indices[] = {first, second};
            double number = 100 * first + second;
            ASSERT_EQ(SafeArrayPutElement(array, indices, &number), S_OK);
        }
    void *data = nullptr;
    ASSERT_EQ(SafeArrayAccessData(array, &data), S_OK);
    const double expected[] = {95, 195, 96, 196, 97, 197};
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(static_cast<double *>(data)[i], expected[i]) << i;
    EXPECT_EQ(SafeArrayUnaccessData(array), S_OK);
    LONG indices[] = {-5, 1}; // the wrong way round
    double number = 0;
    EXPECT_EQ(SafeArrayGetElement(array, indices, &number), DISP_E_BADINDEX);
    SafeArrayDestroy(array);
}

TEST(SafeArray, CopiesStringsOnWriteAndOnRead)
{
    SAFEARRAY *array = SafeArrayCreateVector(VT_BSTR, 1, 2);
    LONG index = 1;
    BSTR text = SysAllocString(OLESTR("methane"));
    EXPECT_EQ(SafeArrayPutElement(array, &index, text), S_OK);
    text[0] = OLESTR('M');
    SysFreeString(text);
    BSTR first = nullptr;
    BSTR second = nullptr;
    EXPECT_EQ(SafeArrayGetElement(array, &index, &first), S_OK);
    EXPECT_EQ(SafeArrayGetElement(array, &index, &second), S_OK);
    EXPECT_EQ(WideString(first), OLESTR("methane"));
    EXPECT_NE(first, second);
    SysFreeString(first);
    SysFreeString(second);
    SafeArrayDestroy(array);
}

TEST(SafeArray, TakesNullStrings)
{
    SAFEARRAY *array = SafeArrayCreateVector(VT_BSTR, 0, 1);
    LONG index = 0;
    BSTR text = SysAllocString(OLESTR("methane"));
    EXPECT_EQ(SafeArrayPutElement(array, &index, text), S_OK);
    EXPECT_EQ(SafeArrayPutElement(array, &index, nullptr), S_OK);
    BSTR read = text;
    EXPECT_EQ(SafeArrayGetElement(array, &index, &read), S_OK);
    EXPECT_EQ(SysStringLen(read), 0u); // null or empty
    SysFreeString(read);
    SysFreeString(text);
    SafeArrayDestroy(array);
}

TEST(SafeArray, CopiesVariantsOnWriteAndOnRead)
{
    CountingObject object;
    SAFEARRAY *array = SafeArrayCreateVector(VT_VARIANT, 0, 1);
    LONG index = 0;
    VARIANT value;
    VariantInit(&value);
    value.vt = VT_UNKNOWN;
    value.punkVal = &object; // not counted: the array is to make its own reference
    EXPECT_EQ(SafeArrayPutElement(array, &index, &value), S_OK);
    EXPECT_EQ(object.references, 2u);
    VARIANT read;
    VariantInit(&read);
    EXPECT_EQ(SafeArrayGetElement(array, &index, &read), S_OK);
    EXPECT_EQ(read.vt, VT_UNKNOWN);
    EXPECT_EQ(object.references, 3u);
    VariantClear(&read);
    EXPECT_EQ(SafeArrayPutElement(array, &index, &read), S_OK); // now empty: the old element goes
    EXPECT_EQ(object.references, 1u);
    SafeArrayDestroy(array);
}

TEST(SafeArray, IgnoresWhatStoodWhereAVariantIsReadTo)
{
    SAFEARRAY *array = SafeArrayCreateVector(VT_VARIANT, 0, 1);
    LONG index = 0;
    VARIANT read;
    read.vt = 0x5555;
    EXPECT_EQ(SafeArrayGetElement(array, &index, &read), S_OK);
    EXPECT_EQ(read.vt, VT_EMPTY);
    SafeArrayDestroy(array);
}

TEST(SafeArray, HoldsReferencesOnInterfaces)
{
    for (const VARTYPE type : {VT_UNKNOWN, VT_DISPATCH}) {
        CountingObject object;
        SAFEARRAY *array = SafeArrayCreateVector(type, 0, 2);
        LONG index = 0;
        EXPECT_EQ(SafeArrayPutElement(array, &index, static_cast<IDispatch *>(&object)), S_OK);
        EXPECT_EQ(object.references, 2u);
        EXPECT_EQ(SafeArrayPutElement(array, &index, static_cast<IDispatch *>(&object)), S_OK);
        EXPECT_EQ(object.references, 2u) << "the element before is released";
        IUnknown *read = nullptr;
        EXPECT_EQ(SafeArrayGetElement(array, &index, &read), S_OK);
        EXPECT_EQ(object.references, 3u);
        read->Release();
        SAFEARRAY *copy = nullptr;
        EXPECT_EQ(SafeArrayCopy(array, &copy), S_OK);
        EXPECT_EQ(object.references, 3u);
        EXPECT_EQ(SafeArrayDestroy(copy), S_OK);
        EXPECT_EQ(SafeArrayPutElement(array, &index, nullptr), S_OK);
        EXPECT_EQ(object.references, 1u);
        SafeArrayDestroy(array);
    }
}

TEST(SafeArray, DestroyedReleasesWhatItHolds)
{
    CountingObject object;
    SAFEARRAY *array = SafeArrayCreateVector(VT_DISPATCH, -1, 3);
    for (LONG index = -1; index < 2; ++index)
        EXPECT_EQ(SafeArrayPutElement(array, &index, static_cast<IDispatch *>(&object)), S_OK);
    EXPECT_EQ(object.references, 4u);
    EXPECT_EQ(SafeArrayDestroy(array), S_OK);
    EXPECT_EQ(object.references, 1u);
}

TEST(SafeArray, CopyHasItsOwnStrings)
{
    SAFEARRAY *array = makeArray(VT_BSTR, {{2, 1}, {2, 0}});
    LONG indices[] = {2, 1};
    BSTR text = SysAllocString(OLESTR("liquid"));
    ASSERT_EQ(SafeArrayPutElement(array, indices, text), S_OK);
    SysFreeString(text);
    SAFEARRAY *copy = nullptr;
    ASSERT_EQ(SafeArrayCopy(array, &copy), S_OK);
    SafeArrayDestroy(array);
    EXPECT_EQ(SafeArrayGetDim(copy), 2u);
    EXPECT_EQ(SafeArrayGetElement(copy, indices, &text), S_OK);
    EXPECT_EQ(WideString(text), OLESTR("liquid"));
    SysFreeString(text);
    indices[0] = 1;
    EXPECT_EQ(SafeArrayGetElement(copy, indices, &text), S_OK);
    EXPECT_EQ(text, nullptr);
    SafeArrayDestroy(copy);
}

TEST(SafeArray, CopyOfNothingIsNothing)
{
    SAFEARRAY *copy = reinterpret_cast<SAFEARRAY *>(1);
    EXPECT_EQ(SafeArrayCopy(nullptr, &copy), S_OK);
    EXPECT_EQ(copy, nullptr);
}

TEST(SafeArray, LockedIsNotDestroyed)
{
    SAFEARRAY *array = SafeArrayCreateVector(VT_R8, 0, 2);
    void *data = nullptr;
    EXPECT_EQ(SafeArrayAccessData(array, &data), S_OK);
    EXPECT_EQ(SafeArrayAccessData(array, &data), S_OK);
    EXPECT_EQ(SafeArrayDestroy(array), DISP_E_ARRAYISLOCKED);
    EXPECT_EQ(SafeArrayUnaccessData(array), S_OK);
    EXPECT_EQ(SafeArrayDestroy(array), DISP_E_ARRAYISLOCKED);
    EXPECT_EQ(SafeArrayUnaccessData(array), S_OK);
    EXPECT_EQ(SafeArrayUnaccessData(array), E_UNEXPECTED);
    EXPECT_EQ(SafeArrayDestroy(array), S_OK);
}

TEST(SafeArray, CallsWithNothingAreRefused)
{
    LONG index = 0;
    double number = 0;
    void *data = nullptr;
    VARTYPE type = VT_EMPTY;
    EXPECT_EQ(SafeArrayDestroy(nullptr), S_OK);
    EXPECT_EQ(SafeArrayGetDim(nullptr), 0u);
    EXPECT_EQ(SafeArrayGetElemsize(nullptr), 0u);
    EXPECT_EQ(SafeArrayGetLBound(nullptr, 1, &index), E_INVALIDARG);
    EXPECT_EQ(SafeArrayGetUBound(nullptr, 1, &index), E_INVALIDARG);
    EXPECT_EQ(SafeArrayGetElement(nullptr, &index, &number), E_INVALIDARG);
    EXPECT_EQ(SafeArrayPutElement(nullptr, &index, &number), E_INVALIDARG);
    EXPECT_EQ(SafeArrayAccessData(nullptr, &data), E_INVALIDARG);
    EXPECT_EQ(SafeArrayUnaccessData(nullptr), E_INVALIDARG);
    EXPECT_EQ(SafeArrayGetVartype(nullptr, &type), E_INVALIDARG);
}
