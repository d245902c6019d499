// The open packages of the process by their int32 handles.
#pragma once

#include "packages/open_package.h"

#include <cstdint>
#include <memory>

// The record of a handle, or null.
OpenPackage *FindPackage(std::int32_t handle);

// Finds an open package by its name key, without regard to case.
bool FindPackageByKey(const WideString &key, std::int32_t &handle);

// Enters a record under a new pseudo-random handle from 0 to 32767.
std::int32_t AddPackage(std::unique_ptr<OpenPackage> package);

// Destroys a record; false for an unknown handle.
bool ClosePackage(std::int32_t handle);

// All handles into HandleList, in no particular order.
void ListPackageHandles();

void CloseAllPackages();
