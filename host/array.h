// MATLAB arrays as a program that plays MATLAB writes them for arguments and reads them from results.
#pragma once

#include "platform/matlab/standin.h"

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace host {

// One array, shared by its copies and destroyed with the last of them. A reader gives an empty value, or what there is,
// after the complaint that the array is not what it reads.
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

// Gets the complaints of readers from now on. Without one a complaint ends the program.
using Complaint = void (*)(const std::string &message);
void SetComplaint(Complaint complaint);

Array Scalar(double value);
Array Column(const std::vector<double> &values);
Array Row(const std::vector<double> &values);
Array Matrix(const std::vector<std::vector<double>> &rows);        // all rows of one length
Array Filled(std::size_t rows, std::size_t columns, double value); // double
Array Zeros(const std::vector<mwSize> &dimensions);                // double, any number of dimensions
Array Empty();                                                     // double, 0-by-0
Array Complex(double real, double imaginary);
Array ComplexColumn(const std::vector<double> &real); // with imaginary parts of zero
Array Int32(std::int32_t value);
Array Int32Column(const std::vector<std::int32_t> &values);
Array Logical(bool value);
Array Single(float value);
Array SingleColumn(const std::vector<float> &values);

Array Text(const WideString &text); // 1-by-length
Array Text(std::string_view ascii);
Array EmptyText();                                     // 0-by-0
Array TextMatrix(const std::vector<WideString> &rows); // all rows of one length

Array Cell(const std::vector<Array> &elements); // n-by-1; elements without an array stay unset
Array CellRow(const std::vector<Array> &elements);
Array Texts(std::initializer_list<std::string_view> ascii); // a cell column of texts
Array EmptyCell();                                          // 0-by-0

} // namespace host
