// The object that clients hold, and its factory.
#pragma once

#include "cape/com/com_object.h"
#include "cape/com/relay_interface.h"

// Each relay holds the process, which ends when the last is released. It lives in the apartment of the main thread,
// which most 32-bit components expect.
class Relay : public DualInterface<IVerdanth6432Relay, LIBID_Verdanth6432Relay>,
              public CComObjectRootEx<CComSingleThreadModel>,
              public CComCoClass<CLSID_Verdanth6432Relay> {
public:
    Relay();
    Relay(const Relay &) = delete;
    Relay &operator=(const Relay &) = delete;
    ~Relay();

    void *FindInterface(REFIID iid);

    // Returns the error of the step that failed. Accepts class ids in braces only, not program ids.
    HRESULT STDMETHODCALLTYPE CreateObject32(BSTR classIdText, IUnknown **object) noexcept override;
};

// Creates relays. There is one for the process; its reference count has no effect.
class RelayFactory final : public IClassFactory {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void **object) noexcept override;
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return 2; }
    ULONG STDMETHODCALLTYPE Release() noexcept override { return 1; }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown *outer, REFIID iid, void **object) noexcept override;
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) noexcept override;
};
