#include "tests/support/mex_host.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace support {

MexLeave LeaveOfThisRun()
{
    const char *choice = std::getenv("VERDANTH_TEST_LEAVE");
    if (!choice || std::strcmp(choice, "unwind") == 0)
        return mexLEAVE_UNWIND;
    if (std::strcmp(choice, "jump") == 0)
        return mexLEAVE_JUMP;
    std::fprintf(stderr, "VERDANTH_TEST_LEAVE is neither unwind nor jump\n");
    std::exit(2);
}

WideString FileOfThisRun()
{
    const char *choice = std::getenv("VERDANTH_TEST_LIBRARY");
    const std::string file = choice ? choice : "Verdanth.mexw64";
    return WideString(file.begin(), file.end());
}

} // namespace support
