// The MATLAB external interface as the system uses it, under the names that libmx and libmex
// export. The _730 entry points take 64-bit sizes.
#pragma once

#include "platform/platform.h"

#include <cstddef>

struct mxArray;
using mwSize = std::size_t;
using mwIndex = std::size_t;

enum mxClassID {
    mxUNKNOWN_CLASS = 0,
    mxCELL_CLASS = 1,
    mxSTRUCT_CLASS = 2,
    mxLOGICAL_CLASS = 3,
    mxCHAR_CLASS = 4,
    mxDOUBLE_CLASS = 6,
    mxSINGLE_CLASS = 7,
    mxINT8_CLASS = 8,
    mxUINT8_CLASS = 9,
    mxINT16_CLASS = 10,
    mxUINT16_CLASS = 11,
    mxINT32_CLASS = 12,
    mxUINT32_CLASS = 13,
    mxINT64_CLASS = 14,
    mxUINT64_CLASS = 15,
    mxFUNCTION_CLASS = 16,
};
enum mxComplexity { mxREAL = 0, mxCOMPLEX = 1 };

extern "C" {
bool mxIsDouble(const mxArray *array);
bool mxIsComplex(const mxArray *array);
bool mxIsInt32(const mxArray *array);
bool mxIsChar(const mxArray *array);
bool mxIsCell(const mxArray *array);
mxClassID mxGetClassID(const mxArray *array);
std::size_t mxGetNumberOfElements(const mxArray *array);
std::size_t mxGetM(const mxArray *array);
std::size_t mxGetN(const mxArray *array); // the product of all dimensions behind the first

// The first element as a double. MATLAB promises nothing for an empty array and for a class that
// holds no numbers; the stand-in gives 0 for both.
double mxGetScalar(const mxArray *array);

// Data blocks. The stand-in gives null for an empty array, for a cell, and where the class is not
// the one that the name speaks of (mxGetPr: double, mxGetChars: char).
void *mxGetData(const mxArray *array);
double *mxGetPr(const mxArray *array);
WCHAR *mxGetChars(const mxArray *array); // not terminated

// Null for an element that was never set, for an index beyond the end, and when it is no cell.
mxArray *mxGetCell_730(const mxArray *array, mwIndex index);

// New arrays are filled with zeros, cells with nulls. One dimension n makes an n-by-1 array, and
// ones behind the second dimension are dropped. Without memory the call ends with an error.
mxArray *mxCreateDoubleMatrix_730(mwSize rows, mwSize columns, mxComplexity complexity);
mxArray *mxCreateNumericArray_730(mwSize dimensionCount, const mwSize *dimensions, mxClassID classId,
                                  mxComplexity complexity);
mxArray *mxCreateCharArray_730(mwSize dimensionCount, const mwSize *dimensions);
mxArray *mxCreateCellArray_730(mwSize dimensionCount, const mwSize *dimensions);
void mxSetCell_730(mxArray *array, mwIndex index, mxArray *value); // the cell owns the value from then on

[[noreturn]] void mexErrMsgTxt(const char *message); // ends the call of mexFunction
void mexWarnMsgTxt(const char *message);
int mexAtExit(void (*routine)());
}
