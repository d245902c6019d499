// The functions that the library exports.
#include "reference/server/registration.h"

#include "cape/com/com_pointer.h"
#include "cape/com/guarded_call.h"
#include "cape/com/registry_key.h"

namespace reference {

namespace {

// Creates objects of one class. Starts with one reference, the creator's.
class ClassFactory final : public IClassFactory {
public:
    explicit ClassFactory(const ComClass *entry) : made(entry) { ++libraryUses; }
    ClassFactory(const ClassFactory &) = delete;
    ClassFactory &operator=(const ClassFactory &) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void **object) override
    {
        if (!object)
            return E_POINTER;
        *object = nullptr;
        if (!(iid == InterfaceId<IUnknown>)&&!(iid == InterfaceId<IClassFactory>))
            return E_NOINTERFACE;
        *object = static_cast<IClassFactory *>(this);
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override
    {
        const ULONG left = --references;
        if (left == 0)
            delete this;
        return left;
    }

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown *outer, REFIID iid, void **object) override
    {
        if (!object)
            return E_POINTER;
        *object = nullptr;
        if (outer)
            return CLASS_E_NOAGGREGATION;
        return GuardedCall([&] {
            Component *component = made->create(made->description);
            const HRESULT result = component->QueryInterface(iid, object);
            component->Release();
            return result;
        });
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override
    {
        libraryUses += lock ? 1 : -1;
        return S_OK;
    }

private:
    ~ClassFactory() { --libraryUses; }

    const ComClass *made;
    ULONG references = 1;
};

// The full path of this library, which is loaded; empty on failure.
WideString libraryPath()
{
    const HMODULE library = LoadLibraryW(OLESTR("VerdanthReference.dll"));
    if (!library)
        return {};
    WCHAR path[1024];
    const DWORD length = GetModuleFileNameW(library, path, 1024);
    FreeLibrary(library);
    return length < 1024 ? WideString(path, length) : WideString();
}

} // namespace

} // namespace reference

using namespace reference;

extern "C" HRESULT STDAPICALLTYPE DllGetClassObject(REFCLSID classId, REFIID iid, LPVOID *object)
{
    if (!object)
        return E_POINTER;
    *object = nullptr;
    for (const ComClass &entry : classTable()) {
        if (!(*entry.description.classId == classId))
            continue;
        return GuardedCall([&] {
            ComPointer<ClassFactory> factory(new ClassFactory(&entry));
            return factory->QueryInterface(iid, object);
        });
    }
    return CLASS_E_CLASSNOTAVAILABLE;
}

extern "C" HRESULT STDAPICALLTYPE DllCanUnloadNow() { return libraryUses == 0 ? S_OK : S_FALSE; }

extern "C" HRESULT STDAPICALLTYPE DllRegisterServer()
{
    return GuardedCall([] {
        const WideString path = libraryPath();
        LSTATUS status = ERROR_MOD_NOT_FOUND;
        const bool done =
            !path.empty() && describeRegistration(path, [&](const auto &key, const auto &name, const auto &value) {
                status = RegistryKey::create(HKEY_CLASSES_ROOT, key.c_str()).setText(name.c_str(), value);
                return status == ERROR_SUCCESS;
            });
        return done ? S_OK : ResultOf(status);
    });
}

extern "C" HRESULT STDAPICALLTYPE DllUnregisterServer()
{
    return GuardedCall([] {
        HRESULT result = S_OK;
        for (const WideString &key : registeredKeys()) {
            const LSTATUS status = RegDeleteTreeW(HKEY_CLASSES_ROOT, key.c_str());
            if (status != ERROR_SUCCESS && status != ERROR_FILE_NOT_FOUND)
                result = ResultOf(status);
        }
        return result;
    });
}
