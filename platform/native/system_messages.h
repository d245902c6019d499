// The operating system's words for result codes.
#pragma once

#include "platform/native/types.h"

namespace native {

// The text of an HRESULT or a Win32 error, without line end; empty for a code without one.
const char *systemMessage(DWORD code);

} // namespace native
