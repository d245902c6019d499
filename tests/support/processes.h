// The processes that run on this machine.
#pragma once

#include "platform/platform.h"

#include <tlhelp32.h>

#include <vector>

namespace support {

// The ids of those of a program, whose file is named in any case; with a parent, only of those that it has started.
inline std::vector<DWORD> ProcessesOf(LPCWSTR program, DWORD parent = 0)
{
    std::vector<DWORD> found;
    HANDLE all = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    PROCESSENTRY32W entry = {};
    entry.dwSize = sizeof entry;
    for (BOOL more = Process32FirstW(all, &entry); more; more = Process32NextW(all, &entry))
        if (lstrcmpiW(entry.szExeFile, program) == 0 && (parent == 0 || entry.th32ParentProcessID == parent))
            found.push_back(entry.th32ProcessID);
    CloseHandle(all);
    return found;
}

} // namespace support
