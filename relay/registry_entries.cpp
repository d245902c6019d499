#include "relay/registry_entries.h"

#include "cape/com/registry_key.h"

namespace {

constexpr LPCWSTR automationMarshaller = L"{00020424-0000-0000-C000-000000000046}";

WideString interfaceKey(REFIID iid) { return L"Interface\\" + IdentifierText(iid); }

} // namespace

WideString IdentifierText(REFGUID id)
{
    OLECHAR text[39];
    StringFromGUID2(id, text, 39);
    return text;
}

HRESULT ReadText(REGSAM view, const WideString &path, LPCWSTR name, WideString &text)
{
    text.clear();
    const RegistryKey key(HKEY_CLASSES_ROOT, path.c_str(), KEY_READ | view);
    WCHAR value[1024] = {};
    DWORD size = sizeof value - sizeof(WCHAR);
    DWORD type = REG_NONE;
    LSTATUS status = key.result();
    if (key)
        status = RegQueryValueExW(key.get(), name, nullptr, &type, reinterpret_cast<BYTE *>(value), &size);
    if (status == ERROR_SUCCESS && type == REG_SZ)
        text = value;
    return status == ERROR_FILE_NOT_FOUND || status == ERROR_MORE_DATA ? S_OK : ResultOf(status);
}

HRESULT WriteText(REGSAM view, const WideString &path, LPCWSTR name, const WideString &value)
{
    return ResultOf(RegistryKey::create(HKEY_CLASSES_ROOT, path.c_str(), view).setText(name, value));
}

HRESULT RemoveKey(REGSAM view, const WideString &path)
{
    const std::size_t last = path.rfind(L'\\');
    const RegistryKey parent(HKEY_CLASSES_ROOT, path.substr(0, last).c_str(), KEY_READ | KEY_WRITE | DELETE | view);
    const LSTATUS status = parent ? RegDeleteTreeW(parent.get(), path.substr(last + 1).c_str()) : parent.result();
    return ResultOf(status == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : status);
}

HRESULT EnterInterface(REFIID iid, const WideString &name, REFGUID libraryId, const WideString &libraryVersion)
{
    const WideString key = interfaceKey(iid);
    HRESULT hr = S_OK;
    for (const REGSAM view : registryViews) {
        if (SUCCEEDED(hr))
            hr = WriteText(view, key, nullptr, name);
        if (SUCCEEDED(hr))
            hr = WriteText(view, key + L"\\ProxyStubClsid32", nullptr, automationMarshaller);
        if (SUCCEEDED(hr))
            hr = WriteText(view, key + L"\\TypeLib", nullptr, IdentifierText(libraryId));
        if (SUCCEEDED(hr))
            hr = WriteText(view, key + L"\\TypeLib", L"Version", libraryVersion);
    }
    return hr;
}

HRESULT RemoveInterface(REFIID iid, REFGUID libraryId, const WideString &libraryVersion)
{
    const WideString key = interfaceKey(iid);
    HRESULT result = S_OK;
    for (const REGSAM view : registryViews) {
        WideString library;
        WideString version;
        HRESULT hr = ReadText(view, key + L"\\TypeLib", nullptr, library);
        if (SUCCEEDED(hr))
            hr = ReadText(view, key + L"\\TypeLib", L"Version", version);
        const bool isOurs =
            lstrcmpiW(library.c_str(), IdentifierText(libraryId).c_str()) == 0 && version == libraryVersion;
        if (SUCCEEDED(hr) && isOurs)
            hr = RemoveKey(view, key);
        if (SUCCEEDED(result))
            result = hr;
    }
    return result;
}
