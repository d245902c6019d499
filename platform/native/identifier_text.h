// Identifiers as text, and the class registry's names for classes.
#pragma once

#include "platform/native/types.h"

#include <string>

namespace native {

// Braces, upper-case digits.
std::u16string identifierText(const GUID &id);

// The default value of a key below HKEY_CLASSES_ROOT, variables of the environment expanded if it
// is REG_EXPAND_SZ; empty if there is none. Not counted as a registry call of the system's.
std::u16string classesText(std::u16string_view path);

} // namespace native
