// What the two sides of the bridge say to each other. Octave and the library's MATLAB stand-in have functions and a
// type of the same names, mxArray first of all, so that no source file can know both: octave_side.cpp speaks with
// Octave, library_side.cpp with the library, and between them go plain descriptions of values.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

struct BridgeValue {
    // Only `Opaque` loses anything on its way: of a struct, a function handle, a sparse matrix and the like the
    // library learns no more than that it is nothing it can use.
    enum Kind {
        Missing, // the empty element of a cell
        Opaque,
        Cell,
        Text,
        Logical,
        Double,
        Single,
        Int8,
        UInt8,
        Int16,
        UInt16,
        Int32,
        UInt32,
        Int64,
        UInt64,
    };

    Kind kind = Missing;
    // What belongs to an array stays where it is: its dimensions, and its elements column after column. A text has only
    // `text`.
    std::size_t dimensionCount = 0;
    const std::size_t *dimensions = nullptr;
    const void *real = nullptr;
    const void *imaginary = nullptr;   // null for a real array
    std::string text;                  // of `Text`: UTF-8, column after column
    std::vector<BridgeValue> elements; // of `Cell`
};

class LibrarySide {
public:
    // Calls the library. False when it raised; then error() is its text and there are no results. At least one result
    // comes back otherwise; its data live until release().
    virtual bool call(int outputs, const std::vector<BridgeValue> &arguments) = 0;
    virtual const std::vector<BridgeValue> &results() const = 0;
    virtual const std::string &error() const = 0;
    virtual const std::vector<std::string> &warnings() const = 0; // of the last call, in order
    virtual void release() = 0;

    // Runs the library's exit routine and unloads it; the next call loads it again.
    virtual void unload() = 0;

protected:
    ~LibrarySide() = default;
};

// The one there is, of the shared library that holds library_side.cpp. Lives as long as that library.
extern "C" LibrarySide *VerdanthLibrarySide();
using LibrarySideGetter = LibrarySide *(*)();
