// A program in the place of the host that is none: it says what OTHER_HOST_SAYS has, and stays.
#include <cstdio>
#include <cstdlib>

#include <windows.h>

int main()
{
    if (const char *words = std::getenv("OTHER_HOST_SAYS")) {
        std::fputs(words, stdout);
        std::fflush(stdout);
    }
    Sleep(60000);
}
