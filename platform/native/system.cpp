// Small services of the operating system: last error, tick count, environment, message boxes.
#include "platform/native/encoding.h"
#include "platform/native/seam.h"
#include "platform/native/text.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <unistd.h>

namespace {

thread_local DWORD lastError = 0;

std::string expandEnvironment(std::string_view source)
{
    std::string result;
    while (!source.empty()) {
        const std::size_t end = source.front() == '%' ? source.find('%', 1) : std::string_view::npos;
        const char *value =
            end == std::string_view::npos ? nullptr : std::getenv(std::string(source.substr(1, end - 1)).c_str());
        if (value) {
            result += value;
            source.remove_prefix(end + 1);
        } else { // ordinary text up to the next per cent sign; an unknown name stays as it is
            const std::size_t next = std::min(source.find('%', 1), source.size());
            result += source.substr(0, next);
            source.remove_prefix(next);
        }
    }
    return result;
}

} // namespace

DWORD GetLastError() { return lastError; }

void SetLastError(DWORD error) { lastError = error; }

DWORD GetTickCount()
{
    using namespace std::chrono;
    return static_cast<DWORD>(duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count());
}

BOOL SetEnvironmentVariableA(LPCSTR name, LPCSTR value)
{
    return (value ? setenv(name, value, 1) : unsetenv(name)) == 0 ? TRUE : FALSE;
}

DWORD ExpandEnvironmentStringsA(LPCSTR source, LPSTR target, DWORD capacity)
{
    const std::string expanded = expandEnvironment(source);
    const auto size = static_cast<DWORD>(expanded.size() + 1);
    if (size <= capacity)
        std::memcpy(target, expanded.c_str(), size);
    return size;
}

int MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR caption, UINT style)
{
    if (seam::messageBox)
        return seam::messageBox(owner, text, caption, style);
    std::fprintf(stderr, "%s\n%s\n", native::toUtf8(caption ? caption : u"Error").c_str(),
                 native::toUtf8(text ? text : u"").c_str());
    if (isatty(STDIN_FILENO) && isatty(STDERR_FILENO)) {
        std::fputs("Press Enter to go on. ", stderr);
        for (int c = std::getchar(); c != '\n' && c != EOF;)
            c = std::getchar();
    }
    return IDOK;
}
