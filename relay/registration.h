// Registers the relay: its class in both registry views, so that 32-bit and 64-bit clients find it, and the type
// library that calls between processes are marshalled by.
#pragma once

#include "platform/platform.h"

// Both need administrator rights, and return the first error.
HRESULT RegisterServer();
HRESULT UnregisterServer(); // entries that do not exist are not an error
