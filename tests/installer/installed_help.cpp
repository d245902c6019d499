// Opens the help file through the library that is found on the path, with the stand-in for the help viewer that lies
// beside this program. Prints the file that the viewer was asked to show; fails when there is no such file.
#include "demo/session.h"
#include "tests/help/help_request.h"

#include <cstdio>

int main()
{
    Session session;
    session.call(28, 0, {}); // ends the program with the error, if there is one
    const HMODULE viewer = GetModuleHandleW(OLESTR("hhctrl.ocx"));
    const FARPROC entry = viewer ? GetProcAddress(viewer, "LastHelpRequest") : nullptr;
    if (!entry)
        return 2;
    const HelpRequest *request = reinterpret_cast<HelpRequest *(*)()>(reinterpret_cast<void (*)()>(entry))();
    char path[1024] = {};
    if (GetFullPathNameA(request->path, sizeof path, path, nullptr) == 0)
        return 3;
    std::printf("%s\n", path);
    return GetFileAttributesA(path) == INVALID_FILE_ATTRIBUTES ? 4 : 0;
}
