// What the library enters into the class registry.
#pragma once

#include "reference/server/class_table.h"

#include <functional>
#include <string>

namespace reference {

// One named value of a key under HKEY_CLASSES_ROOT; the name is empty for the key's default value.
// All values are texts.
using RegistryWriter = std::function<bool(const WideString &key, const WideString &name, const WideString &value)>;

// Gives all entries for a library at `libraryPath` to the writer, until it answers false. True when
// it took all of them.
bool describeRegistration(const WideString &libraryPath, const RegistryWriter &write);

// The keys that describeRegistration made for the classes, whole; the categories are others' as well
// and stay.
std::vector<WideString> registeredKeys();

} // namespace reference
