// What the class registry offers: property package managers and stand-alone packages, found once
// per process.
#pragma once

#include "platform/platform.h"

#include <cstddef>
#include <cstdint>
#include <vector>

enum SourceKind : std::int32_t { ManagerSource = 0, StandAloneSource = 1 };

struct PackageSource {
    WideString name;   // what the user sees and passes back; the class id when the class has no name
    std::int32_t kind; // a SourceKind
    WideString clsid;  // as the registry key is spelled, braces included
};

// In the order of discovery: the native view of the registry, then what only the 32-bit view has.
// Names may repeat; the first of them is the one that can be reached.
extern std::vector<PackageSource> PackageSourceList;

// Fills the list at the first call; later changes of the registry are not noticed.
void ScanRegistry();

// Fills it with what the registry has now.
void ScanRegistryAnew();

// Index of the first source of that name, case counting; the length of the list when there is none.
std::size_t FindPackageSource(LPCWSTR name);

// The names of the list into NameList.
void ListPackageManagers();

// The packages of a manager into NameList; "(stand-alone)" for a source that is itself a package.
// False with the message in LastError.
bool ListPackages(const WideString &sourceName);
