#include "gateway/report/html_help.h"

#include "platform/procedure.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace {

using HtmlHelpEntry = HWND WINAPI(HWND owner, LPCSTR path, UINT command, DWORD_PTR data);

constexpr DWORD pathCapacity = 260;

// Where the viewer is registered; false when it is not.
bool registeredViewer(char (&path)[pathCapacity])
{
    HKEY key = nullptr;
    if (RegOpenKeyExA(HKEY_CLASSES_ROOT, "CLSID\\{ADB880A6-D8FF-11CF-9377-00AA003B7A11}\\InprocServer32", 0, KEY_READ,
                      &key) != ERROR_SUCCESS)
        return false;
    char value[pathCapacity + 1] = {}; // one more: a stored value need not be terminated
    DWORD type = 0;
    DWORD size = pathCapacity;
    const LSTATUS status = RegQueryValueExA(key, "", nullptr, &type, reinterpret_cast<LPBYTE>(value), &size);
    RegCloseKey(key);
    if (status != ERROR_SUCCESS)
        return false;
    if (type == REG_EXPAND_SZ) {
        const DWORD length = ExpandEnvironmentStringsA(value, path, pathCapacity);
        return length != 0 && length <= pathCapacity;
    }
    std::copy(std::begin(value), std::begin(value) + pathCapacity, path);
    path[pathCapacity - 1] = 0;
    return true;
}

HtmlHelpEntry *loadViewer()
{
    HMODULE viewer = nullptr;
    char path[pathCapacity];
    if (registeredViewer(path))
        viewer = LoadLibraryA(path);
    if (!viewer)
        viewer = LoadLibraryA("hhctrl.ocx");
    if (!viewer)
        return nullptr;
    constexpr std::uintptr_t htmlHelpOrdinal = 14;
    return findProcedure<HtmlHelpEntry>(viewer, reinterpret_cast<LPCSTR>(htmlHelpOrdinal));
}

// Found once, or missing for the rest of the process. Not local to a function: the lock that would guard the first use
// needs memory, and the runtime does not look whether it got any.
HtmlHelpEntry *entry = nullptr;
bool isLookedFor = false;

} // namespace

HWND HtmlHelp(const char *path)
{
    if (!isLookedFor)
        entry = loadViewer();
    isLookedFor = true;
    constexpr UINT displayDefaultTopic = 0;
    return entry ? entry(nullptr, path, displayDefaultTopic, 0) : nullptr;
}
