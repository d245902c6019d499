#include "tests/support/matlab_array.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

using namespace support;

TEST(ArraysOfTests, AMatrixIsWrittenRowByRowAndStoredColumnByColumn)
{
    const Array matrix = Matrix({{1, 2, 3}, {4, 5, 6}});
    EXPECT_EQ(matrix.dimensions(), (std::vector<std::size_t>{2, 3}));
    EXPECT_EQ(matrix.numbers(), (std::vector<double>{1, 4, 2, 5, 3, 6}));
    EXPECT_EQ(matrix.matrix(), (std::vector<std::vector<double>>{{1, 2, 3}, {4, 5, 6}}));
}

TEST(ArraysOfTests, VectorsLieAsTheyAreCalled)
{
    EXPECT_EQ(Column({1, 2}).dimensions(), (std::vector<std::size_t>{2, 1}));
    EXPECT_EQ(Row({1, 2}).dimensions(), (std::vector<std::size_t>{1, 2}));
    EXPECT_EQ(Int32Column({1, 2, 3}).int32s(), (std::vector<std::int32_t>{1, 2, 3}));
    EXPECT_EQ(SingleColumn({1, 2}).classId(), mxSINGLE_CLASS);
    EXPECT_EQ(Zeros({2, 3, 4}).count(), 24u);
    EXPECT_EQ(Empty().dimensions(), (std::vector<std::size_t>{0, 0}));
}

TEST(ArraysOfTests, TextsKeepEveryUnit)
{
    const Array text = Text("\xE2\x82\xAC uro");
    EXPECT_EQ(text.dimensions(), (std::vector<std::size_t>{1, 5}));
    EXPECT_EQ(text.text(), Wide("\xE2\x82\xAC uro"));
    EXPECT_EQ(Text("").dimensions(), (std::vector<std::size_t>{1, 0}));
    EXPECT_EQ(EmptyText().dimensions(), (std::vector<std::size_t>{0, 0}));
    const Array matrix = TextMatrix({"ab", "cd"});
    EXPECT_EQ(WideString(mxGetChars(matrix.get()), 4), Wide("acbd"));
}

TEST(ArraysOfTests, CellsHoldCopies)
{
    Array number = Scalar(1);
    const Array cell = Cell({number, Text("x"), Cell({Scalar(2)}), Array()});
    *mxGetPr(number.get()) = 9;
    EXPECT_EQ(cell.dimensions(), (std::vector<std::size_t>{4, 1}));
    EXPECT_EQ(cell.element(0).number(), 1);
    EXPECT_EQ(cell.element(1).text(), Wide("x"));
    EXPECT_EQ(cell.element(2).element(0).number(), 2);
    EXPECT_FALSE(cell.element(3));
    EXPECT_EQ(Texts({"a", "b"}).texts(), Names({"a", "b"}));
    EXPECT_TRUE(EmptyCell().texts().empty());
}

TEST(ArraysOfTests, AnElementOutlivesItsCell)
{
    const std::size_t before = mxStandInLiveArrays();
    Array element;
    {
        element = Cell({Scalar(3)}).element(0);
    }
    EXPECT_EQ(element.number(), 3);
    EXPECT_EQ(mxStandInLiveArrays(), before + 2);
}

TEST(ArraysOfTests, NothingIsLeftWhenTheLastCopyGoes)
{
    const std::size_t before = mxStandInLiveArrays();
    {
        const Array first = Complex(1, 2);
        const Array second = first;
        EXPECT_EQ(mxStandInLiveArrays(), before + 1);
    }
    EXPECT_EQ(mxStandInLiveArrays(), before);
}

TEST(ArraysOfTests, ReadingAnotherClassOrShapeFailsTheTest)
{
    static const Array number = Scalar(1);
    static const Array column = Column({1, 2});
    static const Array wideText = TextMatrix({"ab", "cd"});
    static const Array cellRow = CellRow({Text("a"), Text("b")});
    static const Array complex = Complex(1, 1);
    EXPECT_NONFATAL_FAILURE(number.text(), "the array is of class 6, not 4");
    EXPECT_NONFATAL_FAILURE(number.int32(), "the array is of class 6, not 12");
    EXPECT_NONFATAL_FAILURE(column.number(), "the array has 2 elements, not 1");
    EXPECT_NONFATAL_FAILURE(wideText.text(), "the text is not one row");
    EXPECT_NONFATAL_FAILURE(cellRow.texts(), "the cell is no column");
    EXPECT_NONFATAL_FAILURE(complex.numbers(), "the array is complex");
    EXPECT_NONFATAL_FAILURE(Array().element(0), "there is no array");
}
