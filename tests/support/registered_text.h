// What stands in the class registry, as tests look at it.
#pragma once

#include "platform/platform.h"

#include <string>
#include <string_view>

namespace support {

// A key below HKEY_CLASSES_ROOT, for reading, as `view` sees it: KEY_WOW64_32KEY, KEY_WOW64_64KEY, or 0 for the view of
// this program. Null when there is none.
inline HKEY openRegisteredKey(REGSAM view, std::string_view path)
{
    HKEY key = nullptr;
    const WideString wide(path.begin(), path.end()); // ASCII
    const LSTATUS status = RegOpenKeyExW(HKEY_CLASSES_ROOT, wide.c_str(), 0, KEY_READ | view, &key);
    return status == ERROR_SUCCESS ? key : nullptr;
}

inline bool keyExists(REGSAM view, std::string_view path)
{
    HKEY key = openRegisteredKey(view, path);
    if (key)
        RegCloseKey(key);
    return key != nullptr;
}

// The text of a value of such a key; "(none)" without key, value or text.
inline std::string registeredText(REGSAM view, std::string_view path, std::string_view name = "")
{
    HKEY key = openRegisteredKey(view, path);
    if (!key)
        return "(none)";
    WCHAR text[1024] = {};
    DWORD size = sizeof text - sizeof(WCHAR);
    DWORD type = REG_NONE;
    const WideString wide(name.begin(), name.end());
    const LSTATUS status = RegQueryValueExW(key, wide.c_str(), nullptr, &type, reinterpret_cast<LPBYTE>(text), &size);
    RegCloseKey(key);
    const WideString value = text;
    return status == ERROR_SUCCESS && type == REG_SZ ? std::string(value.begin(), value.end()) : "(none)";
}

} // namespace support
