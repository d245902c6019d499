#include "isolation/streams.h"

#include <fcntl.h>
#include <io.h>

#include <algorithm>
#include <cstdio>

namespace {

constexpr std::size_t largestPart = std::size_t{1} << 30; // of what one call of the system moves
constexpr std::size_t pipeSize = std::size_t{1} << 20;    // as clients make them

bool takeStandardHandle(DWORD which, HANDLE &ours)
{
    HANDLE process = GetCurrentProcess();
    HANDLE standard = GetStdHandle(which);
    return standard && standard != INVALID_HANDLE_VALUE &&
           DuplicateHandle(process, standard, process, &ours, 0, FALSE, DUPLICATE_SAME_ACCESS);
}

// The C library that most libraries share has numbers of its own for the two. It closes the handles that it had.
void redirectNumbers()
{
    const int nowhere = _open("NUL", _O_RDWR | _O_BINARY);
    if (_fileno(stderr) < 0 || _dup2(2, 1) != 0)
        _dup2(nowhere, 1);
    _dup2(nowhere, 0);
    _close(nowhere);
}

} // namespace

bool TakeClientStreams(ClientStreams &streams)
{
    if (!takeStandardHandle(STD_INPUT_HANDLE, streams.in) || !takeStandardHandle(STD_OUTPUT_HANDLE, streams.out))
        return false;
    redirectNumbers();
    SetStdHandle(STD_INPUT_HANDLE, reinterpret_cast<HANDLE>(_get_osfhandle(0)));
    SetStdHandle(STD_OUTPUT_HANDLE, reinterpret_cast<HANDLE>(_get_osfhandle(1)));
    return true;
}

std::size_t PipeSource::read(void *bytes, std::size_t capacity)
{
    DWORD count = 0;
    if (!ReadFile(pipe, bytes, static_cast<DWORD>(std::min(capacity, largestPart)), &count, nullptr))
        return 0;
    return count;
}

bool PipeSink::write(const void *bytes, std::size_t count)
{
    const auto *next = static_cast<const char *>(bytes);
    while (count > 0) {
        DWORD written = 0;
        // While the other side reads one part, the next is written.
        const auto part = static_cast<DWORD>(std::min(count, pipeSize));
        if (!WriteFile(pipe, next, part, &written, nullptr) || written == 0)
            return false;
        next += written;
        count -= written;
    }
    return true;
}
