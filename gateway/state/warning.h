// Warnings to the user.
#pragma once

#include "platform/platform.h"

// Shows "CAPE-OPEN: " and the text as a MATLAB warning, if warnings are on; a null text is empty.
void Warn(LPCWSTR text);

// Shows the text as it stands, if warnings are on.
void WarnPlain(const char *text);
