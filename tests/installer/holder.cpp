// Keeps the library that is found on the path loaded while the file that is named exists.
#include "demo/session.h"

int main(int count, char **arguments)
{
    const HMODULE library = count == 2 ? LoadLibraryW(OLESTR("Verdanth.mexw64")) : nullptr;
    if (!library)
        return 1;
    for (;;) {
        HANDLE file = CreateFileA(arguments[1], GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr,
                                  OPEN_EXISTING, 0, nullptr);
        if (file == INVALID_HANDLE_VALUE)
            return 0;
        CloseHandle(file);
        Sleep(50);
    }
}
