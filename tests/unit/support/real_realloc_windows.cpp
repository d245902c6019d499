#include "platform/platform.h"
#include "tests/unit/support/real_realloc.h"

// lld replaces __real_realloc, too, where realloc comes from a DLL.
void *realRealloc(void *block, std::size_t size)
{
    static const auto realloc = reinterpret_cast<void *(*)(void *, std::size_t)>(
        reinterpret_cast<void (*)()>(GetProcAddress(GetModuleHandleA("msvcrt.dll"), "realloc")));
    return realloc(block, size);
}
