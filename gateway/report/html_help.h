// The help viewer, a system library that is looked for once per process.
#pragma once

#include "platform/platform.h"

// Shows a help file's default topic; null when there is no viewer or it can't show the file.
HWND HtmlHelp(const char *path);
