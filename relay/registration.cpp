#include "relay/registration.h"

#include "cape/com/com_pointer.h"
#include "cape/com/relay_interface.h"
#include "relay/program_file.h"
#include "relay/registry_entries.h"

namespace {

constexpr LPCWSTR description = L"Verdanth 32-bit relay";
constexpr LPCWSTR libraryVersion = L"1.1";

WideString classKey() { return L"CLSID\\" + IdentifierText(CLSID_Verdanth6432Relay); }
WideString libraryKey() { return L"TypeLib\\" + IdentifierText(LIBID_Verdanth6432Relay); }

HRESULT registerTypeLibrary(const WideString &path)
{
    ComPointer<ITypeLib> library;
    HRESULT hr = LoadTypeLibEx(path.c_str(), REGKIND_REGISTER, library.out());
    // The entry is made for 32-bit programs; 64-bit ones can read this file, too.
    if (SUCCEEDED(hr))
        hr = WriteText(0, libraryKey() + L"\\" + libraryVersion + L"\\0\\win64", nullptr, path);
    if (SUCCEEDED(hr))
        hr = EnterInterface(InterfaceId<IVerdanth6432Relay>, L"IVerdanth6432Relay", LIBID_Verdanth6432Relay,
                            libraryVersion);
    return hr;
}

} // namespace

HRESULT RegisterServer()
{
    const WideString path = ProgramFile();
    if (path.empty())
        return HRESULT_FROM_WIN32(ERROR_FILENAME_EXCED_RANGE);
    const struct {
        LPCWSTR subkey;
        WideString value;
    } entries[] = {
        {L"", description},
        {L"\\LocalServer32", L"\"" + path + L"\""},
        {L"\\TypeLib", IdentifierText(LIBID_Verdanth6432Relay)},
    };
    HRESULT hr = registerTypeLibrary(path);
    for (const REGSAM view : registryViews)
        for (const auto &entry : entries)
            if (SUCCEEDED(hr))
                hr = WriteText(view, classKey() + entry.subkey, nullptr, entry.value);
    return hr;
}

HRESULT UnregisterServer()
{
    HRESULT result = RemoveInterface(InterfaceId<IVerdanth6432Relay>, LIBID_Verdanth6432Relay, libraryVersion);
    for (const REGSAM view : registryViews) {
        for (const WideString &key : {classKey(), libraryKey()}) {
            const HRESULT hr = RemoveKey(view, key);
            if (SUCCEEDED(result))
                result = hr;
        }
    }
    return result;
}
