#include "gateway/state/library_module.h"

#include <utility>

namespace {
HMODULE libraryModule = nullptr;
}

HMODULE LibraryModule()
{
    if (!libraryModule)
        libraryModule = LoadLibraryW(OLESTR("Verdanth.mexw64"));
    return libraryModule;
}

void ReleaseLibraryModule()
{
    if (HMODULE module = std::exchange(libraryModule, nullptr))
        FreeLibrary(module);
}
