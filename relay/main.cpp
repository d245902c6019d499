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
#include "relay/process_life.h"
#include "relay/registration.h"
#include "relay/standard_library.h"

#include <string_view>

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

// The only switch on the command line, in lower case and without its / or -; empty for anything else.
WideString switchOf(const char *commandLine)
{
    const std::string_view line = commandLine ? commandLine : "";
    if (line.empty() || (line[0] != '/' && line[0] != '-'))
        return {};
    WideString word;
    for (const char c : line.substr(1))
        word += static_cast<WCHAR>(c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c);
    return word.substr(0, word.find(L' '));
}

HRESULT execute(const char *commandLine)
{
    const WideString word = switchOf(commandLine);
    if (word == L"regserver")
        return RegisterServer();
    if (word == L"unregserver")
        return UnregisterServer();
    if (word == L"regtypelib")
        return RegisterStandardLibrary();
    if (word == L"unregtypelib")
        return UnregisterStandardLibrary();
    if (word == L"embedding")
        return serve();
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
    hr = GuardedCall([commandLine] { return execute(commandLine); });
    CoUninitialize();
    // Another thread may still be in a call, so nothing is torn down.
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(hr));
    return hr;
}
