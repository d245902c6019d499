// The path of this program, and of the files installed with it.
#pragma once

#include "platform/platform.h"

WideString ProgramFile();                   // its full path; empty when that is too long
WideString FileBesideProgram(LPCWSTR name); // in the same folder; empty when ProgramFile is
