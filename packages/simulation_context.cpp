#include "packages/simulation_context.h"

#include "cape/com/guarded_call.h"
#include "gateway/state/host_mode.h"
#include "gateway/state/narrow_text.h"
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

HRESULT CSimulationContext::SetSimulationContextError(LPCWSTR name, LPCWSTR description, LPCWSTR interfaceName,
                                                      LPCWSTR scope) noexcept
{
    return GuardedCall([&] {
        setError(name, description, interfaceName, scope);
        return ECapeUnknownHR;
    });
}

HRESULT STDMETHODCALLTYPE CSimulationContext::PopUpMessage(BSTR message) noexcept
{
    const InFloatingPointMode windowsMode(HostFloatingPointMode);
    if (GlobalSettings.showWarnings)
        MessageBoxW(nullptr, message, OLESTR("Verdanth:"), MB_ICONINFORMATION);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE CSimulationContext::LogMessage(BSTR message) noexcept
{
    return GuardedCall([&] {
        const InFloatingPointMode matlabMode(HostFloatingPointMode);
        try {
            Warn(message);
        } catch (const NarrowTextFailure &failure) {
            return FAILED(failure.result) ? failure.result : E_UNEXPECTED;
        }
        return S_OK;
    });
}

HRESULT STDMETHODCALLTYPE CSimulationContext::get_ComponentName(BSTR *name) noexcept
{
    return GiveText(OLESTR("Matlab Simulation Context"), name);
}

HRESULT STDMETHODCALLTYPE CSimulationContext::put_ComponentName(BSTR) noexcept
{
    return SetSimulationContextError(OLESTR("Access denied"), OLESTR("Cannot change name of the simulation context"),
                                     OLESTR("ICapeIdentification"), OLESTR("put_ComponentName"));
}

HRESULT STDMETHODCALLTYPE CSimulationContext::get_ComponentDescription(BSTR *description) noexcept
{
    return get_ComponentName(description);
}

HRESULT STDMETHODCALLTYPE CSimulationContext::put_ComponentDescription(BSTR) noexcept
{
    return SetSimulationContextError(OLESTR("Access denied"),
                                     OLESTR("Cannot change description of the simulation context"),
                                     OLESTR("ICapeIdentification"), OLESTR("put_ComponentDescription"));
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
