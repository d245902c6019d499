// The handle of the library itself, through which its version and its folder are found.
#pragma once

#include "platform/platform.h"

// Taken at the first call and kept.
HMODULE LibraryModule();
void ReleaseLibraryModule();
