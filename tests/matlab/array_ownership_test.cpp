#include "platform/matlab/standin.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>

namespace {

using Array = std::unique_ptr<mxArray, decltype(&mxDestroyArray)>;

mxArray *makeCell(mwSize rows, mwSize columns)
{
    const mwSize dimensions[] = {rows, columns};
    return mxCreateCellArray_730(2, dimensions);
}

} // namespace

TEST(ArrayOwnership, EveryArrayIsCounted)
{
    EXPECT_EQ(mxStandInLiveArrays(), 0u);
    mxArray *first = mxCreateDoubleMatrix_730(1, 1, mxREAL);
    mxArray *second = mxCreateLogicalScalar(true);
    EXPECT_EQ(mxStandInLiveArrays(), 2u);
    mxDestroyArray(first);
    EXPECT_EQ(mxStandInLiveArrays(), 1u);
    mxDestroyArray(second);
    EXPECT_EQ(mxStandInLiveArrays(), 0u);
}

TEST(ArrayOwnership, DestroyingNothingIsAllowed)
{
    mxDestroyArray(nullptr);
    EXPECT_EQ(mxStandInLiveArrays(), 0u);
}

TEST(ArrayOwnership, ACellStartsWithoutElements)
{
    Array cell(makeCell(2, 2), mxDestroyArray);
    EXPECT_TRUE(mxIsCell(cell.get()));
    for (mwIndex i = 0; i < 4; ++i)
        EXPECT_EQ(mxGetCell_730(cell.get(), i), nullptr);
    EXPECT_EQ(mxGetData(cell.get()), nullptr);
}

TEST(ArrayOwnership, ACellGivesNothingBeyondItsEnd)
{
    Array cell(makeCell(1, 1), mxDestroyArray);
    EXPECT_EQ(mxGetCell_730(cell.get(), 1), nullptr);
    Array number(mxCreateDoubleMatrix_730(1, 1, mxREAL), mxDestroyArray);
    EXPECT_EQ(mxGetCell_730(number.get(), 0), nullptr);
}

TEST(ArrayOwnership, ACellDestroysItsElementsAtAnyDepth)
{
    mxArray *outer = makeCell(1, 2);
    mxArray *inner = makeCell(1, 1);
    mxArray *leaf = mxCreateDoubleMatrix_730(1, 1, mxREAL);
    mxSetCell_730(inner, 0, leaf);
    mxSetCell_730(outer, 1, inner);
    EXPECT_EQ(mxGetCell_730(outer, 1), inner);
    EXPECT_EQ(mxGetCell_730(inner, 0), leaf);
    EXPECT_EQ(mxStandInLiveArrays(), 3u);
    mxDestroyArray(outer);
    EXPECT_EQ(mxStandInLiveArrays(), 0u);
}

TEST(ArrayOwnership, ADuplicateSharesNothing)
{
    Array cell(makeCell(1, 2), mxDestroyArray);
    mxSetCell_730(cell.get(), 1, mxCreateLogicalScalar(true));
    Array duplicate(mxDuplicateArray(cell.get()), mxDestroyArray);
    EXPECT_EQ(mxStandInLiveArrays(), 4u);
    *static_cast<bool *>(mxGetData(mxGetCell_730(cell.get(), 1))) = false;
    EXPECT_EQ(mxGetCell_730(duplicate.get(), 0), nullptr);
    EXPECT_EQ(mxGetScalar(mxGetCell_730(duplicate.get(), 1)), 1.0);
    EXPECT_EQ(mxGetN(duplicate.get()), 2u);
}

TEST(ArrayOwnership, ElementsOfTheHostAreUsedWhereTheyAreAndLeftToIt)
{
    double values[] = {1, 2, 3, 4, 5, 6};
    const mwSize dimensions[] = {3, 2, 1};
    Array array(mxStandInArrayOver(3, dimensions, mxDOUBLE_CLASS, values), mxDestroyArray);
    EXPECT_EQ(mxGetPr(array.get()), values);
    EXPECT_EQ(mxGetNumberOfDimensions(array.get()), 2u);
    EXPECT_EQ(mxGetNumberOfElements(array.get()), 6u);
    const Array copy(mxDuplicateArray(array.get()), mxDestroyArray);
    array.reset();
    EXPECT_EQ(values[5], 6);
    EXPECT_NE(mxGetPr(copy.get()), values);
    EXPECT_EQ(mxGetPr(copy.get())[5], 6);
    values[5] = 7;
    EXPECT_EQ(mxGetPr(copy.get())[5], 6);
}

TEST(ArrayOwnership, AnEmptyArrayTakesNoElementsOfTheHost)
{
    const double value = 1;
    const mwSize dimensions[] = {0, 5};
    const Array array(mxStandInArrayOver(2, dimensions, mxDOUBLE_CLASS, &value), mxDestroyArray);
    EXPECT_EQ(mxGetPr(array.get()), nullptr);
}

TEST(ArrayOwnership, AnElementThatIsReplacedIsNotDestroyed)
{
    Array cell(makeCell(1, 1), mxDestroyArray);
    mxArray *former = mxCreateLogicalScalar(false);
    mxSetCell_730(cell.get(), 0, former);
    mxSetCell_730(cell.get(), 0, mxCreateLogicalScalar(true));
    EXPECT_EQ(mxStandInLiveArrays(), 3u);
    EXPECT_EQ(mxGetScalar(former), 0.0);
    mxDestroyArray(former);
    EXPECT_EQ(mxStandInLiveArrays(), 2u);
}

TEST(ArrayOwnership, AnElementCanBeTakenOutAgain)
{
    Array cell(makeCell(1, 1), mxDestroyArray);
    mxArray *element = mxCreateLogicalScalar(true);
    mxSetCell_730(cell.get(), 0, element);
    mxSetCell_730(cell.get(), 0, nullptr);
    EXPECT_EQ(mxGetCell_730(cell.get(), 0), nullptr);
    mxDestroyArray(element);
    EXPECT_EQ(mxStandInLiveArrays(), 1u);
}

TEST(ArrayOwnership, ASizeThatCannotBeAddressedGivesNoArray)
{
    EXPECT_EQ(mxCreateDoubleMatrix_730(SIZE_MAX, 2, mxREAL), nullptr);
    EXPECT_EQ(mxCreateDoubleMatrix_730(SIZE_MAX / 4, 1, mxREAL), nullptr);
    EXPECT_EQ(mxStandInLiveArrays(), 0u);
}

TEST(ArrayOwnership, AHugeSizeTimesNoneIsAnEmptyArray)
{
    Array array(mxCreateDoubleMatrix_730(SIZE_MAX, 0, mxREAL), mxDestroyArray);
    ASSERT_NE(array, nullptr);
    EXPECT_EQ(mxGetM(array.get()), SIZE_MAX);
    EXPECT_EQ(mxGetNumberOfElements(array.get()), 0u);
}

TEST(ArrayOwnership, TheChosenCreationFailsAndOnlyThatOne)
{
    mxStandInFailCreation(2);
    Array first(mxCreateLogicalScalar(true), mxDestroyArray);
    Array second(mxCreateLogicalScalar(true), mxDestroyArray);
    Array third(mxCreateLogicalScalar(true), mxDestroyArray);
    EXPECT_NE(first, nullptr);
    EXPECT_EQ(second, nullptr);
    EXPECT_NE(third, nullptr);
}

TEST(ArrayOwnership, AFailureAskedForCanBeCalledOff)
{
    mxStandInFailCreation(1);
    mxStandInFailCreation(0);
    Array array(mxCreateLogicalScalar(true), mxDestroyArray);
    EXPECT_NE(array, nullptr);
}

TEST(ArrayOwnershipDeath, ACellHasItsOwnElements)
{
    const mwSize dimensions[] = {1, 1};
    const double value = 1;
    EXPECT_DEATH(mxStandInArrayOver(2, dimensions, mxCELL_CLASS, &value), "a cell array over elements of the host");
}

TEST(ArrayOwnershipDeath, OneArrayCannotStandInTwoCells)
{
    Array cell(makeCell(1, 2), mxDestroyArray);
    mxArray *element = mxCreateLogicalScalar(true);
    mxSetCell_730(cell.get(), 0, element);
    EXPECT_DEATH(mxSetCell_730(cell.get(), 1, element),
                 "MATLAB stand-in: mxSetCell of an array that already stands in a cell");
}

TEST(ArrayOwnershipDeath, NothingCanBeSetBeyondTheEndOfACell)
{
    Array cell(makeCell(1, 1), mxDestroyArray);
    EXPECT_DEATH(mxSetCell_730(cell.get(), 1, nullptr), "MATLAB stand-in: mxSetCell outside of a cell array");
}
