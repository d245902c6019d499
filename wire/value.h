// A value of a script, described without MATLAB's arrays or Octave's: what the two sides of a border tell each other.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace wire {

// MATLAB's numbers for its classes. Only `Opaque` loses anything on its way: of a struct, a function handle, a sparse
// matrix and the like the library learns no more than their size, and that they are nothing it can use.
enum class Class : std::uint8_t {
    Opaque = 0,
    Cell = 1,
    Logical = 3,
    Char = 4,
    Double = 6,
    Single = 7,
    Int8 = 8,
    UInt8 = 9,
    Int16 = 10,
    UInt16 = 11,
    Int32 = 12,
    UInt32 = 13,
    Int64 = 14,
    UInt64 = 15,
    Missing = 255, // the unset element of a cell, an output that was not set
};

// Dimensions and elements, column after column, stay where they are and have to outlive the value.
struct Value {
    Class type = Class::Missing;
    std::size_t dimensionCount = 0; // at least two, unless missing
    const std::size_t *dimensions = nullptr;
    const void *real = nullptr;      // null for a cell, and for what is opaque
    const void *imaginary = nullptr; // null unless complex
    std::vector<Value> elements;     // of a cell
};

constexpr std::size_t ElementCount(const Value &value)
{
    std::size_t count = value.dimensionCount == 0 ? 0 : 1;
    for (std::size_t k = 0; k < value.dimensionCount; ++k)
        count *= value.dimensions[k];
    return count;
}

// Of classes whose elements are bytes in a row; 0 for the others.
constexpr std::size_t ElementSize(Class type)
{
    switch (type) {
    case Class::Logical:
    case Class::Int8:
    case Class::UInt8:
        return 1;
    case Class::Char:
    case Class::Int16:
    case Class::UInt16:
        return 2;
    case Class::Single:
    case Class::Int32:
    case Class::UInt32:
        return 4;
    case Class::Double:
    case Class::Int64:
    case Class::UInt64:
        return 8;
    default:
        return 0;
    }
}

constexpr bool IsNumeric(Class type) { return type >= Class::Double && type <= Class::UInt64; }

} // namespace wire
