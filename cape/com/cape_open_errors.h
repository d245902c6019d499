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

// What kind of error it was. A kind derives from those in whose group it is: data and arguments, what is implemented,
// calculations. To COM each is an interface of its own.

struct ECapeData : IDispatch {};
DECLARE_INTERFACE_ID(ECapeData, {0x678C0B13, 0x7D66, 0x11D2, {0xA6, 0x7D, 0x00, 0x10, 0x5A, 0x42, 0x88, 0x7F}});

struct ECapeBadArgument : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE get_position(SHORT *position) = 0;
};
DECLARE_INTERFACE_ID(ECapeBadArgument, {0xE29E42B3, 0xE481, 0x45C6, {0xA7, 0x37, 0x78, 0xF4, 0xA7, 0xFC, 0x03, 0x91}});

struct ECapeInvalidArgument : IDispatch {};
DECLARE_INTERFACE_ID(ECapeInvalidArgument,
                     {0x678C0B17, 0x7D66, 0x11D2, {0xA6, 0x7D, 0x00, 0x10, 0x5A, 0x42, 0x88, 0x7F}});

struct ECapeOutOfBounds : IDispatch {};
DECLARE_INTERFACE_ID(ECapeOutOfBounds, {0x678C0B18, 0x7D66, 0x11D2, {0xA6, 0x7D, 0x00, 0x10, 0x5A, 0x42, 0x88, 0x7F}});

struct ECapeBoundaries : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE get_LowerBound(double *bound) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_UpperBound(double *bound) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_value(double *value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Type(BSTR *type) = 0;
};
DECLARE_INTERFACE_ID(ECapeBoundaries, {0x678C0B29, 0x7D66, 0x11D2, {0xA6, 0x7D, 0x00, 0x10, 0x5A, 0x42, 0x88, 0x7F}});

struct ECapeImplementation : IDispatch {};
DECLARE_INTERFACE_ID(ECapeImplementation,
                     {0x678C0B19, 0x7D66, 0x11D2, {0xA6, 0x7D, 0x00, 0x10, 0x5A, 0x42, 0x88, 0x7F}});

struct ECapeNoImpl : IDispatch {};
DECLARE_INTERFACE_ID(ECapeNoImpl, {0x678C0B1A, 0x7D66, 0x11D2, {0xA6, 0x7D, 0x00, 0x10, 0x5A, 0x42, 0x88, 0x7F}});

struct ECapeLimitedImpl : IDispatch {};
DECLARE_INTERFACE_ID(ECapeLimitedImpl, {0x678C0B1B, 0x7D66, 0x11D2, {0xA6, 0x7D, 0x00, 0x10, 0x5A, 0x42, 0x88, 0x7F}});

struct ECapeComputation : IDispatch {};
DECLARE_INTERFACE_ID(ECapeComputation, {0x678C0B1C, 0x7D66, 0x11D2, {0xA6, 0x7D, 0x00, 0x10, 0x5A, 0x42, 0x88, 0x7F}});

struct ECapeFailedInitialisation : IDispatch {};
DECLARE_INTERFACE_ID(ECapeFailedInitialisation,
                     {0x678C0B20, 0x7D66, 0x11D2, {0xA6, 0x7D, 0x00, 0x10, 0x5A, 0x42, 0x88, 0x7F}});

struct ECapeSolvingError : IDispatch {};
DECLARE_INTERFACE_ID(ECapeSolvingError, {0x678C0B21, 0x7D66, 0x11D2, {0xA6, 0x7D, 0x00, 0x10, 0x5A, 0x42, 0x88, 0x7F}});

struct ECapeBadInvOrder : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE get_requestedOperation(BSTR *operation) = 0;
};
DECLARE_INTERFACE_ID(ECapeBadInvOrder, {0x678C0B22, 0x7D66, 0x11D2, {0xA6, 0x7D, 0x00, 0x10, 0x5A, 0x42, 0x88, 0x7F}});

struct ECapeThrmPropertyNotAvailable : IDispatch {};
DECLARE_INTERFACE_ID(ECapeThrmPropertyNotAvailable,
                     {0x678C09B6, 0x7D66, 0x11D2, {0xA6, 0x7D, 0x00, 0x10, 0x5A, 0x42, 0x88, 0x7F}});
