// A help viewer for tests: it shows nothing and remembers what it was asked for.
#include "platform/platform.h"
#include "tests/help/help_request.h"

#include <cstdio>

namespace {

HelpRequest lastRequest;
int window;

} // namespace

extern "C" {

// Ordinal 14 is where the system's viewer has its entry.
HWND WINAPI ordinal_14(HWND owner, LPCSTR path, UINT command, DWORD_PTR data)
{
    ++lastRequest.count;
    std::snprintf(lastRequest.path, sizeof lastRequest.path, "%s", path);
    lastRequest.command = command;
    lastRequest.hasOwner = owner != nullptr;
    lastRequest.hasData = data != 0;
    return lastRequest.refuses ? nullptr : reinterpret_cast<HWND>(&window);
}

HelpRequest *LastHelpRequest() { return &lastRequest; }
}
