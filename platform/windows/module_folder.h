// Where a loaded module lies, and what lies near it.
#pragma once

#include "platform/platform.h"

// With the stroke behind it. A null module is the program.
inline WideString FolderOf(HMODULE module)
{
    WideString path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            break;
        }
        path.resize(2 * path.size());
    }
    path.resize(path.rfind(L'\\') + 1);
    return path;
}

// The file in the first of the folders that has one of that name, each seen from `own`; empty when none has.
template <std::size_t count> WideString FileNear(const WideString &own, const LPCWSTR (&folders)[count], LPCWSTR name)
{
    for (const LPCWSTR folder : folders) {
        const WideString file = own + folder + name;
        if (GetFileAttributesW(file.c_str()) != INVALID_FILE_ATTRIBUTES)
            return file;
    }
    return {};
}
