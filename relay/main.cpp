// Verdanth6432Relay: a 32-bit local COM server that creates 32-bit in-process components for 64-bit processes.
//
//   /RegServer      registers it, which takes an administrator
//   /UnregServer    takes the registration back
//   /RegTypeLib     registers the CAPE-OPEN type library beside it where there is none, which takes one, too
//   /UnregTypeLib   takes that back
//   -Embedding      serves; COM starts it so
//
// It shows no window. The exit code of the registrations is 0, or the failure's result.
#include "relay/class_object.h"
#include "relay/process_life.h"
#include "relay/registration.h"
#include "relay/standard_library.h"

#include <string_view>

namespace {

constexpr DWORD idleMilliseconds = 500;    // for who comes back at once: to start a process takes longer
constexpr DWORD closedMilliseconds = 1000; // by then a call of who came in has arrived

HRESULT serve()
{
    StartProcessLife();
    ClassObject classObject;
    if (FAILED(classObject.registration()))
        return classObject.registration();
    do
        LiveUntilReleased();
    while (!StaysReleased(idleMilliseconds));
    classObject.close();
    // Who came in before the door was shut may not have got through to the main thread yet, and is served to the end.
    while (!StaysReleased(closedMilliseconds))
        LiveUntilReleased();
    return S_OK;
}

// The one switch on the command line, in lower case and without its sign; empty for anything else.
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

} // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR commandLine, int)
{
    // A component that can't be loaded, or crashes, is told by a result.
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
    const WideString word = switchOf(commandLine);
    HRESULT hr = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    if (FAILED(hr))
        return hr;
    if (word == L"regserver")
        hr = RegisterServer();
    else if (word == L"unregserver")
        hr = UnregisterServer();
    else if (word == L"regtypelib")
        hr = RegisterStandardLibrary();
    else if (word == L"unregtypelib")
        hr = UnregisterStandardLibrary();
    else if (word == L"embedding")
        hr = serve();
    else
        hr = E_INVALIDARG;
    CoUninitialize();
    // Another thread may be in a call still: nothing is to be taken down under it.
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(hr));
    return hr;
}
