// Between MATLAB arrays and the system's values. Text is 16-bit code units on both sides and moves
// by plain copy.
#pragma once

#include "gateway/call/verdict.h"
#include "platform/matlab/matlab.h"
#include "platform/platform.h"

#include <cstddef>
#include <cstdint>
#include <vector>

// A new terminated string from a char array, or from a cell that holds exactly one; a char matrix
// is read column by column. Null when the array is no string, and when memory is out: only then
// `outOfMemory` is set. The caller frees it with FreeStringArg.
WCHAR *GetStringArg(const mxArray *array, bool &outOfMemory);
void FreeStringArg(WCHAR *text);

// Owner of what GetStringArg gave.
class StringArg {
public:
    StringArg() = default;
    StringArg(const StringArg &) = delete;
    StringArg &operator=(const StringArg &) = delete;
    ~StringArg() { FreeStringArg(text); }

    // Takes the string of an array; `notString` is the command's message for anything else.
    Verdict read(const mxArray *array, const char *notString);

    LPCWSTR get() const { return text; }
    void free();

private:
    WCHAR *text = nullptr;
};

// The blank-separated names of a string, or of a cell of strings, into NameList. False when the
// array is neither; names of earlier elements are then in NameList.
bool ParseNameList(const mxArray *array);
void AppendNames(const WCHAR *units, std::ptrdiff_t count);

// A cell of row strings, n-by-1 or 0-by-0 when empty, into a result slot.
void PutStringCell(const std::vector<WideString> &list, mxArray **slot);

// A 1-by-length char array into a result slot.
void PutRowString(const WideString &text, mxArray **slot);
mxArray *CreateRowString(const WideString &text);

// A real double array, the only kind of numbers that is taken as values.
inline bool IsRealDouble(const mxArray *array) { return mxIsDouble(array) && !mxIsComplex(array); }

// The first element as a number; 0 for an array that has none to give.
double ScalarOf(const mxArray *array);
