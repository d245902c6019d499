#include "relay/registration.h"

#include "cape/com_pointer.h"
#include "cape/relay_interface.h"

namespace {

constexpr REGSAM views[] = {KEY_WOW64_32KEY, KEY_WOW64_64KEY};
constexpr LPCWSTR description = L"Verdanth 32-bit relay";
constexpr LPCWSTR automationMarshaller = L"{00020424-0000-0000-C000-000000000046}";
constexpr LPCWSTR libraryVersion = L"1.1";

HRESULT resultOf(LSTATUS status)
{
    return status == ERROR_SUCCESS ? S_OK : static_cast<HRESULT>(0x80070000u | static_cast<unsigned>(status));
}

WideString identifierText(REFGUID id)
{
    OLECHAR text[39];
    StringFromGUID2(id, text, 39);
    return text;
}

const WideString classKey = L"CLSID\\" + identifierText(CLSID_Verdanth6432Relay);
const WideString interfaceKey = L"Interface\\" + identifierText(InterfaceId<IVerdanth6432Relay>);
const WideString libraryKey = L"TypeLib\\" + identifierText(LIBID_Verdanth6432Relay);

HRESULT write(REGSAM view, const WideString &path, LPCWSTR name, const WideString &value)
{
    HKEY key = nullptr;
    LSTATUS status =
        RegCreateKeyExW(HKEY_CLASSES_ROOT, path.c_str(), 0, nullptr, 0, KEY_WRITE | view, nullptr, &key, nullptr);
    if (status != ERROR_SUCCESS)
        return resultOf(status);
    status = RegSetValueExW(key, name, 0, REG_SZ, reinterpret_cast<const BYTE *>(value.c_str()),
                            static_cast<DWORD>((value.size() + 1) * sizeof(WCHAR)));
    RegCloseKey(key);
    return resultOf(status);
}

// A key with all below it, of one view.
HRESULT remove(REGSAM view, const WideString &path)
{
    const std::size_t last = path.rfind(L'\\');
    HKEY parent = nullptr;
    LSTATUS status = RegOpenKeyExW(HKEY_CLASSES_ROOT, path.substr(0, last).c_str(), 0,
                                   KEY_READ | KEY_WRITE | DELETE | view, &parent);
    if (status == ERROR_SUCCESS) {
        status = RegDeleteTreeW(parent, path.substr(last + 1).c_str());
        RegCloseKey(parent);
    }
    return resultOf(status == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : status);
}

// The path of this program; empty when it is too long.
WideString programPath()
{
    WCHAR path[1024];
    const DWORD length = GetModuleFileNameW(nullptr, path, 1024);
    return length < 1024 ? WideString(path, length) : WideString();
}

HRESULT registerTypeLibrary(const WideString &path)
{
    ComPointer<ITypeLib> library;
    const HRESULT hr = LoadTypeLibEx(path.c_str(), REGKIND_REGISTER, library.out());
    // The entry is one for 32-bit programs; 64-bit ones can read this file, too.
    return FAILED(hr) ? hr : write(0, libraryKey + L"\\" + libraryVersion + L"\\0\\win64", nullptr, path);
}

struct Entry {
    const WideString &key;
    LPCWSTR subkey;
    LPCWSTR name;
    WideString value;
};

} // namespace

HRESULT RegisterServer()
{
    const WideString path = programPath();
    if (path.empty())
        return resultOf(ERROR_FILENAME_EXCED_RANGE);
    HRESULT hr = registerTypeLibrary(path);
    // What RegisterTypeLib enters of the interface differs from system to system in the views it reaches.
    const Entry entries[] = {
        {classKey, L"", nullptr, description},
        {classKey, L"\\LocalServer32", nullptr, L"\"" + path + L"\""},
        {classKey, L"\\TypeLib", nullptr, identifierText(LIBID_Verdanth6432Relay)},
        {interfaceKey, L"", nullptr, L"IVerdanth6432Relay"},
        {interfaceKey, L"\\ProxyStubClsid32", nullptr, automationMarshaller},
        {interfaceKey, L"\\TypeLib", nullptr, identifierText(LIBID_Verdanth6432Relay)},
        {interfaceKey, L"\\TypeLib", L"Version", libraryVersion},
    };
    for (const REGSAM view : views)
        for (const Entry &entry : entries)
            if (SUCCEEDED(hr))
                hr = write(view, entry.key + entry.subkey, entry.name, entry.value);
    return hr;
}

HRESULT UnregisterServer()
{
    HRESULT result = S_OK;
    for (const REGSAM view : views) {
        for (const WideString *key : {&classKey, &interfaceKey, &libraryKey}) {
            const HRESULT hr = remove(view, *key);
            if (SUCCEEDED(result))
                result = hr;
        }
    }
    return result;
}
