#include "relay/standard_library.h"

#include "cape/com/cape_open_common.h"
#include "cape/com/com_pointer.h"
#include "relay/program_file.h"
#include "relay/registry_entries.h"

#include <string_view>
#include <vector>

namespace {

constexpr LPCWSTR fileName = L"CapeOpen11.tlb";
constexpr WORD major = 1;
constexpr WORD minor = 1;
constexpr LPCWSTR versionText = L"1.1";

const WideString pathKey = L"TypeLib\\" + IdentifierText(LIBID_CAPEOPEN110) + L"\\1.1\\0\\win32";

bool isRegistered(const WideString &path)
{
    WideString registered = ReadText(0, pathKey, nullptr);
    constexpr std::wstring_view plainPath = L"\\\\?\\"; // before some paths, depending on the system
    if (registered.starts_with(plainPath))
        registered.erase(0, plainPath.size());
    return lstrcmpiW(registered.c_str(), path.c_str()) == 0;
}

struct NamedInterface {
    IID iid;
    WideString name;
};

std::vector<NamedInterface> interfacesOf(ITypeLib *library)
{
    std::vector<NamedInterface> result;
    for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
        ComPointer<ITypeInfo> information;
        TYPEATTR *attributes = nullptr;
        BSTR name = nullptr;
        if (FAILED(library->GetTypeInfo(i, information.out())) || FAILED(information->GetTypeAttr(&attributes)))
            continue;
        if (attributes->typekind == TKIND_DISPATCH &&
            SUCCEEDED(information->GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr)))
            result.push_back({attributes->guid, WideString(name, SysStringLen(name))});
        SysFreeString(name);
        information->ReleaseTypeAttr(attributes);
    }
    return result;
}

} // namespace

HRESULT RegisterStandardLibrary()
{
    const WideString path = FileBesideProgram(fileName);
    ComPointer<ITypeLib> library;
    if (!isRegistered(path) && SUCCEEDED(LoadRegTypeLib(LIBID_CAPEOPEN110, major, minor, 0, library.out())))
        return S_OK;
    HRESULT hr = LoadTypeLibEx(path.c_str(), REGKIND_REGISTER, library.out());
    if (FAILED(hr))
        return hr;
    for (const NamedInterface &entry : interfacesOf(library.get()))
        if (SUCCEEDED(hr))
            hr = EnterInterface(entry.iid, entry.name, LIBID_CAPEOPEN110, versionText);
    return hr;
}

HRESULT UnregisterStandardLibrary()
{
    const WideString path = FileBesideProgram(fileName);
    if (!isRegistered(path))
        return S_OK;
    ComPointer<ITypeLib> library;
    HRESULT result = LoadTypeLibEx(path.c_str(), REGKIND_NONE, library.out());
    if (FAILED(result))
        return result;
    result = UnRegisterTypeLib(LIBID_CAPEOPEN110, major, minor, 0, SYS_WIN32);
    for (const NamedInterface &entry : interfacesOf(library.get())) {
        const HRESULT hr = RemoveInterface(entry.iid, LIBID_CAPEOPEN110, versionText);
        if (SUCCEEDED(result))
            result = hr;
    }
    return result;
}
