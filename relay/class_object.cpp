#include "relay/class_object.h"

#include "cape/com/com_pointer.h"
#include "relay/process_life.h"
#include "relay/relay_object.h"

#include <rpc.h>
#include <rpcdce.h>

#include <utility>

namespace {

RelayFactory mainFactory;

// The process whose call this thread is serving.
void noteCaller() noexcept
{
    unsigned long processId = 0;
    if (I_RpcBindingInqLocalClientPID(nullptr, &processId) != RPC_S_OK)
        processId = unknownClient;
    if (processId != GetCurrentProcessId())
        NoteClient(processId);
}

// The factory that clients get: records who they are and passes their calls on to the main thread.
class FrontFactory final : public IClassFactory {
public:
    explicit FrontFactory(IClassFactory *mainThreads) : factory(mainThreads) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void **object) noexcept override
    {
        if (!object)
            return E_POINTER;
        const bool known = iid == InterfaceId<IUnknown> || iid == InterfaceId<IClassFactory>;
        *object = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return 2; }
    ULONG STDMETHODCALLTYPE Release() noexcept override { return 1; }

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown *outer, REFIID iid, void **object) noexcept override
    {
        if (!object)
            return E_POINTER;
        *object = nullptr;
        if (outer)
            return CLASS_E_NOAGGREGATION;
        noteCaller();
        return factory->CreateInstance(nullptr, iid, object);
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) noexcept override
    {
        noteCaller();
        return factory->LockServer(lock);
    }

private:
    IClassFactory *factory;
};

} // namespace

ClassObject::ClassObject()
{
    if (!opened || !closing || !closed)
        return;
    result = CoMarshalInterThreadInterfaceInStream(InterfaceId<IClassFactory>, &mainFactory, &factoryStream);
    if (FAILED(result))
        return;
    result = E_OUTOFMEMORY;
    if (HANDLE thread = CreateThread(nullptr, 0, run, this, 0, nullptr)) {
        waitFor(opened);
        CloseHandle(thread);
    }
}

void ClassObject::close()
{
    SetEvent(closing);
    waitFor(closed);
}

// The other thread may need this one to handle a call.
void ClassObject::waitFor(HANDLE event) const
{
    DWORD index = 0;
    CoWaitForMultipleHandles(0, INFINITE, 1, &event, &index);
}

DWORD WINAPI ClassObject::run(void *self)
{
    CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    static_cast<ClassObject *>(self)->serve();
    return 0;
}

void ClassObject::serve()
{
    static ComPointer<IClassFactory> factory; // neither is destroyed: calls may still arrive
    result = CoGetInterfaceAndReleaseStream(std::exchange(factoryStream, nullptr), InterfaceId<IClassFactory>,
                                            factory.outVoid());
    static FrontFactory front(factory.get());
    DWORD cookie = 0;
    if (SUCCEEDED(result))
        result =
            CoRegisterClassObject(CLSID_Verdanth6432Relay, &front, CLSCTX_LOCAL_SERVER, REGCLS_MULTIPLEUSE, &cookie);
    const bool isOpen = SUCCEEDED(result);
    SetEvent(opened);
    if (!isOpen)
        return;
    WaitForSingleObject(closing, INFINITE);
    CoRevokeClassObject(cookie);
    SetEvent(closed);
    Sleep(INFINITE);
}
