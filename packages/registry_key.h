// A registry key opened for reading.
#pragma once

#include "platform/platform.h"

class RegistryKey {
public:
    RegistryKey(HKEY parent, LPCWSTR path)
    {
        if (RegOpenKeyExW(parent, path, 0, KEY_READ, &key) != ERROR_SUCCESS)
            key = nullptr;
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

private:
    HKEY key = nullptr;
};
