// The IDispatch part of an interface that is called through its vtable only.
#pragma once

#include "platform/platform.h"

namespace reference {

template <class Interface> class WithoutDispatch : public Interface {
public:
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT *count) override
    {
        if (!count)
            return E_POINTER;
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo **information) override
    {
        if (!information)
            return E_POINTER;
        *information = nullptr;
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR *, UINT, LCID, DISPID *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS *, VARIANT *, EXCEPINFO *, UINT *) override
    {
        return E_NOTIMPL;
    }
};

} // namespace reference
