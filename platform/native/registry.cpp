#include "platform/native/registry.h"
#include "platform/native/encoding.h"
#include "platform/native/paths.h"
#include "platform/native/registry_text.h"
#include "platform/native/registry_tree.h"
#include "platform/native/seam.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <unordered_map>

namespace {

using native::RegistryKey;
using KeyPointer = std::shared_ptr<RegistryKey>;

KeyPointer root;
std::unordered_map<HKEY, KeyPointer> openKeys;
std::uintptr_t lastHandle = 0;

// The files of the folder registry.d in the order of their names. A relative server path in one
// means a file beside the folder.
KeyPointer loadClasses()
{
    namespace fs = std::filesystem;
    auto classes = std::make_shared<RegistryKey>();
    const fs::path folder = fs::path(native::platformFolder()) / "registry.d";
    std::error_code missing;
    std::vector<fs::path> files;
    for (const fs::directory_entry &entry : fs::directory_iterator(folder, missing))
        if (entry.path().extension() == ".reg")
            files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    const std::u16string beside = native::toUtf16(native::withBackslashes(folder.parent_path().string()));
    for (const fs::path &file : files) {
        std::ifstream stream(file, std::ios::binary);
        const std::string bytes((std::istreambuf_iterator<char>(stream)), std::istreambuf_iterator<char>());
        native::readRegistryText(native::decodeRegistryFile(bytes), beside, classes);
    }
    return classes;
}

// The key behind a handle; null for one that isn't open.
KeyPointer keyOf(HKEY handle)
{
    if (handle == HKEY_CLASSES_ROOT)
        return native::classesRoot();
    const auto found = openKeys.find(handle);
    return found == openKeys.end() ? nullptr : found->second;
}

LSTATUS findKey(HKEY handle, KeyPointer &key)
{
    key = keyOf(handle);
    if (!key)
        return ERROR_INVALID_HANDLE;
    return key->deleted ? ERROR_KEY_DELETED : ERROR_SUCCESS;
}

HKEY openHandle(KeyPointer key)
{
    lastHandle += 4; // as system handles are: multiples of four
    const HKEY handle = reinterpret_cast<HKEY>(lastHandle);
    openKeys.emplace(handle, std::move(key));
    ++seam::openRegistryKeys;
    return handle;
}

bool isText(DWORD type) { return type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ; }

// Gives a value's bytes to a caller. A text stored without its terminator gets one where there is
// room behind it.
LSTATUS deliver(const std::vector<BYTE> &stored, DWORD storedType, std::size_t unit, LPDWORD type, LPBYTE data,
                LPDWORD size)
{
    if (type)
        *type = storedType;
    const DWORD room = size ? *size : 0;
    const auto needed = static_cast<DWORD>(stored.size());
    if (size)
        *size = needed;
    if (!data)
        return ERROR_SUCCESS;
    if (room < needed)
        return ERROR_MORE_DATA;
    std::copy(stored.begin(), stored.end(), data);
    if (isText(storedType) && room >= needed + unit)
        std::memset(data + needed, 0, unit);
    return ERROR_SUCCESS;
}

LSTATUS openKey(HKEY parent, std::u16string_view path, PHKEY key)
{
    ++seam::registryOpens;
    if (seam::registryCalls.strikes())
        return ERROR_ACCESS_DENIED;
    if (!key)
        return ERROR_INVALID_PARAMETER;
    KeyPointer from;
    const LSTATUS status = findKey(parent, from);
    if (status != ERROR_SUCCESS)
        return status;
    KeyPointer found = path.empty() ? from : from->find(path);
    if (!found)
        return ERROR_FILE_NOT_FOUND;
    *key = openHandle(std::move(found));
    return ERROR_SUCCESS;
}

LSTATUS findValue(HKEY handle, std::u16string_view name, LPBYTE data, LPDWORD size, const native::RegistryValue *&value)
{
    if (seam::registryCalls.strikes())
        return ERROR_ACCESS_DENIED;
    if (data && !size)
        return ERROR_INVALID_PARAMETER;
    KeyPointer key;
    const LSTATUS status = findKey(handle, key);
    if (status != ERROR_SUCCESS)
        return status;
    const auto found = key->values.find(name);
    if (found == key->values.end())
        return ERROR_FILE_NOT_FOUND;
    value = &found->second;
    return ERROR_SUCCESS;
}

} // namespace

KeyPointer native::classesRoot()
{
    if (!root)
        root = loadClasses();
    return root;
}

LSTATUS RegOpenKeyExW(HKEY parent, LPCWSTR path, DWORD, REGSAM, PHKEY key)
{
    return openKey(parent, path ? path : u"", key);
}

LSTATUS RegOpenKeyExA(HKEY parent, LPCSTR path, DWORD, REGSAM, PHKEY key)
{
    return openKey(parent, native::toUtf16(path ? path : ""), key);
}

LSTATUS RegCloseKey(HKEY key)
{
    if (key == HKEY_CLASSES_ROOT)
        return ERROR_SUCCESS;
    if (openKeys.erase(key) == 0)
        return ERROR_INVALID_HANDLE;
    --seam::openRegistryKeys;
    return ERROR_SUCCESS;
}

LSTATUS RegEnumKeyW(HKEY handle, DWORD index, LPWSTR name, DWORD capacity)
{
    if (seam::registryCalls.strikes())
        return ERROR_ACCESS_DENIED;
    KeyPointer key;
    const LSTATUS status = findKey(handle, key);
    if (status != ERROR_SUCCESS)
        return status;
    const std::u16string *found = key->nameAt(index);
    if (!found)
        return ERROR_NO_MORE_ITEMS;
    if (found->size() >= capacity)
        return ERROR_MORE_DATA;
    std::copy_n(found->c_str(), found->size() + 1, name);
    return ERROR_SUCCESS;
}

LSTATUS RegQueryValueExW(HKEY key, LPCWSTR name, LPDWORD, LPDWORD type, LPBYTE data, LPDWORD size)
{
    const native::RegistryValue *value = nullptr;
    const LSTATUS status = findValue(key, name ? name : u"", data, size, value);
    return status == ERROR_SUCCESS ? deliver(value->data, value->type, sizeof(WCHAR), type, data, size) : status;
}

LSTATUS RegQueryValueExA(HKEY key, LPCSTR name, LPDWORD, LPDWORD type, LPBYTE data, LPDWORD size)
{
    const native::RegistryValue *value = nullptr;
    const LSTATUS status = findValue(key, native::toUtf16(name ? name : ""), data, size, value);
    if (status != ERROR_SUCCESS)
        return status;
    if (!isText(value->type))
        return deliver(value->data, value->type, sizeof(CHAR), type, data, size);
    const std::string narrow = native::toUtf8(native::unitsOfBytes(value->data));
    return deliver({narrow.begin(), narrow.end()}, value->type, sizeof(CHAR), type, data, size);
}

LSTATUS RegCreateKeyExW(HKEY parent, LPCWSTR path, DWORD, LPWSTR, DWORD, REGSAM, const SECURITY_ATTRIBUTES *, PHKEY key,
                        LPDWORD disposition)
{
    constexpr DWORD createdNew = 1;
    constexpr DWORD openedExisting = 2;
    if (!path || !key)
        return ERROR_INVALID_PARAMETER;
    KeyPointer from;
    const LSTATUS status = findKey(parent, from);
    if (status != ERROR_SUCCESS)
        return status;
    const bool exists = *path == 0 || from->find(path) != nullptr;
    if (disposition)
        *disposition = exists ? openedExisting : createdNew;
    *key = openHandle(RegistryKey::create(from, path));
    return ERROR_SUCCESS;
}

LSTATUS RegSetValueExW(HKEY handle, LPCWSTR name, DWORD, DWORD type, const BYTE *data, DWORD size)
{
    KeyPointer key;
    const LSTATUS status = findKey(handle, key);
    if (status != ERROR_SUCCESS)
        return status;
    std::vector<BYTE> bytes;
    if (data)
        bytes.assign(data, data + size);
    key->values[name ? name : u""] = {type, std::move(bytes)};
    return ERROR_SUCCESS;
}

LSTATUS RegDeleteTreeW(HKEY parent, LPCWSTR path)
{
    KeyPointer key;
    const LSTATUS status = findKey(parent, key);
    if (status != ERROR_SUCCESS)
        return status;
    if (!path || *path == 0) {
        key->clear();
        return ERROR_SUCCESS;
    }
    return key->remove(path) ? ERROR_SUCCESS : ERROR_FILE_NOT_FOUND;
}
