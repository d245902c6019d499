// Where a loaded module lies.
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
