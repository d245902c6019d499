// Verdanth6432Relay: a 32-bit local COM server that creates 32-bit in-process components for 64-bit processes.
//
//   /RegServer      registers it; needs administrator rights
//   /UnregServer    removes the registration
//   /RegTypeLib     registers the CAPE-OPEN type library beside it where none is registered; needs them, too
//   /UnregTypeLib   removes that
//   -Embedding      serves clients; this is how COM starts it
//
// It shows no window. The exit code of the registrations is 0, or the HRESULT of the error.
#include "cape/com/guarded_call.h"
#include "relay/class_object.h"
#include "relay/command_line.h"
#include "relay/process_life.h"
#include "relay/registration.h"
#include "relay/standard_library.h"

namespace {

constexpr DWORD idleMilliseconds = 500;    // for a client that connects again at once: a new process takes longer
constexpr DWORD closedMilliseconds = 1000; // by then the calls of clients that had connected have arrived

HRESULT serve()
{
    const HRESULT hr = StartProcessLife();
    if (FAILED(hr))
        return hr;
    ClassObject classObject;
    if (FAILED(classObject.registration()))
        return classObject.registration();
    do
        LiveUntilReleased();
    while (!StaysReleased(idleMilliseconds));
    classObject.close();
    // The call of a client that connected before the class was revoked may still be on its way; it is served to the
    // end.
    while (!StaysReleased(closedMilliseconds))
        LiveUntilReleased();
    return S_OK;
}

HRESULT perform(RelayTask task)
{
    switch (task) {
    case RelayTask::RegisterServer:
        return RegisterServer();
    case RelayTask::UnregisterServer:
        return UnregisterServer();
    case RelayTask::RegisterTypeLibrary:
        return RegisterStandardLibrary();
    case RelayTask::UnregisterTypeLibrary:
        return UnregisterStandardLibrary();
    case RelayTask::Serve:
        return serve();
    case RelayTask::None:
        break;
    }
    return E_INVALIDARG;
}

} // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR commandLine, int)
{
    // A component that cannot be loaded, or crashes, is reported by an HRESULT.
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
    HRESULT hr = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    if (FAILED(hr))
        return hr;
    hr = GuardedCall([commandLine] { return perform(TaskOf(commandLine)); });
    CoUninitialize();
    // Another thread may still be in a call, so nothing is torn down.
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(hr));
    return hr;
}
