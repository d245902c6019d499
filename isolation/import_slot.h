// The place from which a loaded module calls a function of another: what its import table says.
#pragma once

#include "platform/platform.h"

using AnyFunction = void (*)();

// The slot with the address of a function that the module imports by name; null if it does not.
AnyFunction *FindImportSlot(HMODULE module, const char *function);

void WriteImportSlot(AnyFunction *slot, AnyFunction function);
