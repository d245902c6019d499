// What a command sees of the machine in a campaign: always the same, and not too much of it to be gone through call by
// call.
#pragma once

#include "platform/platform.h"

#include <memory>
#include <string>

namespace support {

// The classes of this test alone, in place of all that are registered.
constexpr unsigned mostTestClasses = 8;
LSTATUS WINAPI EnumerateTestClasses(HKEY key, DWORD index, LPWSTR name, DWORD capacity);

// The help viewer of the tests, whatever is asked for: its registration, and the viewer itself.
LSTATUS WINAPI OpenTestViewer(HKEY parent, LPCSTR path, DWORD options, REGSAM access, PHKEY key);
LSTATUS WINAPI QueryTestViewer(HKEY key, LPCSTR name, LPDWORD reserved, LPDWORD type, LPBYTE data, LPDWORD size);
HMODULE WINAPI LoadTestViewer(LPCSTR name);

// While what it gives lives, the loaded library enumerates the registry by the first function, finds and loads viewers
// by the others and draws one and the same handle; all but the function `exceptFor`.
std::shared_ptr<void> Surround(const std::string &exceptFor);

} // namespace support
