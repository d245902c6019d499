// The floating-point mode of the running call of MATLAB: ours, too. What a package sets for itself may not reach
// either.
#pragma once

#include "platform/floating_point.h"

extern FloatingPointMode HostFloatingPointMode;
