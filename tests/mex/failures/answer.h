// What a script sees of a call, as text that two calls can be compared by.
#pragma once

#include "tests/support/mex_host.h"

namespace support {

// Classes, dimensions and elements of the results, and the warnings; "raised" and the text if it raised.
std::string Answer(const CallResult &result);

} // namespace support
