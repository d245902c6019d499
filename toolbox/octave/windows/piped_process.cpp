#include "toolbox/octave/windows/piped_process.h"
#include "toolbox/octave/windows/without_broken_pipes.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace {

constexpr int pipeSize = 1 << 20;
constexpr int tickMilliseconds = 50; // so often it is looked whether the process is alive

// Both ends at 3 or above, where no standard stream is.
bool makePipe(int (&ends)[2])
{
    if (pipe2(ends, O_CLOEXEC) != 0)
        return false;
    for (int &end : ends)
        if (end < 3) {
            const int old = end;
            end = fcntl(old, F_DUPFD_CLOEXEC, 3);
            ::close(old);
        }
    fcntl(ends[0], F_SETPIPE_SZ, pipeSize);
    return ends[0] >= 0 && ends[1] >= 0;
}

} // namespace

bool PipedProcess::start(const std::vector<std::string> &command, const std::vector<std::string> &environment,
                         std::string &error)
{
    int toHost[2] = {-1, -1};
    int fromHost[2] = {-1, -1};
    const int nothing = open("/dev/null", O_WRONLY | O_CLOEXEC);
    bool started = false;
    if (makePipe(toHost) && makePipe(fromHost))
        started = process.start(command, environment, {toHost[0], fromHost[1], nothing}, error);
    else
        error = std::strerror(errno);
    for (const int descriptor : {toHost[0], fromHost[1], nothing})
        ::close(descriptor);
    input = toHost[1];
    output = fromHost[0];
    if (started)
        fcntl(input, F_SETFL, O_NONBLOCK);
    else
        close();
    return started;
}

bool PipedProcess::readable(int milliseconds)
{
    pollfd wanted = {output, POLLIN, 0};
    return poll(&wanted, 1, milliseconds) > 0;
}

std::size_t PipedProcess::read(void *bytes, std::size_t capacity, const WaitsOn &waitsOn)
{
    while (!readable(tickMilliseconds))
        if (!waitsOn() || (!runs() && !readable(0)))
            return 0;
    ssize_t count = 0;
    do
        count = ::read(output, bytes, capacity);
    while (count < 0 && errno == EINTR);
    return count > 0 ? static_cast<std::size_t>(count) : 0;
}

bool PipedProcess::write(const void *bytes, std::size_t count, const WaitsOn &waitsOn)
{
    const WithoutBrokenPipes guard;
    const char *next = static_cast<const char *>(bytes);
    while (count > 0) {
        const ssize_t written = ::write(input, next, count);
        if (written >= 0) {
            next += written;
            count -= static_cast<std::size_t>(written);
            continue;
        }
        pollfd wanted = {input, POLLOUT, 0};
        if (errno == EAGAIN) {
            if (poll(&wanted, 1, tickMilliseconds) == 0 && !waitsOn())
                return false;
        } else if (errno != EINTR) {
            return false;
        }
        if (!runs())
            return false;
    }
    return true;
}

void PipedProcess::leave()
{
    close();
    process.leave();
}

void PipedProcess::close()
{
    for (int *descriptor : {&input, &output}) {
        if (*descriptor >= 0)
            ::close(*descriptor);
        *descriptor = -1;
    }
}
