// What passes between the library and Verdanth6432Relay, the companion that creates 32-bit in-process components for a
// 64-bit process.
#pragma once

#include "platform/platform.h"

struct IVerdanth6432Relay : IDispatch {
    // Creates a class in the relay's process. `classIdText` is in the brace form of StringFromCLSID. The object lives
    // as long as any relay object does, its creator or another.
    virtual HRESULT STDMETHODCALLTYPE CreateObject32(BSTR classIdText, IUnknown **object) = 0;
};
DECLARE_INTERFACE_ID(IVerdanth6432Relay,
                     {0xE5D29B15, 0xC411, 0x4600, {0xB7, 0x64, 0x37, 0x0A, 0x60, 0x4E, 0x2C, 0x06}});

inline constexpr CLSID CLSID_Verdanth6432Relay = {
    0xE3F8AF5B, 0xDE4E, 0x4FE0, {0xB2, 0x43, 0x0F, 0xDB, 0x61, 0x73, 0xB5, 0xE8}};

// The relay's type library, by which calls get from one process to the other; version 1.1.
inline constexpr GUID LIBID_Verdanth6432Relay = {
    0x9C36D8A1, 0x5F0E, 0x4B7D, {0x8E, 0x21, 0x3A, 0xD4, 0x67, 0xB0, 0x1C, 0x92}};
