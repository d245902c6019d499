// Comparison of names throughout the system: without regard to case; a null string equals a null
// or an empty one and nothing else.
#pragma once

#include "platform/platform.h"

bool SameName(LPCWSTR a, LPCWSTR b);
