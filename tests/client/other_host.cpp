// A program in the place of the host that is none. It says what OTHER_HOST_SAYS has; or when
// OTHER_HOST_GREETS is set, greets as a host does, and when OTHER_HOST_BEGINS is, too, begins an answer that nobody has
// asked for. It reads nothing, and stays.
#include "wire/format.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <fcntl.h>
#include <io.h>
#include <windows.h>

namespace {

template <class Part> void say(const Part &part) { std::fwrite(&part, sizeof part, 1, stdout); }

} // namespace

int main()
{
    _setmode(_fileno(stdout), _O_BINARY);
    if (const char *words = std::getenv("OTHER_HOST_SAYS")) {
        std::fputs(words, stdout);
    } else if (std::getenv("OTHER_HOST_GREETS")) {
        wire::Greeting greeting{{}, wire::formatVersion, 0};
        std::memcpy(greeting.magic, wire::magic, sizeof wire::magic);
        say(greeting);
        if (std::getenv("OTHER_HOST_BEGINS"))
            say(wire::FrameHeader{wire::Kind::Result, 0, 1000});
    }
    std::fflush(stdout);
    Sleep(60000);
}
