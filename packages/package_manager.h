// A property package manager is a short-lived tool here: created, initialized, asked once,
// terminated and released.
#pragma once

#include "cape/com/cape_open.h"
#include "cape/com/com_pointer.h"
#include "packages/discovery.h"

// Finds the source of that name in the scanned registry. Null with the message in LastError.
const PackageSource *RequirePackageSource(const WideString &name);

// The class id of a source; false with the message in LastError.
bool ClassIdOf(const PackageSource &source, CLSID &classId);

// Creates and initializes the manager of a source. False with the message in LastError; a manager
// that can't be initialized is released without being terminated.
bool OpenManager(const PackageSource &source, ComPointer<ICapeThermoPropertyPackageManager> &manager);

// Terminates and releases the manager.
void CloseManager(ComPointer<ICapeThermoPropertyPackageManager> &manager);
