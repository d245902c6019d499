#include "packages/simulation_context.h"

#include "gateway/state/settings.h"
#include "gateway/state/warning.h"

#include <utility>

IDispatch *simulationContext = nullptr;

void *CSimulationContext::FindInterface(REFIID iid)
{
    using Self = CSimulationContext;
    static constexpr InterfaceEntry<Self> interfaces[] = {
        interfaceEntry<Self, IUnknown, ICapeDiagnostic>(),
        interfaceEntry<Self, IDispatch, ICapeDiagnostic>(),
        interfaceEntry<Self, ECapeRoot>(),
        interfaceEntry<Self, ECapeUnknown>(),
        interfaceEntry<Self, ECapeUser>(),
        interfaceEntry<Self, ICapeDiagnostic>(),
        interfaceEntry<Self, ICapeIdentification>(),
        interfaceEntry<Self, ICapeSimulationContext>(),
    };
    return findInterface(interfaces, iid, this);
}

void CSimulationContext::SetSimulationContextError(LPCWSTR name, LPCWSTR description, LPCWSTR interfaceName,
                                                   LPCWSTR scope)
{
    setError(name, description, interfaceName, scope);
}

HRESULT STDMETHODCALLTYPE CSimulationContext::PopUpMessage(BSTR message)
{
    if (GlobalSettings.showWarnings)
        MessageBoxW(nullptr, message, OLESTR("Verdanth:"), MB_ICONINFORMATION);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE CSimulationContext::LogMessage(BSTR message)
{
    Warn(message);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE CSimulationContext::get_ComponentName(BSTR *name)
{
    return GiveText(OLESTR("Matlab Simulation Context"), name);
}

HRESULT STDMETHODCALLTYPE CSimulationContext::put_ComponentName(BSTR)
{
    SetSimulationContextError(OLESTR("Access denied"), OLESTR("Cannot change name of the simulation context"),
                              OLESTR("ICapeIdentification"), OLESTR("put_ComponentName"));
    return ECapeUnknownHR;
}

HRESULT STDMETHODCALLTYPE CSimulationContext::get_ComponentDescription(BSTR *description)
{
    return get_ComponentName(description);
}

HRESULT STDMETHODCALLTYPE CSimulationContext::put_ComponentDescription(BSTR)
{
    SetSimulationContextError(OLESTR("Access denied"), OLESTR("Cannot change description of the simulation context"),
                              OLESTR("ICapeIdentification"), OLESTR("put_ComponentDescription"));
    return ECapeUnknownHR;
}

void EnsureSimulationContext()
{
    if (simulationContext)
        return;
    auto *context = new CComObject<CSimulationContext>;
    context->QueryInterface(InterfaceId<IDispatch>, reinterpret_cast<void **>(&simulationContext));
}

void ReleaseSimulationContext()
{
    if (IDispatch *released = std::exchange(simulationContext, nullptr))
        released->Release();
}
