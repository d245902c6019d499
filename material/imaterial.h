// The private interface by which a material recognizes one of its own kind, within one process.
#pragma once

#include "platform/platform.h"

class CMaterialObject;

// The system's own type library.
inline constexpr GUID LIBID_Verdanth = {0x5C1B7C0E, 0x2D6F, 0x4B9A, {0x93, 0x5E, 0x7A, 0x40, 0xD1, 0x6E, 0x2B, 0x58}};

struct IMaterial : IDispatch {
    // The address of the object itself; no reference is added.
    virtual HRESULT STDMETHODCALLTYPE GetMaterialObject(CMaterialObject **material) = 0;
};
DECLARE_INTERFACE_ID(IMaterial, {0xE2484BD9, 0x413A, 0x4855, {0x95, 0xBF, 0xCC, 0x72, 0xE1, 0xAF, 0xC4, 0xD2}});
