// The CAPE-OPEN 1.1 interfaces that every component and every host has in common. Slots stand in
// the order of the CAPE-OPEN 1.1 type library. A BSTR, VARIANT or interface that comes out belongs
// to the caller; in-arguments stay the caller's.
#pragma once

#include "platform/platform.h"

// The CAPE-OPEN 1.1 type library, version 1.1.
inline constexpr GUID LIBID_CAPEOPEN110 = {
    0x4A5E2E81, 0xC093, 0x11D4, {0x9F, 0x1B, 0x00, 0x10, 0xA4, 0xD1, 0x98, 0xC2}};

struct ICapeIdentification : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE get_ComponentName(BSTR *name) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_ComponentName(BSTR name) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_ComponentDescription(BSTR *description) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_ComponentDescription(BSTR description) = 0;
};
DECLARE_INTERFACE_ID(ICapeIdentification,
                     {0x678C0990, 0x7D66, 0x11D2, {0xA6, 0x7D, 0x00, 0x10, 0x5A, 0x42, 0x88, 0x7F}});

struct ICapeUtilities : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE get_parameters(IDispatch **parameters) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_simulationContext(IDispatch *context) = 0;
    virtual HRESULT STDMETHODCALLTYPE Initialize() = 0;
    virtual HRESULT STDMETHODCALLTYPE Terminate() = 0;
    virtual HRESULT STDMETHODCALLTYPE Edit() = 0;
};
DECLARE_INTERFACE_ID(ICapeUtilities, {0x678C0A9B, 0x0100, 0x11D2, {0xA6, 0x7D, 0x00, 0x10, 0x5A, 0x42, 0x88, 0x7F}});

struct ICapeCollection : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE Item(VARIANT id, IDispatch **item) = 0;
    virtual HRESULT STDMETHODCALLTYPE Count(LONG *count) = 0;
};
DECLARE_INTERFACE_ID(ICapeCollection, {0x678C099A, 0x0093, 0x11D2, {0xA6, 0x7D, 0x00, 0x10, 0x5A, 0x42, 0x88, 0x7F}});

struct ICapeSimulationContext : IDispatch {};
DECLARE_INTERFACE_ID(ICapeSimulationContext,
                     {0x678C0A9C, 0x0100, 0x11D2, {0xA6, 0x7D, 0x00, 0x10, 0x5A, 0x42, 0x88, 0x7F}});

struct ICapeDiagnostic : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE PopUpMessage(BSTR message) = 0;
    virtual HRESULT STDMETHODCALLTYPE LogMessage(BSTR message) = 0;
};
DECLARE_INTERFACE_ID(ICapeDiagnostic, {0x678C0A9D, 0x0100, 0x11D2, {0xA6, 0x7D, 0x00, 0x10, 0x5A, 0x42, 0x88, 0x7F}});
