// Stand-alone packages that end the process they are in, or keep it, as soon as they are opened: each class in its own
// way, which is its name. One just talks.
#include "reference/com/component.h"

#include "cape/com/com_pointer.h"
#include "cape/com/registry_key.h"
#include "tests/support/standing_factory.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

namespace {

// Out of the compiler's sight, which knows that none of this ends well.
int *volatile nowhere = nullptr;
void (*volatile noFunction)() = nullptr;
volatile int depth = 0;
volatile int zero = 0;

void overflowStack()
{
    volatile char frame[4096];
    frame[0] = static_cast<char>(depth);
    depth = depth + 1;
    overflowStack();
    frame[1] = frame[0];
}

void writeToNull() { *nowhere = 1; }
void callNull() { noFunction(); }
void divideByZero() { depth = depth / zero; }
void raiseAnother() { RaiseException(0xE0001234, 0, 0, nullptr); }
void executeTrap() { __builtin_trap(); }
void callExit() { std::exit(3); }
void callAbort() { std::abort(); }
void endProcess() { TerminateProcess(GetCurrentProcess(), 7); }
void throwException() { throw std::runtime_error("thrown by a package"); }

void loop()
{
    for (;;)
        depth = depth + 1;
}

DWORD WINAPI crashLater(void *)
{
    *nowhere = 1;
    return 0;
}

DWORD WINAPI throwLater(void *) { throw std::runtime_error("caught by nobody"); }

// The call that opens it is long over then.
DWORD WINAPI crashInAWhile(void *)
{
    Sleep(2000);
    return crashLater(nullptr);
}

HANDLE startThread(LPTHREAD_START_ROUTINE routine) { return CreateThread(nullptr, 0, routine, nullptr, 0, nullptr); }
void crashOnAnotherThread() { WaitForSingleObject(startThread(crashLater), INFINITE); }
void throwOnAnotherThread() { WaitForSingleObject(startThread(throwLater), INFINITE); }
void crashAfterTheCall() { startThread(crashInAWhile); }

void print()
{
    std::puts("printed by a package");
    std::fflush(stdout);
    char line[16];
    if (std::fgets(line, sizeof line, stdin))
        std::abort(); // it has read what was not for it
    const char text[] = "written by a package\n";
    DWORD count = 0;
    WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), text, sizeof text - 1, &count, nullptr);
}

struct Deed {
    const char *name;
    void (*act)();
};
constexpr Deed deeds[] = {
    {"writes to null", writeToNull},
    {"calls null", callNull},
    {"executes a trap", executeTrap},
    {"divides by zero", divideByZero},
    {"raises another exception", raiseAnother},
    {"calls exit", callExit},
    {"aborts", callAbort},
    {"ends the process", endProcess},
    {"throws", throwException},
    {"overflows the stack", overflowStack},
    {"loops", loop},
    {"crashes on another thread", crashOnAnotherThread},
    {"throws on another thread", throwOnAnotherThread},
    {"crashes after the call", crashAfterTheCall},
    {"prints", print},
    {"talks", nullptr},
};

// The last byte says which of the deeds.
CLSID classOf(std::size_t deed)
{
    return {0x5F0B1E77, 0x31C8, 0x4D0A, {0x9B, 0x5D, 0x62, 0x1C, 0x7E, 0xA4, 0x90, static_cast<BYTE>(deed)}};
}

constexpr CLSID noClass = {};
constexpr reference::ComponentDescription description = {&noClass, "Ill", "A package for tests"};

class Ill final : public reference::Component {
public:
    explicit Ill(const Deed &wanted) : Component(description), deed(wanted) {}

    HRESULT STDMETHODCALLTYPE Initialize() override
    {
        if (deed.act)
            deed.act();
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE Terminate() override
    {
        if (deed.act == print) {
            std::puts("closed by the library");
            std::fflush(stdout);
        }
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE put_simulationContext(IDispatch *context) override
    {
        ComPointer<ICapeDiagnostic> diagnostic;
        if (deed.act || !context || FAILED(diagnostic.queryFrom(context)))
            return S_OK;
        const Bstr logged(OLESTR("logged at 20 \u00B0C"));
        const Bstr shown(OLESTR("shown in a box, \u6C34"));
        diagnostic->LogMessage(logged.get());
        diagnostic->PopUpMessage(shown.get());
        return diagnostic->LogMessage(logged.get());
    }

protected:
    void *findInterface(REFIID) override { return nullptr; }

private:
    const Deed &deed;
};

class Factory final : public StandingFactory {
public:
    explicit Factory(const Deed &wanted) : deed(wanted) {}

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown *, REFIID iid, void **object) override
    {
        auto *component = new Ill(deed);
        const HRESULT hr = component->QueryInterface(iid, object);
        component->Release();
        return hr;
    }

private:
    const Deed &deed;
};

WideString wide(const char *ascii) { return {ascii, ascii + std::char_traits<char>::length(ascii)}; }

WideString classKey(std::size_t deed)
{
    OLECHAR text[39];
    StringFromGUID2(classOf(deed), text, 39);
    return WideString(OLESTR("CLSID\\")) + text;
}

WideString ownPath()
{
    WCHAR path[1024] = {};
    GetModuleFileNameW(GetModuleHandleW(OLESTR("ill_packages.dll")), path, 1024);
    return path;
}

LSTATUS set(const WideString &key, LPCWSTR name, const WideString &text)
{
    return RegistryKey::create(HKEY_CLASSES_ROOT, key.c_str()).setText(name, text);
}

} // namespace

extern "C" HRESULT STDAPICALLTYPE DllGetClassObject(REFCLSID classId, REFIID iid, LPVOID *object)
{
    *object = nullptr;
    const std::size_t deed = classId.Data4[7];
    if (deed >= std::size(deeds))
        return CLASS_E_CLASSNOTAVAILABLE;
    return (new Factory(deeds[deed]))->QueryInterface(iid, object);
}

extern "C" HRESULT STDAPICALLTYPE DllCanUnloadNow() { return S_FALSE; }

extern "C" HRESULT STDAPICALLTYPE DllRegisterServer()
{
    for (std::size_t deed = 0; deed < std::size(deeds); ++deed) {
        const WideString key = classKey(deed);
        for (const LSTATUS status :
             {set(key + OLESTR("\\InprocServer32"), nullptr, ownPath()),
              set(key + OLESTR("\\InprocServer32"), OLESTR("ThreadingModel"), OLESTR("Apartment")),
              set(key + OLESTR("\\Implemented Categories\\{CF51E384-0110-4ED8-ACB7-B50CFDE6908E}"), nullptr, {}),
              set(key + OLESTR("\\CapeDescription"), OLESTR("Name"), wide(deeds[deed].name))})
            if (status != ERROR_SUCCESS)
                return ResultOf(status);
    }
    return S_OK;
}

extern "C" HRESULT STDAPICALLTYPE DllUnregisterServer()
{
    for (std::size_t deed = 0; deed < std::size(deeds); ++deed)
        RegDeleteTreeW(HKEY_CLASSES_ROOT, classKey(deed).c_str());
    return S_OK;
}
