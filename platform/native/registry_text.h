// Registry entries as text, in the format of exported registrations (version 5.00).
#pragma once

#include "platform/native/registry_tree.h"

#include <string>
#include <string_view>

namespace native {

// The text of a file: UTF-16LE with a byte order mark, or UTF-8.
std::u16string decodeRegistryFile(std::string_view bytes);

// Merges the entries of `text` into the classes tree. Those of other roots than HKEY_CLASSES_ROOT
// and HKEY_LOCAL_MACHINE\Software\Classes are left out, and so are lines that are not understood.
// A relative path under InprocServer32 is taken to lie in `folder` (backslash spelling).
void readRegistryText(std::u16string_view text, std::u16string_view folder,
                      const std::shared_ptr<RegistryKey> &classes);

} // namespace native
