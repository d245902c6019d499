// What the two sides of the bridge say to each other. Octave and the library's MATLAB stand-in have functions and a
// type of the same names, mxArray first of all, so that no source file can know both: octave_side.cpp speaks with
// Octave, library_side.cpp with the library, and between them go plain descriptions of values.
#pragma once

#include "client/caller.h"
#include "client/library_side.h"

// The one that is called `native`, which has the library in this process, or `windows`, where it runs under Wine; null
// for any other name. Lives as long as the shared library that holds it.
extern "C" LibrarySide *VerdanthLibrarySide(const char *name, const Caller *caller);
using LibrarySideGetter = LibrarySide *(*)(const char *, const Caller *);
