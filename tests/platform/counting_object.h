// An object for tests that only counts its references. It lives where it is declared.
#pragma once

#include "platform/platform.h"

#include <gtest/gtest.h>

class CountingObject final : public IDispatch {
public:
    ULONG references = 1; // the test's own

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void **object) override
    {
        const bool known = iid == InterfaceId<IUnknown> || iid == InterfaceId<IDispatch>;
        *object = known ? this : nullptr;
        if (!known)
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override
    {
        EXPECT_GT(references, 1u) << "more released than was ever handed out";
        return --references;
    }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT *) override { return unexpected(); }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo **) override { return unexpected(); }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR *, UINT, LCID, DISPID *) override { return unexpected(); }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS *, VARIANT *, EXCEPINFO *, UINT *) override
    {
        return unexpected();
    }

private:
    static HRESULT unexpected()
    {
        ADD_FAILURE() << "a method was called that nobody has a reason to call";
        return E_UNEXPECTED;
    }
};
