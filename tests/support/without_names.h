// The IDispatch part of an interface that a test implements: nobody calls it by name.
#pragma once

#include "platform/platform.h"

template <class Interface> class WithoutNames : public Interface {
public:
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo **) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR *, UINT, LCID, DISPID *) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS *, VARIANT *, EXCEPINFO *, UINT *) override
    {
        return E_NOTIMPL;
    }
};
