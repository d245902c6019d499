#include "tests/support/failures.h"

#include "tests/support/text.h"

#include <cstdio>

namespace support {

std::string CodeText(HRESULT result)
{
    char text[16];
    std::snprintf(text, sizeof text, "0x%08X", static_cast<unsigned>(result));
    return text;
}

std::string SystemText(HRESULT result)
{
    WCHAR buffer[1024];
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                        static_cast<DWORD>(result), 0x400, buffer, 1024, nullptr);
    if (length == 0)
        return "error code " + CodeText(result);
    WideString text(buffer, length);
    if (text.ends_with(OLESTR("\r\n")))
        text.resize(text.size() - 2);
    return Narrow(text);
}

} // namespace support
