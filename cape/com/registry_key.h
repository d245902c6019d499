// Owner of one registry key.
#pragma once

#include "platform/platform.h"

class RegistryKey {
public:
    // Opens a key that is there.
    RegistryKey(HKEY parent, LPCWSTR path, REGSAM access = KEY_READ)
        : status(RegOpenKeyExW(parent, path, 0, access, &key))
    {
        if (status != ERROR_SUCCESS)
            key = nullptr;
    }

    // Opens a key, which is made where it is missing, for writing.
    static RegistryKey create(HKEY parent, LPCWSTR path, REGSAM view = 0)
    {
        HKEY key = nullptr;
        const LSTATUS status = RegCreateKeyExW(parent, path, 0, nullptr, 0, KEY_WRITE | view, nullptr, &key, nullptr);
        return RegistryKey(status == ERROR_SUCCESS ? key : nullptr, status);
    }
    RegistryKey(const RegistryKey &) = delete;
    RegistryKey &operator=(const RegistryKey &) = delete;
    ~RegistryKey()
    {
        if (key)
            RegCloseKey(key);
    }
    explicit operator bool() const { return key != nullptr; }
    HKEY get() const { return key; }
    LSTATUS result() const { return status; } // of opening it

    // Sets a value to a text, or the key's own value for a null name. Gives what opening came to where there is no key.
    LSTATUS setText(LPCWSTR name, const WideString &text) const
    {
        if (!key)
            return status;
        return RegSetValueExW(key, name, 0, REG_SZ, reinterpret_cast<const BYTE *>(text.c_str()),
                              static_cast<DWORD>((text.size() + 1) * sizeof(WCHAR)));
    }

private:
    RegistryKey(HKEY opened, LSTATUS result) : key(opened), status(result) {}

    HKEY key = nullptr;
    LSTATUS status;
};

// What a call of the registry came to, as COM says it.
inline HRESULT ResultOf(LSTATUS status)
{
    return status == ERROR_SUCCESS ? S_OK : static_cast<HRESULT>(0x80070000u | static_cast<unsigned>(status));
}
