// The class registry: a tree of keys with named values, without regard to case in either. It is
// filled from the .reg files of the folder registry.d beside the platform library the first time
// that it is used, and by RegCreateKeyExW and RegSetValueExW.
#pragma once

#include "platform/native/types.h"

inline const HKEY HKEY_CLASSES_ROOT =
    reinterpret_cast<HKEY>(static_cast<std::intptr_t>(static_cast<LONG>(0x80000000u)));

constexpr REGSAM KEY_READ = 0x20019;
constexpr REGSAM KEY_WRITE = 0x20006;

constexpr DWORD REG_NONE = 0;
constexpr DWORD REG_SZ = 1;
constexpr DWORD REG_EXPAND_SZ = 2;
constexpr DWORD REG_BINARY = 3;
constexpr DWORD REG_DWORD = 4;
constexpr DWORD REG_MULTI_SZ = 7;

struct SECURITY_ATTRIBUTES;

LSTATUS RegOpenKeyExW(HKEY parent, LPCWSTR path, DWORD options, REGSAM access, PHKEY key);
LSTATUS RegOpenKeyExA(HKEY parent, LPCSTR path, DWORD options, REGSAM access, PHKEY key);
LSTATUS RegCloseKey(HKEY key);

// Sub-keys come sorted by their upper-cased code units. ERROR_NO_MORE_ITEMS at the end.
LSTATUS RegEnumKeyW(HKEY key, DWORD index, LPWSTR name, DWORD capacity);

// Sizes are bytes. A null buffer asks for the size; a short one answers ERROR_MORE_DATA and it.
LSTATUS RegQueryValueExW(HKEY key, LPCWSTR name, LPDWORD reserved, LPDWORD type, LPBYTE data, LPDWORD size);
LSTATUS RegQueryValueExA(HKEY key, LPCSTR name, LPDWORD reserved, LPDWORD type, LPBYTE data, LPDWORD size);

LSTATUS RegCreateKeyExW(HKEY parent, LPCWSTR path, DWORD reserved, LPWSTR className, DWORD options, REGSAM access,
                        const SECURITY_ATTRIBUTES *security, PHKEY key, LPDWORD disposition);
LSTATUS RegSetValueExW(HKEY key, LPCWSTR name, DWORD reserved, DWORD type, const BYTE *data, DWORD size);
LSTATUS RegDeleteTreeW(HKEY parent, LPCWSTR path);
