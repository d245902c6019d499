// Keeps a library that is found on the path loaded while a file exists:  holder LIBRARY FILE
#include "demo/session.h"

int main(int count, char **arguments)
{
    const HMODULE library = count == 3 ? LoadLibraryA(arguments[1]) : nullptr;
    if (!library)
        return 1;
    for (;;) {
        HANDLE file = CreateFileA(arguments[2], GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr,
                                  OPEN_EXISTING, 0, nullptr);
        if (file == INVALID_HANDLE_VALUE)
            return 0;
        CloseHandle(file);
        Sleep(50);
    }
}
