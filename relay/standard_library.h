// The CAPE-OPEN 1.1 type library, CapeOpen11.tlb beside the program, in the registry. By it the calls of packages get
// from one process to another. Most machines have the library from a package; for one that has none, there is this.
#pragma once

#include "platform/platform.h"

// Enters it for programs of both kinds, unless somebody else's is registered and can be loaded. Gives the first
// failure; administrators can do it.
HRESULT RegisterStandardLibrary();

// Takes it back, if it is this one that is registered.
HRESULT UnregisterStandardLibrary();
