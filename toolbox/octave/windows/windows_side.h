// The library under Wine: the side of the bridge that is in another process.
#pragma once

#include "toolbox/octave/bridge.h"

#include <string>

// The one there is; `folder` is where Verdanth is installed.
LibrarySide *WindowsSide(const std::string &folder, const Caller &caller);
