// How automation values of one type are copied and freed, wherever they stand: in a VARIANT, in an
// array, or alone.
#pragma once

#include "platform/native/automation.h"

namespace native {

// A copy with the length in bytes kept; null stays null. False if there is no memory.
bool copyString(BSTR source, BSTR &copy);

// Frees what an element of `type` (no VT_ARRAY, no VT_BYREF) owns. The element is garbage then.
void freeElement(VARTYPE type, void *element);

// Makes `target`, whose content is ignored, a copy of `source`. On failure it owns nothing.
HRESULT copyElement(VARTYPE type, void *target, const void *source);

} // namespace native
