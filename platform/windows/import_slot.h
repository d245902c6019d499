// The place from which a loaded module calls a function of another: what its import table says.
#pragma once

#include "platform/platform.h"

#include <cstring>

using AnyFunction = void (*)();

// The slot with the address of a function that the module imports by name; null if it does not.
inline AnyFunction *FindImportSlot(HMODULE module, const char *function)
{
    auto *const base = reinterpret_cast<BYTE *>(module);
    const auto *dos = reinterpret_cast<const IMAGE_DOS_HEADER *>(base);
    const auto *headers = reinterpret_cast<const IMAGE_NT_HEADERS *>(base + dos->e_lfanew);
    const IMAGE_DATA_DIRECTORY &directory = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    for (auto *import = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR *>(base + directory.VirtualAddress);
         import->Name != 0; ++import) {
        const auto *names = reinterpret_cast<const IMAGE_THUNK_DATA *>(base + import->OriginalFirstThunk);
        auto *slots = reinterpret_cast<AnyFunction *>(base + import->FirstThunk);
        for (; names->u1.AddressOfData != 0; ++names, ++slots) {
            if (IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal))
                continue;
            const auto *name = reinterpret_cast<const IMAGE_IMPORT_BY_NAME *>(base + names->u1.AddressOfData);
            if (std::strcmp(reinterpret_cast<const char *>(name->Name), function) == 0)
                return slots;
        }
    }
    return nullptr;
}

inline void WriteImportSlot(AnyFunction *slot, AnyFunction function)
{
    DWORD protection = 0;
    VirtualProtect(slot, sizeof *slot, PAGE_READWRITE, &protection);
    *slot = function;
    VirtualProtect(slot, sizeof *slot, protection, &protection);
}
