// MATLAB arrays as a test writes them for arguments and reads them from results.
#pragma once

#include "platform/matlab/standin.h"
#include "tests/support/text.h"

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <vector>

namespace support {

// One array, shared by its copies and destroyed with the last of them. Readers fail the running
// test when the array is not what they read, and give an empty value.
class Array {
public:
    Array() = default; // no array at all: an output that was not set
    explicit Array(mxArray *owned);

    mxArray *get() const { return array.get(); }
    explicit operator bool() const { return array != nullptr; }

    mxClassID classId() const;
    std::vector<std::size_t> dimensions() const;
    std::size_t count() const;

    double number() const;                                                // double, 1-by-1
    std::vector<double> numbers() const;                                  // double, in storage order
    std::vector<std::vector<double>> matrix() const;                      // double, row by row
    std::int32_t int32() const;                                           // int32, 1-by-1
    std::vector<std::int32_t> int32s() const;                             // int32, in storage order
    WideString text() const;                                              // char with one row, or empty
    std::vector<WideString> texts() const;                                // a cell column of texts, or a 0-by-0 cell
    Array element(std::size_t index) const;                               // of a cell; keeps the cell alive
    std::vector<std::vector<double>> cellMatrix(std::size_t index) const; // element(index).matrix()

private:
    bool is(mxClassID expected) const;
    bool isScalar(mxClassID expected) const;

    std::shared_ptr<mxArray> array;
};

Array Scalar(double value);
Array Column(std::vector<double> values);
Array Row(std::vector<double> values);
Array Matrix(std::vector<std::vector<double>> rows); // all rows of one length
Array Zeros(std::vector<mwSize> dimensions);         // double, any number of dimensions
Array Empty();                                       // double, 0-by-0
Array Complex(double real, double imaginary);
Array ComplexColumn(std::vector<double> real); // with imaginary parts of zero
Array Int32(std::int32_t value);
Array Int32Column(std::vector<std::int32_t> values);
Array Logical(bool value);
Array Single(float value);
Array SingleColumn(std::vector<float> values);

Array Text(AnyText text); // 1-by-length
Array EmptyText();        // 0-by-0
Array TextMatrix(std::initializer_list<AnyText> rows);

Array Cell(std::vector<Array> elements); // n-by-1; elements without an array stay unset
Array CellRow(std::vector<Array> elements);
Array Texts(std::initializer_list<AnyText> texts); // a cell column of texts
Array EmptyCell();                                 // 0-by-0

} // namespace support
