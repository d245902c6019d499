// The types that an array element or a simple VARIANT can have.
#pragma once

#include "platform/native/automation.h"

namespace native {

// Size of one element in bytes; 0 for what cannot be an element.
constexpr ULONG elementSize(VARTYPE type)
{
    switch (type) {
    case VT_I1:
    case VT_UI1:
        return 1;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
        return 2;
    case VT_I4:
    case VT_UI4:
    case VT_R4:
    case VT_INT:
    case VT_UINT:
    case VT_ERROR:
        return 4;
    case VT_I8:
    case VT_UI8:
    case VT_R8:
    case VT_CY:
    case VT_DATE:
        return 8;
    case VT_BSTR:
    case VT_UNKNOWN:
    case VT_DISPATCH:
        return sizeof(void *);
    case VT_VARIANT:
        return sizeof(VARIANT);
    default:
        return 0;
    }
}

// Whether elements own something beyond their own bytes.
constexpr bool ownsSomething(VARTYPE type)
{
    return type == VT_BSTR || type == VT_UNKNOWN || type == VT_DISPATCH || type == VT_VARIANT;
}

} // namespace native
