#include "platform/matlab/standin.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <vector>

namespace {

using Array = std::unique_ptr<mxArray, decltype(&mxDestroyArray)>;

Array numeric(std::vector<mwSize> dimensions, mxClassID classId, mxComplexity complexity = mxREAL)
{
    return {mxCreateNumericArray_730(dimensions.size(), dimensions.data(), classId, complexity), mxDestroyArray};
}

std::vector<mwSize> dimensionsOf(const Array &array)
{
    const mwSize *first = mxGetDimensions(array.get());
    return {first, first + mxGetNumberOfDimensions(array.get())};
}

} // namespace

TEST(ArrayData, ADoubleMatrixStartsWithZeros)
{
    Array matrix(mxCreateDoubleMatrix_730(3, 2, mxREAL), mxDestroyArray);
    EXPECT_TRUE(mxIsDouble(matrix.get()));
    EXPECT_FALSE(mxIsComplex(matrix.get()));
    EXPECT_FALSE(mxIsInt32(matrix.get()));
    EXPECT_FALSE(mxIsChar(matrix.get()));
    EXPECT_FALSE(mxIsCell(matrix.get()));
    EXPECT_EQ(mxGetM(matrix.get()), 3u);
    EXPECT_EQ(mxGetN(matrix.get()), 2u);
    EXPECT_EQ(mxGetNumberOfElements(matrix.get()), 6u);
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(mxGetPr(matrix.get())[i], 0.0);
    EXPECT_EQ(mxGetPi(matrix.get()), nullptr);
    EXPECT_EQ(mxGetData(matrix.get()), mxGetPr(matrix.get()));
}

TEST(ArrayData, AComplexMatrixHasImaginaryPartsOfItsOwn)
{
    Array matrix(mxCreateDoubleMatrix_730(1, 2, mxCOMPLEX), mxDestroyArray);
    EXPECT_TRUE(mxIsComplex(matrix.get()));
    mxGetPr(matrix.get())[1] = 1.5;
    mxGetPi(matrix.get())[1] = -2.5;
    EXPECT_EQ(mxGetPr(matrix.get())[1], 1.5);
    EXPECT_EQ(mxGetPi(matrix.get())[1], -2.5);
}

TEST(ArrayData, ClassesAreKeptApart)
{
    EXPECT_EQ(mxGetClassID(numeric({1, 1}, mxSINGLE_CLASS).get()), mxSINGLE_CLASS);
    EXPECT_EQ(mxGetClassID(numeric({1, 1}, mxLOGICAL_CLASS).get()), mxLOGICAL_CLASS);
    EXPECT_FALSE(mxIsDouble(numeric({1, 1}, mxSINGLE_CLASS).get()));
    EXPECT_FALSE(mxIsDouble(numeric({1, 1}, mxLOGICAL_CLASS).get()));
    EXPECT_TRUE(mxIsInt32(numeric({1, 1}, mxINT32_CLASS).get()));
    EXPECT_EQ(mxINT32_CLASS, 12);
}

TEST(ArrayData, OneDimensionMakesAColumn)
{
    EXPECT_EQ(dimensionsOf(numeric({4}, mxINT32_CLASS)), (std::vector<mwSize>{4, 1}));
}

TEST(ArrayData, NoDimensionMakesAnEmptyMatrix)
{
    Array array = numeric({}, mxDOUBLE_CLASS);
    EXPECT_EQ(dimensionsOf(array), (std::vector<mwSize>{0, 0}));
    EXPECT_EQ(mxGetNumberOfElements(array.get()), 0u);
}

TEST(ArrayData, OnesBehindTheSecondDimensionAreDropped)
{
    EXPECT_EQ(dimensionsOf(numeric({4, 1, 7, 1, 1}, mxDOUBLE_CLASS)), (std::vector<mwSize>{4, 1, 7}));
    EXPECT_EQ(dimensionsOf(numeric({1, 1, 1}, mxDOUBLE_CLASS)), (std::vector<mwSize>{1, 1}));
    EXPECT_EQ(dimensionsOf(numeric({0, 3, 1}, mxDOUBLE_CLASS)), (std::vector<mwSize>{0, 3}));
}

TEST(ArrayData, TheColumnsOfAnArrayOfMoreDimensionsAreTheProductOfTheRest)
{
    Array array = numeric({2, 3, 4}, mxDOUBLE_CLASS);
    EXPECT_EQ(mxGetM(array.get()), 2u);
    EXPECT_EQ(mxGetN(array.get()), 12u);
    EXPECT_EQ(mxGetNumberOfElements(array.get()), 24u);
}

TEST(ArrayData, AnEmptyArrayHasNoBlock)
{
    Array array = numeric({0, 3}, mxDOUBLE_CLASS);
    EXPECT_EQ(mxGetM(array.get()), 0u);
    EXPECT_EQ(mxGetN(array.get()), 3u);
    EXPECT_EQ(mxGetData(array.get()), nullptr);
    EXPECT_EQ(mxGetPr(array.get()), nullptr);
}

TEST(ArrayData, TheBlockOfAnotherClassIsNotGivenAsDoubles)
{
    EXPECT_EQ(mxGetPr(numeric({1, 1}, mxINT32_CLASS).get()), nullptr);
    EXPECT_EQ(mxGetPr(numeric({1, 1}, mxSINGLE_CLASS).get()), nullptr);
    EXPECT_EQ(mxGetChars(numeric({1, 1}, mxDOUBLE_CLASS).get()), nullptr);
}

TEST(ArrayData, CharactersAreSixteenBitsEach)
{
    const mwSize dimensions[] = {1, 2};
    Array text(mxCreateCharArray_730(2, dimensions), mxDestroyArray);
    EXPECT_TRUE(mxIsChar(text.get()));
    EXPECT_EQ(mxGetChars(text.get())[0], 0);
    mxGetChars(text.get())[0] = 0x20AC; // euro sign
    mxGetChars(text.get())[1] = 0xFFFF;
    EXPECT_EQ(mxGetChars(text.get())[0], 0x20AC);
    EXPECT_EQ(static_cast<std::uint16_t *>(mxGetData(text.get()))[1], 0xFFFF);
}

TEST(ScalarOfAnArray, IsItsFirstElementWhateverTheClass)
{
    Array number(mxCreateDoubleMatrix_730(1, 2, mxREAL), mxDestroyArray);
    mxGetPr(number.get())[0] = -2.25;
    mxGetPr(number.get())[1] = 8;
    EXPECT_EQ(mxGetScalar(number.get()), -2.25);

    Array single = numeric({1, 1}, mxSINGLE_CLASS);
    *static_cast<float *>(mxGetData(single.get())) = 0.5f;
    EXPECT_EQ(mxGetScalar(single.get()), 0.5);

    Array integer = numeric({1, 1}, mxINT32_CLASS);
    *static_cast<std::int32_t *>(mxGetData(integer.get())) = -7;
    EXPECT_EQ(mxGetScalar(integer.get()), -7.0);

    Array truth(mxCreateLogicalScalar(true), mxDestroyArray);
    EXPECT_EQ(mxGetScalar(truth.get()), 1.0);
    Array falsehood(mxCreateLogicalScalar(false), mxDestroyArray);
    EXPECT_EQ(mxGetScalar(falsehood.get()), 0.0);

    const mwSize dimensions[] = {1, 1};
    Array text(mxCreateCharArray_730(2, dimensions), mxDestroyArray);
    mxGetChars(text.get())[0] = 'A';
    EXPECT_EQ(mxGetScalar(text.get()), 65.0);
}

TEST(ScalarOfAnArray, IsZeroForAnEmptyArrayAndForACell)
{
    EXPECT_EQ(mxGetScalar(numeric({0, 0}, mxDOUBLE_CLASS).get()), 0.0);
    const mwSize dimensions[] = {1, 1};
    Array cell(mxCreateCellArray_730(2, dimensions), mxDestroyArray);
    mxSetCell_730(cell.get(), 0, mxCreateLogicalScalar(true));
    EXPECT_EQ(mxGetScalar(cell.get()), 0.0);
}

TEST(ArrayData, TheFirstElementOfEveryNumericClassIsReadAsADouble)
{
    const mxClassID classes[] = {mxINT8_CLASS,  mxUINT8_CLASS,  mxINT16_CLASS, mxUINT16_CLASS,
                                 mxINT32_CLASS, mxUINT32_CLASS, mxINT64_CLASS, mxUINT64_CLASS};
    for (const mxClassID classId : classes) {
        Array array = numeric({1, 3}, classId);
        *static_cast<std::int8_t *>(mxGetData(array.get())) = 7; // the low byte
        EXPECT_EQ(mxGetScalar(array.get()), 7.0) << classId;
        EXPECT_EQ(mxGetNumberOfElements(array.get()), 3u) << classId;
        EXPECT_FALSE(mxIsDouble(array.get())) << classId;
    }
}

TEST(ArrayData, AClassThatHoldsNoNumbersIsToldBySizeAlone)
{
    for (const mxClassID classId : {mxUNKNOWN_CLASS, mxSTRUCT_CLASS, mxFUNCTION_CLASS}) {
        Array array = numeric({2, 2}, classId);
        EXPECT_EQ(mxGetNumberOfElements(array.get()), 4u) << classId;
        EXPECT_EQ(mxGetScalar(array.get()), 0.0) << classId;
        EXPECT_EQ(mxGetPr(array.get()), nullptr) << classId;
    }
}
