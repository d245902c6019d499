// An array on its way between Octave and the library, in terms of neither: both call their arrays mxArray and have
// functions of the same names, so no source file can speak to both.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace bridge {

enum class Kind { number, logical, text, int32, cell, other };

struct Value {
    Kind kind = Kind::other;
    std::vector<std::size_t> dimensions; // at least two; of a text those of its bytes
    std::vector<double> numbers;         // number, logical and int32: the elements; other: the first one, if any
    std::vector<double> imaginary;       // number: empty unless complex
    std::string text;                    // UTF-8
    std::vector<Value> elements;         // cell
};

// One call of the library.
struct Call {
    int resultCount = 0; // how many the caller asked for
    std::vector<Value> arguments;
    std::vector<Value> results; // as many as were stored, in order
    std::vector<std::string> warnings;
    std::string error; // what was raised; only when the call failed
};

// The library's side, found by name in libverdanth_octave.so. The first gives false when the library raised or could
// not be loaded; the second is for when Octave clears the function.
using RunCall = bool (*)(Call &call);
using EndLibrary = void (*)();

} // namespace bridge
