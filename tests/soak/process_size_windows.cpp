#include "tests/soak/process_size.h"

#include "platform/platform.h"

#include <psapi.h>

ProcessSize CurrentProcessSize()
{
    ProcessSize size;
    // Wine tells of no private bytes and counts no handles. The pages in use it knows, and a new handle has the lowest
    // number that is free.
    PROCESS_MEMORY_COUNTERS memory = {};
    K32GetProcessMemoryInfo(GetCurrentProcess(), &memory, sizeof memory);
    size.memory = memory.WorkingSetSize;
    HANDLE next = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    size.handles = reinterpret_cast<std::uintptr_t>(next) / 4;
    CloseHandle(next);
    return size;
}
