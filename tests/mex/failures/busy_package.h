// A package that uses all that the system offers to packages while it calculates, and passes on what fails there.
#pragma once

#include "tests/support/scripted_package.h"

namespace support {

// Compounds and phases are those of a binary package. Whatever the system says to have succeeded must have: a result
// that is not whole, or an exception that comes out of the system, fails the running test.
void MakeBusyPackage(PackageScript &script);

} // namespace support
