// The classes that commands can create, and their factories.
#include "cape/com/registry_key.h"
#include "cape/com/relay_interface.h"
#include "fuzz/input.h"
#include "fuzz/mex/library.h"

namespace fuzz {

namespace {

struct Class {
    LPCWSTR path;
    LPCWSTR category;
    LPCWSTR name;
};

constexpr Class classes[] = {
    {u"CLSID\\{7E570001-3B1C-4D0A-9E55-216B0C5FA811}", u"{CF51E384-0110-4ed8-ACB7-B50CFDE6908E}", u"Alone"},
    {u"CLSID\\{7E570002-3B1C-4D0A-9E55-216B0C5FA811}", u"{CF51E384-0110-4ed8-ACB7-B50CFDE6908E}", u"Second"},
    {u"CLSID\\{7E570003-3B1C-4D0A-9E55-216B0C5FA811}", u"{CF51E383-0110-4ed8-ACB7-B50CFDE6908E}", u"Manager"},
    // one that only the relay creates
    {u"WOW6432Node\\CLSID\\{7E570004-3B1C-4D0A-9E55-216B0C5FA811}", u"{CF51E384-0110-4ed8-ACB7-B50CFDE6908E}",
     u"Ghost"},
};

constexpr CLSID classId(std::uint32_t number)
{
    return {0x7E570000 + number, 0x3B1C, 0x4D0A, {0x9E, 0x55, 0x21, 0x6B, 0x0C, 0x5F, 0xA8, 0x11}};
}

Creator create = nullptr;

class Factory final : public IClassFactory {
public:
    explicit Factory(ComponentKind made) : kind(made) {}

    HRESULT QueryInterface(REFIID, void **object) override
    {
        *object = this;
        return S_OK;
    }
    ULONG AddRef() override { return 2; }
    ULONG Release() override { return 1; }
    HRESULT CreateInstance(IUnknown *, REFIID iid, void **object) override { return create(kind, iid, object); }
    HRESULT LockServer(BOOL) override { return S_OK; }

private:
    ComponentKind kind;
};

Factory packageFactory(ComponentKind::package);
Factory managerFactory(ComponentKind::manager);
Factory relayFactory(ComponentKind::relay);

void write(const WideString &path, LPCWSTR name)
{
    const RegistryKey key = RegistryKey::create(HKEY_CLASSES_ROOT, path.c_str());
    const WideString text = name ? name : u"";
    const auto bytes = static_cast<DWORD>((text.size() + 1) * sizeof(WCHAR));
    FUZZ_CHECK(RegSetValueExW(key.get(), u"Name", 0, REG_SZ, reinterpret_cast<const BYTE *>(text.c_str()), bytes) ==
               ERROR_SUCCESS);
}

void serve(REFCLSID id, Factory &factory, DWORD context)
{
    DWORD cookie = 0;
    FUZZ_CHECK(CoRegisterClassObject(id, &factory, context, REGCLS_MULTIPLEUSE, &cookie) == S_OK);
}

} // namespace

void RegisterClasses(Creator creator)
{
    create = creator;
    for (const Class &entry : classes) {
        const WideString path = entry.path;
        write(path + u"\\Implemented Categories\\" + entry.category, nullptr);
        write(path + u"\\CapeDescription", entry.name);
    }
    serve(classId(1), packageFactory, CLSCTX_INPROC_SERVER);
    serve(classId(2), packageFactory, CLSCTX_INPROC_SERVER);
    serve(classId(3), managerFactory, CLSCTX_INPROC_SERVER);
    serve(CLSID_Verdanth6432Relay, relayFactory, CLSCTX_LOCAL_SERVER);
}

} // namespace fuzz
