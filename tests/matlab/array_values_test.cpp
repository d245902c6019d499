#include "host/array_values.h"

#include <gtest/gtest.h>

using wire::Class;
using wire::Value;

namespace {

constexpr std::size_t pair[] = {1, 2};

Value pairOf(Class type, const void *real, const void *imaginary = nullptr)
{
    return {type, 2, pair, real, imaginary, {}};
}

class ArrayValues : public testing::Test {
protected:
    void TearDown() override { EXPECT_EQ(mxStandInLiveArrays(), 0u); }
};

TEST_F(ArrayValues, UseTheElementsWhereTheyLie)
{
    const double numbers[] = {1, 2};
    const Class types[] = {Class::Logical, Class::Char,   Class::Double, Class::Single, Class::Int8,  Class::UInt8,
                           Class::Int16,   Class::UInt16, Class::Int32,  Class::UInt32, Class::Int64, Class::UInt64};
    for (const Class type : types) {
        mxArray *array = host::ArrayOf(pairOf(type, numbers));
        ASSERT_TRUE(array);
        EXPECT_EQ(mxGetData(array), numbers);
        const Value value = host::ValueOf(array);
        EXPECT_EQ(value.type, type);
        ASSERT_EQ(value.dimensionCount, 2u);
        EXPECT_EQ(value.dimensions[0], 1u);
        EXPECT_EQ(value.dimensions[1], 2u);
        EXPECT_EQ(value.real, numbers);
        EXPECT_EQ(value.imaginary, nullptr);
        mxDestroyArray(array);
    }
}

TEST_F(ArrayValues, CopyComplexNumbers)
{
    const double real[] = {1, 2};
    const double imaginary[] = {3, 4};
    mxArray *array = host::ArrayOf(pairOf(Class::Double, real, imaginary));
    const Value value = host::ValueOf(array);
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(static_cast<const double *>(value.real)[i], real[i]);
        EXPECT_EQ(static_cast<const double *>(value.imaginary)[i], imaginary[i]);
    }
    mxDestroyArray(array);

    const float singles[] = {1, 2};
    array = host::ArrayOf(pairOf(Class::Single, singles, singles));
    EXPECT_TRUE(mxIsComplex(array));
    EXPECT_EQ(static_cast<const float *>(mxGetData(array))[0], singles[0]);
    EXPECT_EQ(static_cast<const float *>(mxGetData(array))[1], singles[1]);
    mxDestroyArray(array);
}

TEST_F(ArrayValues, KeepCellsAndWhatIsMissingInThem)
{
    const double numbers[] = {1, 2};
    Value cell = pairOf(Class::Cell, nullptr);
    cell.elements = {Value{}, pairOf(Class::Double, numbers)};
    mxArray *array = host::ArrayOf(cell);
    EXPECT_EQ(mxGetCell_730(array, 0), nullptr);
    EXPECT_EQ(mxGetData(mxGetCell_730(array, 1)), numbers);
    const Value value = host::ValueOf(array);
    ASSERT_EQ(value.elements.size(), 2u);
    EXPECT_EQ(value.elements[0].type, Class::Missing);
    EXPECT_EQ(value.elements[1].real, numbers);
    mxDestroyArray(array);
    EXPECT_EQ(host::ArrayOf(Value{}), nullptr);
    EXPECT_EQ(host::ValueOf(nullptr).type, Class::Missing);
}

TEST_F(ArrayValues, KeepOfWhatIsOpaqueItsSizeHoweverLarge)
{
    const std::size_t huge[] = {std::size_t{1} << 40, std::size_t{1} << 20};
    Value opaque = pairOf(Class::Opaque, nullptr);
    opaque.dimensions = huge;
    mxArray *array = host::ArrayOf(opaque);
    ASSERT_TRUE(array);
    EXPECT_EQ(mxGetNumberOfElements(array), std::size_t{1} << 60);
    EXPECT_EQ(host::ValueOf(array).type, Class::Opaque);
    EXPECT_EQ(host::ValueOf(array).real, nullptr);
    mxDestroyArray(array);

    const mwSize dimensions[] = {1, 1};
    mxArray *function = mxCreateNumericArray_730(2, dimensions, mxFUNCTION_CLASS, mxREAL);
    EXPECT_EQ(host::ValueOf(function).type, Class::Opaque);
    mxDestroyArray(function);
}

TEST_F(ArrayValues, LeaveNothingBehindWithoutMemory)
{
    const double numbers[] = {1, 2};
    Value inner = pairOf(Class::Cell, nullptr);
    inner.elements = {pairOf(Class::Double, numbers), pairOf(Class::Double, numbers, numbers)};
    Value cell = pairOf(Class::Cell, nullptr);
    cell.elements = {pairOf(Class::Double, numbers), inner};
    for (std::size_t creation = 1; creation <= 3; ++creation) { // two cells, one complex array
        mxStandInFailCreation(creation);
        EXPECT_EQ(host::ArrayOf(cell), nullptr) << creation;
        EXPECT_EQ(mxStandInLiveArrays(), 0u) << creation;
    }
    mxStandInFailCreation(0);
}

} // namespace
