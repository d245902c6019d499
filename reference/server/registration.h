// The entries of the library in the class registry.
#pragma once

#include "reference/server/class_table.h"

#include <functional>
#include <string>

namespace reference {

// One named value of a key under HKEY_CLASSES_ROOT; the name is empty for the key's default value.
// All values are texts.
using RegistryWriter = std::function<bool(const WideString &key, const WideString &name, const WideString &value)>;

// Passes all entries for a library at `libraryPath` to the writer, until it returns false. True when
// all were written.
bool describeRegistration(const WideString &libraryPath, const RegistryWriter &write);

// The keys that describeRegistration creates for the classes, to be deleted with everything in them. The
// categories stay, because others use them, too.
std::vector<WideString> registeredKeys();

} // namespace reference
