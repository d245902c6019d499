#include "packages/component.h"

#include "cape/com/cape_open.h"
#include "cape/com/com_pointer.h"
#include "cape/error_text.h"
#include "gateway/state/global_text.h"
#include "packages/relay_client.h"
#include "packages/simulation_context.h"

HRESULT CreateComObject(REFCLSID classId, REFIID iid, void **object)
{
    constexpr DWORD anyContext =
        CLSCTX_INPROC_SERVER | CLSCTX_INPROC_HANDLER | CLSCTX_LOCAL_SERVER | CLSCTX_REMOTE_SERVER;
    HRESULT hr = CallComponent([&] { return CoCreateInstance(classId, nullptr, anyContext, iid, object); });
    // Only this result can mean a 32-bit class; any other failure would come back through the relay.
    if (hr == REGDB_E_CLASSNOTREG)
        hr = CallComponent([&] { return CreateThroughRelay(classId, iid, object); });
    return SUCCEEDED(hr) && !*object ? E_POINTER : hr; // a success without an object
}

bool InitializeComponent(IUnknown *object)
{
    ComPointer<IPersistStreamInit> persistence;
    if (SUCCEEDED(persistence.queryFrom(object))) {
        const HRESULT hr = CallComponent([&] { return persistence->InitNew(); });
        persistence.reset();
        if (FAILED(hr) && hr != E_NOTIMPL) {
            LastError = OLESTR("InitNew failed: ") + HResultText(hr);
            return false;
        }
    }
    ComPointer<ICapeUtilities> utilities;
    if (FAILED(utilities.queryFrom(object)))
        return true;
    EnsureSimulationContext();
    const HRESULT hr = CallComponent([&] { return utilities->Initialize(); });
    if (FAILED(hr) && hr != E_NOTIMPL) {
        LastError = OLESTR("Initialize failed: ") + CapeErrorText(utilities.get(), hr);
        return false;
    }
    // The context comes after Initialize, by intention.
    CallComponent([&] { return utilities->put_simulationContext(simulationContext); });
    return true;
}

void TerminateComponent(IUnknown *object)
{
    ComPointer<ICapeUtilities> utilities;
    if (SUCCEEDED(utilities.queryFrom(object)))
        CallComponent([&] { return utilities->Terminate(); });
}
