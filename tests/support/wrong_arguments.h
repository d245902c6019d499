// Arguments that a command has to refuse.
#pragma once

#include "tests/support/matlab_array.h"

#include <string>
#include <vector>

namespace support {

// Arrays that are no handle, made around the handle of the only package that is open.
std::vector<Array> WrongHandles(const Array &handle);

// Arrays that stand for no string.
std::vector<Array> WrongStrings();

// One-by-one arrays that are no real doubles.
std::vector<Array> WrongScalars();

// A double row with imaginary parts, which are zero.
Array ComplexRow(std::size_t columns);

// An argument that is refused, and with which words.
struct WrongArgument {
    std::size_t position;
    Array value;
    std::string message;
};

} // namespace support
