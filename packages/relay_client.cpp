#include "packages/relay_client.h"

#include "cape/com/bstr.h"
#include "cape/com/cape_open.h"
#include "cape/com/com_pointer.h"
#include "cape/com/registry_key.h"
#include "cape/com/relay_interface.h"
#include "gateway/state/warning.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <memory>
#include <utility>

namespace {

// One instance is kept until exit: it holds the relay's process, and with it the objects made
// there. A plain pointer: at unload, when COM is gone, nothing may be released any more.
IVerdanth6432Relay *relayKeepAlive = nullptr;

// Whether a result tells that the process that was to give another has ended.
bool isOfTheDead(HRESULT hr)
{
    constexpr std::uint32_t resultsOfTheDead[] = {
        0x80010007, // RPC_E_SERVER_DIED
        0x80010012, // RPC_E_SERVER_DIED_DNE
        0x80010108, // RPC_E_DISCONNECTED
        0x800401FD, // CO_E_OBJNOTCONNECTED
        0x800706BA, // RPC_S_SERVER_UNAVAILABLE
        0x800706BE, // RPC_S_CALL_FAILED
        0x800706BF, // RPC_S_CALL_FAILED_DNE
    };
    return std::find(std::begin(resultsOfTheDead), std::end(resultsOfTheDead), static_cast<std::uint32_t>(hr)) !=
           std::end(resultsOfTheDead);
}

// A relay's process that is about to end may give its class to one more client and be gone when that asks for an
// instance; Wine then calls this E_FAIL, too. The next one comes from another process.
HRESULT createRelay(IVerdanth6432Relay *&relay)
{
    constexpr int mostTries = 3;
    HRESULT hr = S_OK;
    for (int tries = 0; tries == 0 || ((isOfTheDead(hr) || hr == E_FAIL) && tries < mostTries); ++tries)
        hr = CoCreateInstance(CLSID_Verdanth6432Relay, nullptr, CLSCTX_LOCAL_SERVER, InterfaceId<IVerdanth6432Relay>,
                              reinterpret_cast<void **>(&relay));
    if (FAILED(hr))
        relay = nullptr;
    return SUCCEEDED(hr) && !relay ? E_UNEXPECTED : hr;
}

// Whether the relay's process has ended: killed by a user, or by a component that it ran. Asked by a call that goes
// there; a relay that is alive may answer as it likes.
bool isDead(IVerdanth6432Relay *relay)
{
    UINT count = 0;
    return isOfTheDead(relay->GetTypeInfoCount(&count));
}

void EnsureRelay()
{
    if (relayKeepAlive && isDead(relayKeepAlive))
        ReleaseRelay(); // what was made there is lost; for what comes there has to be another process
    if (relayKeepAlive)
        return;
    IVerdanth6432Relay *created = nullptr;
    createRelay(created);
    if (!relayKeepAlive) // else a command that was called meanwhile has made one
        relayKeepAlive = std::exchange(created, nullptr);
    if (created)
        created->Release();
    if (relayKeepAlive)
        return;
    WarnPlain("Verdanth6432Relay is not properly registered or not accessible. "
              "Please make sure Verdanth6432Relay.exe is present in the Verdanth installation folder, and run "
              "\"Verdanth6432Relay.exe /RegServer\" (administration rights required) to fix the problem. "
              "Verdanth will not be able to access 32-bit in-process CAPE-OPEN objects");
}

struct TaskMemoryText {
    LPOLESTR text = nullptr;
    TaskMemoryText() = default;
    TaskMemoryText(const TaskMemoryText &) = delete;
    TaskMemoryText &operator=(const TaskMemoryText &) = delete;
    ~TaskMemoryText() { CoTaskMemFree(text); }
};

// "Name" of the class in the 32-bit view, whatever its length.
bool registeredName(const WideString &classIdText, WideString &name)
{
    const RegistryKey key(HKEY_CLASSES_ROOT,
                          (OLESTR("Wow6432Node\\CLSID\\") + classIdText + OLESTR("\\CapeDescription")).c_str());
    if (!key)
        return false;
    DWORD type = 0;
    DWORD size = 0;
    if (RegQueryValueExW(key.get(), OLESTR("Name"), nullptr, &type, nullptr, &size) != ERROR_SUCCESS ||
        type != REG_SZ || size <= 1)
        return false;
    const std::size_t bytes = 2 * static_cast<std::size_t>(size + 1);
    const std::unique_ptr<WCHAR[]> buffer(new WCHAR[bytes / sizeof(WCHAR) + 1]());
    ++size;
    if (RegQueryValueExW(key.get(), OLESTR("Name"), nullptr, &type, reinterpret_cast<LPBYTE>(buffer.get()), &size) !=
        ERROR_SUCCESS)
        return false;
    name = buffer.get();
    return true;
}

// Replaces `name` by the best name that can be had for the object: what is registered, else what
// the object calls itself, else its program id. The program id is not asked of an object that can
// identify itself.
void findDisplayName(REFCLSID classId, const WideString &classIdText, IUnknown *object, WideString &name)
{
    if (registeredName(classIdText, name))
        return;
    ComPointer<ICapeIdentification> identification;
    if (SUCCEEDED(identification.queryFrom(object))) {
        Bstr text;
        if (SUCCEEDED(identification->get_ComponentName(text.out())))
            name = TextOf(text.get());
        else
            text.detach(); // what a failed call leaves is no text
        return;
    }
    TaskMemoryText programId;
    if (SUCCEEDED(ProgIDFromCLSID(classId, &programId.text)))
        name = programId.text;
}

} // namespace

HRESULT CreateThroughRelay(REFCLSID classId, REFIID iid, void **object)
{
    EnsureRelay();
    if (!relayKeepAlive)
        return E_UNEXPECTED;
    IVerdanth6432Relay *worker = nullptr; // a second instance does the work
    HRESULT hr = createRelay(worker);
    if (FAILED(hr))
        return hr;
    ComPointer<IVerdanth6432Relay> relay(worker);
    TaskMemoryText classIdText;
    hr = StringFromCLSID(classId, &classIdText.text);
    if (FAILED(hr))
        return hr;
    const Bstr argument(classIdText.text);
    WideString name(classIdText.text);
    ComPointer<IUnknown> created;
    hr = relay->CreateObject32(argument.get(), created.out());
    relay.reset();
    if (FAILED(hr)) {
        created.detach();
        return hr;
    }
    if (!created)
        return E_UNEXPECTED;
    hr = created->QueryInterface(iid, object);
    if (FAILED(hr)) {
        *object = nullptr;
        return hr;
    }
    findDisplayName(classId, classIdText.text, created.get(), name);
    created.reset();
    name += OLESTR(" is a 32-bit COM object and is created out-of-process; "
                   "running the 32-bit version of Matlab might be more efficient");
    Warn(name.c_str());
    return hr;
}

void ReleaseRelay()
{
    if (IVerdanth6432Relay *released = std::exchange(relayKeepAlive, nullptr))
        released->Release();
}
