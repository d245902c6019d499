#include "tests/mex/support/library_call.h"

#include <gtest/gtest.h>

#include <cstring>
#include <dlfcn.h>
#include <elf.h>
#include <link.h>
#include <memory>
#include <new>
#include <optional>
#include <string_view>
#include <sys/mman.h>
#include <type_traits>
#include <unistd.h>

namespace support {

namespace {

struct Search {
    ImportSlot::AnyFunction system;
    ImportSlot::AnyFunction *found;
};

struct Relocations {
    const ElfW(Rela) * first;
    std::size_t count;
};

// The relocated address whose symbol is the function.
ImportSlot::AnyFunction *findIn(const Relocations &relocations, const dl_phdr_info &library, const ElfW(Sym) * symbols,
                                const char *names, ImportSlot::AnyFunction system)
{
    for (std::size_t i = 0; i < relocations.count; ++i) {
        const ElfW(Rela) &relocation = relocations.first[i];
        const auto symbol = ELF64_R_SYM(relocation.r_info);
        if (symbol == 0)
            continue;
        const char *name = names + symbols[symbol].st_name;
        if (dlsym(RTLD_DEFAULT, name) == reinterpret_cast<void *>(system))
            return reinterpret_cast<ImportSlot::AnyFunction *>(library.dlpi_addr + relocation.r_offset);
    }
    return nullptr;
}

int searchLibrary(dl_phdr_info *library, std::size_t, void *argument)
{
    const std::string &name = ImportSlot::library;
    if (!std::string_view(library->dlpi_name).ends_with("/" + name.substr(0, name.rfind('.')) + ".so"))
        return 0;
    const ElfW(Dyn) *entry = nullptr;
    for (int i = 0; i < library->dlpi_phnum; ++i)
        if (library->dlpi_phdr[i].p_type == PT_DYNAMIC)
            entry = reinterpret_cast<const ElfW(Dyn) *>(library->dlpi_addr + library->dlpi_phdr[i].p_vaddr);
    const ElfW(Sym) *symbols = nullptr;
    const char *names = nullptr;
    Relocations calls = {};
    Relocations data = {};
    for (; entry && entry->d_tag != DT_NULL; ++entry) {
        switch (entry->d_tag) {
        case DT_SYMTAB:
            symbols = reinterpret_cast<const ElfW(Sym) *>(entry->d_un.d_ptr);
            break;
        case DT_STRTAB:
            names = reinterpret_cast<const char *>(entry->d_un.d_ptr);
            break;
        case DT_JMPREL:
            calls.first = reinterpret_cast<const ElfW(Rela) *>(entry->d_un.d_ptr);
            break;
        case DT_PLTRELSZ:
            calls.count = entry->d_un.d_val / sizeof(ElfW(Rela));
            break;
        case DT_RELA:
            data.first = reinterpret_cast<const ElfW(Rela) *>(entry->d_un.d_ptr);
            break;
        case DT_RELASZ:
            data.count = entry->d_un.d_val / sizeof(ElfW(Rela));
            break;
        }
    }
    auto *search = static_cast<Search *>(argument);
    for (const Relocations &relocations : {calls, data})
        if (!search->found)
            search->found = findIn(relocations, *library, symbols, names, search->system);
    return 1;
}

} // namespace

ImportSlot::AnyFunction *ImportSlot::find(const char *, AnyFunction system)
{
    Search search = {system, nullptr};
    dl_iterate_phdr(searchLibrary, &search);
    return search.found;
}

void ImportSlot::write(AnyFunction *slot, AnyFunction function)
{
    const auto page = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
    const auto start = reinterpret_cast<std::uintptr_t>(slot) & ~(page - 1);
    mprotect(reinterpret_cast<void *>(start), page, PROT_READ | PROT_WRITE);
    *slot = function;
}

namespace {

using New = void *(std::size_t bytes);
#ifdef __cpp_sized_deallocation
using Delete = void(void *block, std::size_t bytes) noexcept;
#else // not every compiler's default
using Delete = void(void *block) noexcept;
#endif

using OrNull = const std::nothrow_t &;
using Aligned = std::align_val_t;

// One form of operator new; not every library calls every one.
template <FunctionName Name, class... More> class RefusedForm {
    using Form = void *(std::size_t bytes, More...);

public:
    RefusedForm(Form *system, const MemoryRefusal::Refuses &refuses)
    {
        if (!ImportSlot::isThere(Name.text, reinterpret_cast<ImportSlot::AnyFunction>(system)))
            return;
        call.emplace(system, [=](std::size_t bytes, More... more) -> void * {
            if (!refuses(bytes))
                return system(bytes, more...);
            if constexpr ((std::is_same_v<More, OrNull> || ...))
                return nullptr;
            throw std::bad_alloc();
        });
    }

    bool isCalled() const { return call.has_value(); }

private:
    std::optional<LibraryCall<Name, Form>> call;
};

struct RefusedRequests {
    RefusedForm<"operator new"> one;
    RefusedForm<"operator new", OrNull> oneOrNull;
    RefusedForm<"operator new", Aligned> alignedOne;
    RefusedForm<"operator new", Aligned, OrNull> alignedOneOrNull;
    RefusedForm<"operator new[]"> many;
    RefusedForm<"operator new[]", OrNull> manyOrNull;
    RefusedForm<"operator new[]", Aligned> alignedMany;
    RefusedForm<"operator new[]", Aligned, OrNull> alignedManyOrNull;

    explicit RefusedRequests(const MemoryRefusal::Refuses &refuses)
        : one(&operator new, refuses), oneOrNull(&operator new, refuses), alignedOne(&operator new, refuses),
          alignedOneOrNull(&operator new, refuses), many(&operator new[], refuses),
          manyOrNull(&operator new[], refuses), alignedMany(&operator new[], refuses),
          alignedManyOrNull(&operator new[], refuses)
    {
        EXPECT_TRUE(one.isCalled() || oneOrNull.isCalled() || alignedOne.isCalled() || alignedOneOrNull.isCalled() ||
                    many.isCalled() || manyOrNull.isCalled() || alignedMany.isCalled() || alignedManyOrNull.isCalled())
            << "the library asks for no memory";
    }
};

std::unique_ptr<RefusedRequests> refused;

} // namespace

MemoryRefusal::MemoryRefusal(Refuses refuses) { refused = std::make_unique<RefusedRequests>(refuses); }

MemoryRefusal::~MemoryRefusal() { refused.reset(); }

namespace {

struct MemoryCount {
    int made = 0;
    int givenBack = 0;
    LibraryCall<"operator new", New> news;
    LibraryCall<"operator delete", Delete> deletes;

    MemoryCount(New *systemNew, Delete *systemDelete, std::size_t bytes)
        : news(systemNew,
               [this, bytes](std::size_t wanted) {
                   made += wanted == bytes;
                   return operator new(wanted);
               }),
          deletes(systemDelete, [this](auto... block) {
              ++givenBack;
              operator delete(block...);
          })
    {
    }
};

std::unique_ptr<MemoryCount> memory;

} // namespace

LibraryMemory::LibraryMemory(std::size_t bytes)
{
    New *const systemNew = &operator new;
    Delete *const systemDelete = &operator delete;
    memory = std::make_unique<MemoryCount>(systemNew, systemDelete, bytes);
}

LibraryMemory::~LibraryMemory() { memory.reset(); }

int LibraryMemory::made() const { return memory->made; }

int LibraryMemory::givenBack() const { return memory->givenBack; }

} // namespace support
