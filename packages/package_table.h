// The open packages of the process by their int32 handles.
#pragma once

#include "packages/open_package.h"

#include <cstdint>
#include <memory>

// The record of a handle, or null; one that is being closed is no longer found.
OpenPackage *FindPackage(std::int32_t handle);

// The same for a command that works with it: the record lives until the command ends, even if the package calls another
// that closes it.
OpenPackage *UsePackage(std::int32_t handle);
extern std::shared_ptr<OpenPackage> PackageInUse;

// Finds an open package by its name key, without regard to case.
bool FindPackageByKey(const WideString &key, std::int32_t &handle);

// Whether a handle is left for another record.
bool HasFreeHandle();

// Enters a record under a new pseudo-random handle from 0 to 32767, of which one must be free.
std::int32_t AddPackage(std::unique_ptr<OpenPackage> package);

// Destroys a record; false for an unknown handle, and for one that is being closed.
bool ClosePackage(std::int32_t handle);

// All handles into HandleList, in no particular order.
void ListPackageHandles();

// Destroys all records. While it does, no package can be opened: one that opened another at its end would keep the end
// away.
void CloseAllPackages();
bool IsClosingAllPackages();
