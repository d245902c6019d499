// The CAPE-OPEN 1.1 error interfaces, and the result codes that go with them. Slots stand in the
// order of the CAPE-OPEN 1.1 type library.
#pragma once

#include "platform/platform.h"

// The block of CAPE-OPEN results: ECapeUnknownHR is the first, ECapeThrmPropertyNotAvailableHR the last.
constexpr HRESULT ECapeUnknownHR = static_cast<HRESULT>(0x80040501u);
constexpr HRESULT ECapeThrmPropertyNotAvailableHR = static_cast<HRESULT>(0x8004051Au);

struct ECapeRoot : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE get_name(BSTR *name) = 0;
};
DECLARE_INTERFACE_ID(ECapeRoot, {0x678C0B10, 0x7D66, 0x11D2, {0xA6, 0x7D, 0x00, 0x10, 0x5A, 0x42, 0x88, 0x7F}});

struct ECapeUser : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE get_code(LONG *code) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_description(BSTR *description) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_scope(BSTR *scope) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_interfaceName(BSTR *name) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_operation(BSTR *operation) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_moreInfo(BSTR *info) = 0;
};
DECLARE_INTERFACE_ID(ECapeUser, {0x678C0B11, 0x7D66, 0x11D2, {0xA6, 0x7D, 0x00, 0x10, 0x5A, 0x42, 0x88, 0x7F}});

struct ECapeUnknown : IDispatch {};
DECLARE_INTERFACE_ID(ECapeUnknown, {0x678C0B12, 0x7D66, 0x11D2, {0xA6, 0x7D, 0x00, 0x10, 0x5A, 0x42, 0x88, 0x7F}});
