// Apartments, class objects and the creation of objects. Threads are counted apart; the class
// objects are the process's, and nothing is locked: one thread uses COM.
#include "platform/native/com.h"
#include "platform/interface_id.h"
#include "platform/native/allocation.h"
#include "platform/native/identifier_text.h"
#include "platform/native/modules.h"
#include "platform/procedure.h"

#include <algorithm>
#include <map>
#include <string>
#include <vector>

namespace {

using GetClassObject = HRESULT(REFCLSID classId, REFIID iid, void **object);
using CanUnloadNow = HRESULT();

struct ClassObject {
    DWORD cookie;
    CLSID classId;
    DWORD context;
    IUnknown *factory;
};

std::vector<ClassObject> classObjects;
std::map<std::u16string, HMODULE> servers; // by path
DWORD lastCookie = 0;
int apartments = 0;

thread_local int initializations = 0;
thread_local DWORD apartmentMode = 0;

void leaveLastApartment()
{
    std::vector<ClassObject> revoked;
    revoked.swap(classObjects);
    for (const ClassObject &entry : revoked)
        entry.factory->Release();
    for (auto server = servers.begin(); server != servers.end();) {
        const auto canUnload = findProcedure<CanUnloadNow>(server->second, "DllCanUnloadNow");
        if (canUnload && canUnload() == S_OK) {
            FreeLibrary(server->second);
            server = servers.erase(server);
        } else {
            ++server;
        }
    }
}

HMODULE loadServer(const std::u16string &path)
{
    const auto loaded = servers.find(path);
    if (loaded != servers.end())
        return loaded->second;
    const HMODULE module = LoadLibraryW(path.c_str());
    if (module)
        servers.emplace(path, module);
    return module;
}

// The factory of a class; null if the class is neither registered in the process for one of the
// contexts nor to be had from a shared object.
IClassFactory *findFactory(REFCLSID classId, DWORD context)
{
    void *factory = nullptr;
    for (const ClassObject &entry : classObjects)
        if (entry.classId == classId && (entry.context & context))
            return SUCCEEDED(entry.factory->QueryInterface(InterfaceId<IClassFactory>, &factory))
                       ? static_cast<IClassFactory *>(factory)
                       : nullptr;
    if (!(context & CLSCTX_INPROC_SERVER))
        return nullptr;
    const std::u16string path = native::classesText(u"CLSID\\" + native::identifierText(classId) + u"\\InprocServer32");
    const HMODULE module = path.empty() ? nullptr : loadServer(path);
    const auto getClassObject = module ? findProcedure<GetClassObject>(module, "DllGetClassObject") : nullptr;
    if (!getClassObject || FAILED(getClassObject(classId, InterfaceId<IClassFactory>, &factory)))
        return nullptr;
    return static_cast<IClassFactory *>(factory);
}

} // namespace

HRESULT CoInitializeEx(LPVOID, DWORD mode)
{
    mode &= COINIT_APARTMENTTHREADED;
    if (initializations > 0 && mode != apartmentMode)
        return RPC_E_CHANGED_MODE;
    apartmentMode = mode;
    if (++initializations > 1)
        return S_FALSE;
    ++apartments;
    return S_OK;
}

void CoUninitialize()
{
    if (initializations == 0 || --initializations > 0)
        return;
    if (--apartments == 0)
        leaveLastApartment();
}

HRESULT CoRegisterClassObject(REFCLSID classId, IUnknown *factory, DWORD context, DWORD flags, DWORD *cookie)
{
    if (!factory || !cookie)
        return E_INVALIDARG;
    if (initializations == 0)
        return CO_E_NOTINITIALIZED;
    // A factory for any number of clients from elsewhere serves those at home, too.
    if ((context & CLSCTX_LOCAL_SERVER) && (flags & REGCLS_MULTIPLEUSE))
        context |= CLSCTX_INPROC_SERVER;
    factory->AddRef();
    classObjects.push_back({++lastCookie, classId, context, factory});
    *cookie = lastCookie;
    return S_OK;
}

HRESULT CoRevokeClassObject(DWORD cookie)
{
    const auto found = std::find_if(classObjects.begin(), classObjects.end(),
                                    [&](const ClassObject &entry) { return entry.cookie == cookie; });
    if (found == classObjects.end())
        return E_INVALIDARG;
    IUnknown *factory = found->factory;
    classObjects.erase(found);
    factory->Release();
    return S_OK;
}

HRESULT CoCreateInstance(REFCLSID classId, IUnknown *outer, DWORD context, REFIID iid, void **object)
{
    if (!object)
        return E_POINTER;
    *object = nullptr;
    if (seam::comCalls.strikes())
        return seam::comFailure;
    if (initializations == 0)
        return CO_E_NOTINITIALIZED;
    IClassFactory *factory = findFactory(classId, context);
    if (!factory)
        return REGDB_E_CLASSNOTREG;
    const HRESULT result = factory->CreateInstance(outer, iid, object);
    factory->Release();
    return result;
}

HRESULT LoadRegTypeLib(REFGUID, WORD, WORD, LCID, ITypeLib **result)
{
    if (!result)
        return E_INVALIDARG;
    *result = nullptr;
    return TYPE_E_LIBNOTREGISTERED;
}

void *CoTaskMemAlloc(std::size_t size) { return native::allocate(size); }

void CoTaskMemFree(void *block) { std::free(block); }
