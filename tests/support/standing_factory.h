// What class objects of tests have in common that outlive COM's references on them, and so count none.
#pragma once

#include "platform/platform.h"

class StandingFactory : public IClassFactory {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void **object) override
    {
        const bool known = iid == InterfaceId<IUnknown> || iid == InterfaceId<IClassFactory>;
        *object = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }
};
