// MATLAB arrays in tests: texts in any form, and a reader that meets another array than it reads fails the test.
#pragma once

#include "host/array.h"
#include "tests/support/text.h"

namespace support {

using host::Array;
using host::Cell;
using host::CellRow;
using host::Column;
using host::Complex;
using host::ComplexColumn;
using host::Empty;
using host::EmptyCell;
using host::EmptyText;
using host::Int32;
using host::Int32Column;
using host::Logical;
using host::Matrix;
using host::Row;
using host::Scalar;
using host::Single;
using host::SingleColumn;
using host::Zeros;

Array Text(const AnyText &text);                       // 1-by-length
Array TextMatrix(std::initializer_list<AnyText> rows); // all rows of one length
Array Texts(std::initializer_list<AnyText> texts);     // a cell column of texts

// From the start of each program of tests on.
bool FailTestsAtComplaints();
inline const bool complaintsFailTests = FailTestsAtComplaints();

} // namespace support
