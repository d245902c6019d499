// File paths: with backslashes towards the system, with slashes towards the machine.
#pragma once

#include <string>
#include <string_view>

namespace native {

std::string withBackslashes(std::string path);
std::string withSlashes(std::string path);

// The folder of the platform library, with slashes, without one at the end.
std::string platformFolder();

} // namespace native
