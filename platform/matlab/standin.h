// What a program that plays MATLAB needs beside the interface itself: arrays for arguments, a
// protected call of a MEX function, what was raised and warned, the exit routine.
#pragma once

#include "platform/matlab/matlab.h"

using MexFunction = void (*)(int nlhs, mxArray *plhs[], int nrhs, const mxArray *prhs[]);

// How mexErrMsgTxt leaves the call: by an exception that unwinds its frames, or by a jump that
// runs no destructor in them. MATLAB's own way is not documented, so hosts try both.
enum MexLeave { mexLEAVE_UNWIND = 0, mexLEAVE_JUMP = 1 };

extern "C" {
mxArray *mxCreateLogicalScalar(bool value);
std::size_t mxGetNumberOfDimensions(const mxArray *array);
const mwSize *mxGetDimensions(const mxArray *array);
double *mxGetPi(const mxArray *array);           // imaginary parts, null for a real array
mxArray *mxDuplicateArray(const mxArray *array); // elements of cells too
void mxDestroyArray(mxArray *array);             // a cell's elements too; null is ignored

// A real array over elements that are there already, column after column, and stay the host's: they have to outlive the
// array. Of no class with elements that are arrays themselves. Null when there is no memory.
mxArray *mxStandInArrayOver(mwSize dimensionCount, const mwSize *dimensions, mxClassID classId, const void *elements);

// Number of arrays alive in the process, elements of cells counted too.
std::size_t mxStandInLiveArrays();

// Makes the n-th following creation of an array fail as MATLAB does when memory is out: the call
// of the MEX function ends with the error "Out of memory.", and outside of a call the creation
// gives null. 0 switches it off.
void mxStandInFailCreation(std::size_t n);

// Calls a MEX function. Gives true when it returned and false when it raised; then the text is
// that of mexStandInError, and plhs holds nulls. Arrays that the call made and did not return are
// destroyed, as MATLAB does. Entries of plhs beyond nlhs (one for nlhs 0) are destroyed too, and
// plhs has room for no more than that. An output that is not the call's own (an argument, an
// element of a cell) comes back as a copy. An exception of another's making that gets out of the
// function counts as raised, with the text "Unexpected exception: " and its own.
bool mexStandInCall(MexFunction function, int nlhs, mxArray *plhs[], int nrhs, const mxArray *prhs[], MexLeave leave);
const char *mexStandInError();

// Warnings since the last clearing, in order.
std::size_t mexStandInWarningCount();
const char *mexStandInWarning(std::size_t index);
void mexStandInClearWarnings();

// Is called at each warning, inside the call that gives it; null for nobody.
void mexStandInOnWarning(void (*listener)());

// Runs and forgets the registered exit routine, as clearing a MEX file does. Gives false when
// none was registered.
bool mexStandInRunExit();
}
