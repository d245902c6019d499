// The way to 32-bit in-process components from a 64-bit process: a companion executable creates
// them in its own process.
#pragma once

#include "platform/platform.h"

// Creates a 32-bit class through the relay and warns the user, naming the object. E_UNEXPECTED when
// the relay is not available, otherwise the result of the step that failed.
HRESULT CreateThroughRelay(REFCLSID classId, REFIID iid, void **object);

// Gives up the instance that keeps the relay alive.
void ReleaseRelay();
