// The library's import of MessageBoxW is led here: no window opens, and nothing waits for a click.
#include "tests/mex/message_box_calls.h"

#include <gtest/gtest.h>

#include <cstring>

namespace support {

namespace {

std::vector<MessageBoxCalls::Call> *noted = nullptr;
ULONG_PTR original = 0;

// The slot that holds the address of a function that a module imports by name; null if it does not.
ULONG_PTR *importSlot(HMODULE module, const char *function)
{
    auto *const base = reinterpret_cast<BYTE *>(module);
    const auto *dos = reinterpret_cast<const IMAGE_DOS_HEADER *>(base);
    const auto *headers = reinterpret_cast<const IMAGE_NT_HEADERS *>(base + dos->e_lfanew);
    const IMAGE_DATA_DIRECTORY &directory = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    for (auto *import = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR *>(base + directory.VirtualAddress);
         import->Name != 0; ++import) {
        const auto *names = reinterpret_cast<const IMAGE_THUNK_DATA *>(base + import->OriginalFirstThunk);
        auto *slots = reinterpret_cast<ULONG_PTR *>(base + import->FirstThunk);
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

ULONG_PTR replaceMessageBox(ULONG_PTR address)
{
    ULONG_PTR *const slot = importSlot(GetModuleHandleW(L"Verdanth.mexw64"), "MessageBoxW");
    if (!slot) {
        ADD_FAILURE() << "the library imports no MessageBoxW";
        return 0;
    }
    DWORD protection = 0;
    VirtualProtect(slot, sizeof *slot, PAGE_READWRITE, &protection);
    const ULONG_PTR before = *slot;
    *slot = address;
    VirtualProtect(slot, sizeof *slot, protection, &protection);
    return before;
}

} // namespace

MessageBoxCalls::MessageBoxCalls()
{
    noted = &calls;
    original = replaceMessageBox(reinterpret_cast<ULONG_PTR>(note));
}

MessageBoxCalls::~MessageBoxCalls()
{
    replaceMessageBox(original);
    noted = nullptr;
}

int WINAPI MessageBoxCalls::note(HWND owner, LPCWSTR text, LPCWSTR title, UINT style)
{
    noted->push_back({owner != nullptr, text, title, style});
    return IDOK;
}

} // namespace support
