// Registers the CAPE-OPEN 1.1 type library, CapeOpen11.tlb beside the program, by which calls to packages are
// marshalled between processes. On most machines some package has installed that library already; this is for the
// others.
#pragma once

#include "platform/platform.h"

// Registers it for 32-bit and 64-bit programs, unless another one is registered and can be loaded. Needs administrator
// rights; returns the first error.
HRESULT RegisterStandardLibrary();

// Unregisters it, if it is this file that is registered.
HRESULT UnregisterStandardLibrary();
