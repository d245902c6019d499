#pragma once

#include <string>

// What follows in the message about a flash property that there is not.
inline const std::string listHint = " (use capeOpenFlashPropList for list of valid properties)";
