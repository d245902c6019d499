// The object through which a CAPE-OPEN component talks back to its host. One serves the process.
#pragma once

#include "cape/com/cape_open.h"
#include "cape/com/com_object.h"
#include "cape/error_state.h"

inline constexpr CLSID CLSID_SimulationContext = {
    0x4E2F6D18, 0x93B7, 0x4C1D, {0xA5, 0x60, 0x1F, 0x8E, 0x72, 0x3C, 0x9B, 0x05}};

class CSimulationContext : public ErrorReporting,
                           public DualInterface<ICapeDiagnostic, LIBID_CAPEOPEN110>,
                           public DualInterface<ICapeIdentification, LIBID_CAPEOPEN110>,
                           public DualInterface<ICapeSimulationContext, LIBID_CAPEOPEN110>,
                           public CComObjectRootEx<CComSingleThreadModel>,
                           public CComCoClass<CLSID_SimulationContext> {
public:
    void *FindInterface(REFIID iid);

    // Remembers why a call is refused; gives ECapeUnknownHR, the result of every refusal.
    HRESULT SetSimulationContextError(LPCWSTR name, LPCWSTR description, LPCWSTR interfaceName, LPCWSTR scope) noexcept;

    // ICapeDiagnostic: a dialog, and a MATLAB warning; both only while warnings are on
    HRESULT STDMETHODCALLTYPE PopUpMessage(BSTR message) noexcept override;
    HRESULT STDMETHODCALLTYPE LogMessage(BSTR message) noexcept override;

    // ICapeIdentification: name and description are one fixed text and can't be changed
    HRESULT STDMETHODCALLTYPE get_ComponentName(BSTR *name) noexcept override;
    HRESULT STDMETHODCALLTYPE put_ComponentName(BSTR name) noexcept override;
    HRESULT STDMETHODCALLTYPE get_ComponentDescription(BSTR *description) noexcept override;
    HRESULT STDMETHODCALLTYPE put_ComponentDescription(BSTR description) noexcept override;
};

// The process's own reference; null until EnsureSimulationContext has run.
extern IDispatch *simulationContext;

void EnsureSimulationContext();

// Gives up the process's reference; a component that kept one holds the object for longer.
void ReleaseSimulationContext();
