// The object that clients hold, and what makes it.
#pragma once

#include "cape/com/com_object.h"
#include "cape/com/relay_interface.h"

// Each keeps the process: when the last is gone, `lastReleased` of it is called. Lives in the apartment of the main
// thread, as most 32-bit components want to.
class Relay : public DualInterface<IVerdanth6432Relay, LIBID_Verdanth6432Relay>,
              public CComObjectRootEx<CComSingleThreadModel>,
              public CComCoClass<CLSID_Verdanth6432Relay> {
public:
    Relay();
    Relay(const Relay &) = delete;
    Relay &operator=(const Relay &) = delete;
    ~Relay();

    void *FindInterface(REFIID iid);

    // Gives the failure of the step that failed. Only class ids in braces are taken, no program ids.
    HRESULT STDMETHODCALLTYPE CreateObject32(BSTR classIdText, IUnknown **object) override;
};

// Makes relays. One serves the process; counting its references has no effect.
class RelayFactory final : public IClassFactory {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void **object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown *outer, REFIID iid, void **object) override;
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;
};
