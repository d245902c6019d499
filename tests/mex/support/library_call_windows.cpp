// The library's import table says from where it calls the system.
#include "tests/mex/support/library_call.h"

#include <cstdlib>
#include <cstring>
#include <memory>

namespace support {

namespace {

// The slot that holds the address of a function that a module imports by name; null if it does not.
ImportSlot::AnyFunction *findSlot(HMODULE module, const char *function)
{
    auto *const base = reinterpret_cast<BYTE *>(module);
    const auto *dos = reinterpret_cast<const IMAGE_DOS_HEADER *>(base);
    const auto *headers = reinterpret_cast<const IMAGE_NT_HEADERS *>(base + dos->e_lfanew);
    const IMAGE_DATA_DIRECTORY &directory = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    for (auto *import = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR *>(base + directory.VirtualAddress);
         import->Name != 0; ++import) {
        const auto *names = reinterpret_cast<const IMAGE_THUNK_DATA *>(base + import->OriginalFirstThunk);
        auto *slots = reinterpret_cast<ImportSlot::AnyFunction *>(base + import->FirstThunk);
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

} // namespace

ImportSlot::AnyFunction *ImportSlot::find(const char *name, AnyFunction)
{
    return findSlot(GetModuleHandleA(library.c_str()), name);
}

void ImportSlot::write(AnyFunction *slot, AnyFunction function)
{
    DWORD protection = 0;
    VirtualProtect(slot, sizeof *slot, PAGE_READWRITE, &protection);
    *slot = function;
    VirtualProtect(slot, sizeof *slot, protection, &protection);
}

namespace {

// The compiler's runtime is part of the library, and gets its memory here.
using Allocation = LibraryCall<"malloc", void *(std::size_t bytes)>;

std::unique_ptr<Allocation> allocation;

} // namespace

MemoryRefusal::MemoryRefusal(Refuses refuses)
{
    allocation = std::make_unique<Allocation>(std::malloc, [refuses = std::move(refuses)](std::size_t bytes) {
        return refuses(bytes) ? nullptr : std::malloc(bytes);
    });
}

MemoryRefusal::~MemoryRefusal() { allocation.reset(); }

namespace {

struct MemoryCount {
    int made = 0;
    int givenBack = 0;
    LibraryCall<"malloc", void *(std::size_t bytes)> news;
    LibraryCall<"free", void(void *block)> deletes;

    explicit MemoryCount(std::size_t bytes)
        : news(std::malloc,
               [this, bytes](std::size_t wanted) {
                   made += wanted == bytes;
                   return std::malloc(wanted);
               }),
          deletes(std::free, [this](void *block) {
              givenBack += block != nullptr;
              std::free(block);
          })
    {
    }
};

std::unique_ptr<MemoryCount> memory;

} // namespace

LibraryMemory::LibraryMemory(std::size_t bytes) { memory = std::make_unique<MemoryCount>(bytes); }

LibraryMemory::~LibraryMemory() { memory.reset(); }

int LibraryMemory::made() const { return memory->made; }

int LibraryMemory::givenBack() const { return memory->givenBack; }

} // namespace support
