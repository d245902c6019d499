#include "relay/relay_object.h"

#include "cape/com/guarded_call.h"
#include "relay/process_life.h"

Relay::Relay() { HoldProcess(); }

Relay::~Relay() { LetGoOfProcess(); }

void *Relay::FindInterface(REFIID iid)
{
    static constexpr InterfaceEntry<Relay> interfaces[] = {
        interfaceEntry<Relay, IUnknown, IVerdanth6432Relay>(),
        interfaceEntry<Relay, IDispatch, IVerdanth6432Relay>(),
        interfaceEntry<Relay, IVerdanth6432Relay>(),
    };
    return findInterface(interfaces, iid, this);
}

HRESULT STDMETHODCALLTYPE Relay::CreateObject32(BSTR classIdText, IUnknown **object) noexcept
{
    if (!object)
        return E_POINTER;
    *object = nullptr;
    if (!classIdText)
        return E_INVALIDARG;
    // As an interface id: CLSIDFromString would take a program id as well.
    CLSID classId;
    HRESULT hr = IIDFromString(classIdText, &classId);
    if (FAILED(hr))
        return hr;
    hr = GuardedCall([&] { // whatever a component's constructor lets out
        return CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, InterfaceId<IUnknown>,
                                reinterpret_cast<void **>(object));
    });
    if (FAILED(hr)) {
        *object = nullptr;
        return hr;
    }
    return *object ? hr : E_UNEXPECTED;
}

HRESULT STDMETHODCALLTYPE RelayFactory::QueryInterface(REFIID iid, void **object) noexcept
{
    if (!object)
        return E_POINTER;
    const bool known = iid == InterfaceId<IUnknown> || iid == InterfaceId<IClassFactory>;
    *object = known ? this : nullptr;
    return known ? S_OK : E_NOINTERFACE;
}

HRESULT STDMETHODCALLTYPE RelayFactory::CreateInstance(IUnknown *outer, REFIID iid, void **object) noexcept
{
    if (!object)
        return E_POINTER;
    *object = nullptr;
    if (outer)
        return CLASS_E_NOAGGREGATION;
    // The release of a temporary relay would end the process.
    if (!(iid == InterfaceId<IUnknown>)&&!(iid == InterfaceId<IDispatch>)&&!(iid == InterfaceId<IVerdanth6432Relay>))
        return E_NOINTERFACE;
    return GuardedCall([&] { return (new CComObject<Relay>)->QueryInterface(iid, object); });
}

HRESULT STDMETHODCALLTYPE RelayFactory::LockServer(BOOL lock) noexcept
{
    if (lock)
        HoldProcess();
    else
        LetGoOfProcess();
    return S_OK;
}
