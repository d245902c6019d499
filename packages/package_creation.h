// From the names of a manager and a package to a handle on a live package.
#pragma once

#include "platform/platform.h"

#include <cstdint>

// Creates and initializes a package, through its manager or by itself; a stand-alone package is
// named by `managerName` alone. `package` gets a reference. False with the message in LastError.
bool CreatePackageObject(IDispatch *&package, const WideString &managerName, const WideString &packageName);

// The handle of the package: that of the open one of this name, or of a new record. False with the
// message in LastError.
bool CreatePackage(const WideString &managerName, const WideString &packageName, std::int32_t &handle);
