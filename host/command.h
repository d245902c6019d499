// Commands that have to work, for programs that have nothing left to do when one fails.
#pragma once

#include "host/library.h"

namespace host {

// Calls command `code` and gives its outputs, at least one. When it raises, the program ends with its message.
std::vector<Array> Command(MexFunction function, int code, int resultCount, const std::vector<Array> &arguments);

} // namespace host
