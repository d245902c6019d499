// Loaded libraries and their version blocks. Paths are spelled as on Windows, with backslashes; a
// module's Windows extension (.dll, .mexw64, .ocx) stands for the native one. A bare file name is
// looked for beside the platform library.
#pragma once

#include "platform/native/types.h"

HMODULE LoadLibraryW(LPCWSTR name);
HMODULE LoadLibraryA(LPCSTR name);
BOOL FreeLibrary(HMODULE module);

// A name that is an ordinal n (below 65536) is looked up as the symbol "ordinal_n".
FARPROC GetProcAddress(HMODULE module, LPCSTR name);

DWORD GetModuleFileNameW(HMODULE module, LPWSTR path, DWORD capacity);
DWORD GetModuleFileNameA(HMODULE module, LPSTR path, DWORD capacity);

struct VS_FIXEDFILEINFO {
    DWORD dwSignature;
    DWORD dwStrucVersion;
    DWORD dwFileVersionMS;
    DWORD dwFileVersionLS;
    DWORD dwProductVersionMS;
    DWORD dwProductVersionLS;
    DWORD dwFileFlagsMask;
    DWORD dwFileFlags;
    DWORD dwFileOS;
    DWORD dwFileType;
    DWORD dwFileSubtype;
    DWORD dwFileDateMS;
    DWORD dwFileDateLS;
};

// The version block of a shared object is its exported VS_FIXEDFILEINFO named VersionResource;
// without one the call fails with ERROR_RESOURCE_DATA_NOT_FOUND.
BOOL GetFileVersionInfoW(LPCWSTR path, DWORD handle, DWORD size, LPVOID block);
BOOL VerQueryValueW(LPCVOID block, LPCWSTR subBlock, LPVOID *value, UINT *size); // root "\" only
