// The library's import table says from where it calls the system.
#include "platform/windows/import_slot.h"
#include "tests/mex/support/library_call.h"

#include <cstdlib>
#include <memory>

namespace support {

ImportSlot::AnyFunction *ImportSlot::find(const char *name, AnyFunction)
{
    return FindImportSlot(GetModuleHandleA(library.c_str()), name);
}

void ImportSlot::write(AnyFunction *slot, AnyFunction function) { WriteImportSlot(slot, function); }

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
