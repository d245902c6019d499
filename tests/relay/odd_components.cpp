// A 32-bit component library for tests: what the reference packages do not do. The last byte of the class id says
// which.
#include "reference/com/component.h"

#include "cape/com/com_pointer.h"
#include "tests/support/standing_factory.h"

namespace {

constexpr CLSID noClass = {};
constexpr reference::ComponentDescription oddDescription = {&noClass, "Odd", "A component for tests"};

class Odd : public reference::Component {
public:
    Odd() : Component(oddDescription) {}

protected:
    void *findInterface(REFIID) override { return nullptr; }
};

// Cannot say who it is.
class Anonymous final : public Odd {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void **object) override
    {
        if (iid == InterfaceId<ICapeIdentification>) {
            *object = nullptr;
            return E_NOINTERFACE;
        }
        return Component::QueryInterface(iid, object);
    }
};

// Will not say who it is.
class Secretive final : public Odd {
public:
    HRESULT STDMETHODCALLTYPE get_ComponentName(BSTR *name) override
    {
        *name = nullptr;
        return E_FAIL;
    }
};

// Talks as soon as it is listened to.
class Talkative final : public Odd {
public:
    HRESULT STDMETHODCALLTYPE put_simulationContext(IDispatch *context) override
    {
        ComPointer<ICapeDiagnostic> diagnostic;
        if (FAILED(diagnostic.queryFrom(context)))
            return E_FAIL;
        const Bstr logged(OLESTR("logged by 32 bits, 100%"));
        const Bstr shown(OLESTR("shown by 32 bits"));
        HRESULT hr = diagnostic->LogMessage(logged.get());
        if (SUCCEEDED(hr))
            hr = diagnostic->PopUpMessage(shown.get());
        return hr;
    }
};

class Factory final : public StandingFactory {
public:
    explicit Factory(BYTE wanted) : kind(wanted) {}

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown *, REFIID iid, void **object) override
    {
        *object = nullptr;
        reference::Component *component = nullptr;
        switch (kind) {
        case 1:
            component = new Anonymous;
            break;
        case 2:
            component = new Secretive;
            break;
        case 3:
            component = new Talkative;
            break;
        default:
            return CLASS_E_CLASSNOTAVAILABLE;
        }
        const HRESULT hr = component->QueryInterface(iid, object);
        component->Release();
        return hr;
    }

private:
    BYTE kind;
};

} // namespace

extern "C" HRESULT STDAPICALLTYPE DllGetClassObject(REFCLSID classId, REFIID iid, LPVOID *object)
{
    static Factory factories[] = {Factory(0), Factory(1), Factory(2), Factory(3)};
    *object = nullptr;
    const BYTE kind = classId.Data4[7];
    return kind < 4 ? factories[kind].QueryInterface(iid, object) : CLASS_E_CLASSNOTAVAILABLE;
}

extern "C" HRESULT STDAPICALLTYPE DllCanUnloadNow() { return S_FALSE; }
