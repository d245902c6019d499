#include "relay/standard_library.h"

#include "cape/com/bstr.h"
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

// The library's file, and whether it is this one that is registered.
HRESULT findFile(WideString &path, bool &isRegistered)
{
    path = FileBesideProgram(fileName);
    if (path.empty())
        return HRESULT_FROM_WIN32(ERROR_FILENAME_EXCED_RANGE);
    WideString registered;
    const HRESULT hr =
        ReadText(0, L"TypeLib\\" + IdentifierText(LIBID_CAPEOPEN110) + L"\\1.1\\0\\win32", nullptr, registered);
    constexpr std::wstring_view plainPath = L"\\\\?\\"; // before some paths, depending on the system
    if (registered.starts_with(plainPath))
        registered.erase(0, plainPath.size());
    isRegistered = lstrcmpiW(registered.c_str(), path.c_str()) == 0;
    return hr;
}

struct NamedInterface {
    IID iid;
    WideString name;
};

HRESULT interfacesOf(ITypeLib *library, std::vector<NamedInterface> &result)
{
    for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
        ComPointer<ITypeInfo> information;
        TYPEATTR *attributes = nullptr;
        HRESULT hr = library->GetTypeInfo(i, information.out());
        if (SUCCEEDED(hr))
            hr = information->GetTypeAttr(&attributes);
        if (FAILED(hr))
            return hr;
        const TYPEKIND kind = attributes->typekind;
        const IID iid = attributes->guid;
        information->ReleaseTypeAttr(attributes);
        if (kind != TKIND_DISPATCH)
            continue;
        Bstr name;
        hr = information->GetDocumentation(MEMBERID_NIL, name.out(), nullptr, nullptr, nullptr);
        if (FAILED(hr))
            return hr;
        result.push_back({iid, TextOf(name.get())});
    }
    return S_OK;
}

} // namespace

HRESULT RegisterStandardLibrary()
{
    WideString path;
    bool isOurs = false;
    HRESULT hr = findFile(path, isOurs);
    if (FAILED(hr))
        return hr;
    ComPointer<ITypeLib> library;
    if (!isOurs && SUCCEEDED(LoadRegTypeLib(LIBID_CAPEOPEN110, major, minor, 0, library.out())))
        return S_OK;
    std::vector<NamedInterface> interfaces;
    hr = LoadTypeLibEx(path.c_str(), REGKIND_REGISTER, library.out());
    if (SUCCEEDED(hr))
        hr = interfacesOf(library.get(), interfaces);
    for (const NamedInterface &entry : interfaces)
        if (SUCCEEDED(hr))
            hr = EnterInterface(entry.iid, entry.name, LIBID_CAPEOPEN110, versionText);
    return hr;
}

HRESULT UnregisterStandardLibrary()
{
    WideString path;
    bool isOurs = false;
    HRESULT result = findFile(path, isOurs);
    if (FAILED(result) || !isOurs)
        return result;
    ComPointer<ITypeLib> library;
    std::vector<NamedInterface> interfaces;
    result = LoadTypeLibEx(path.c_str(), REGKIND_NONE, library.out());
    if (SUCCEEDED(result))
        result = interfacesOf(library.get(), interfaces);
    if (FAILED(result))
        return result;
    for (const NamedInterface &entry : interfaces) {
        const HRESULT hr = RemoveInterface(entry.iid, LIBID_CAPEOPEN110, versionText);
        if (SUCCEEDED(result))
            result = hr;
    }
    // Last, for by it the rest is found when this is called once more after an error.
    return SUCCEEDED(result) ? UnRegisterTypeLib(LIBID_CAPEOPEN110, major, minor, 0, SYS_WIN32) : result;
}
