// The words for a failed call.
#pragma once

#include "platform/platform.h"

// One line for a failed CAPE-OPEN call. For a result of the CAPE-OPEN block: the description that
// `object` gives through ECapeUser, else its name through ECapeRoot, else the standard text of the
// result. For any other result HResultText, and the object is not asked.
WideString CapeErrorText(IUnknown *object, HRESULT hr);

// The system's message for a result without its line end, or "error code 0x........".
WideString HResultText(HRESULT hr);
