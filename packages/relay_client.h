// The way to 32-bit in-process components from a 64-bit process: a companion executable creates
// them in its own process.
#pragma once

#include "platform/platform.h"

struct IVerdanth6432Relay : IDispatch {
    // `classIdText` in the brace form of StringFromCLSID.
    virtual HRESULT STDMETHODCALLTYPE CreateObject32(BSTR classIdText, IUnknown **object) = 0;
};
DECLARE_INTERFACE_ID(IVerdanth6432Relay,
                     {0xE5D29B15, 0xC411, 0x4600, {0xB7, 0x64, 0x37, 0x0A, 0x60, 0x4E, 0x2C, 0x06}});

inline constexpr CLSID CLSID_Verdanth6432Relay = {
    0xE3F8AF5B, 0xDE4E, 0x4FE0, {0xB2, 0x43, 0x0F, 0xDB, 0x61, 0x73, 0xB5, 0xE8}};

// Creates a 32-bit class through the relay and warns the user, naming the object. E_UNEXPECTED when
// the relay is not available, otherwise the result of the step that failed.
HRESULT CreateThroughRelay(REFCLSID classId, REFIID iid, void **object);

// Gives up the instance that keeps the relay alive.
void ReleaseRelay();
