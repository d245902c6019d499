#include "toolbox/octave/windows/host_connection.h"
#include "toolbox/octave/windows/deadline.h"
#include "toolbox/octave/windows/without_broken_pipes.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace {

// So often it is looked whether the user waits on, and whether the program is alive: services that Wine started along
// with it may hold the pipes open.
constexpr int tickMilliseconds = 50;
constexpr double exitSeconds = 10;
constexpr double secondsOfGrace = 1; // for what has said something odd, to end by itself
constexpr int pipeSize = 1 << 20;

// Both ends at 3 or above, where no standard stream is.
bool makePipe(int (&ends)[2])
{
    if (pipe2(ends, O_CLOEXEC) != 0)
        return false;
    for (int &end : ends)
        if (end < 3) {
            const int old = end;
            end = fcntl(old, F_DUPFD_CLOEXEC, 3);
            close(old);
        }
    fcntl(ends[0], F_SETPIPE_SZ, pipeSize);
    return ends[0] >= 0 && ends[1] >= 0;
}

} // namespace

HostConnection::HostConnection() : reader(*this), writer(*this) {}

HostConnection::Outcome HostConnection::start(const std::vector<std::string> &command,
                                              const std::vector<std::string> &environment, double seconds,
                                              const Caller &caller)
{
    int toHost[2] = {-1, -1};
    int fromHost[2] = {-1, -1};
    const int nothing = open("/dev/null", O_WRONLY | O_CLOEXEC);
    bool started = false;
    if (makePipe(toHost) && makePipe(fromHost))
        started = process.start(command, environment, {toHost[0], fromHost[1], nothing}, why);
    else
        why = std::strerror(errno);
    for (const int descriptor : {toHost[0], fromHost[1], nothing})
        close(descriptor);
    input = toHost[1];
    output = fromHost[0];
    if (!started) {
        closePipes();
        return Outcome::Ended;
    }
    fcntl(input, F_SETFL, O_NONBLOCK);
    const Outcome outcome = waitForBytes(seconds, caller);
    if (outcome != Outcome::Done)
        return outcome;
    if (reader.greeting())
        return Outcome::Done;
    closePipes();
    if (!endsWithin(secondsOfGrace))
        endFor(reader.reason());
    return ended();
}

HostConnection::Outcome HostConnection::send(int outputs, const std::vector<wire::Value> &arguments)
{
    const WithoutBrokenPipes guard;
    if (writer.call(outputs, arguments))
        return Outcome::Done;
    hearLastWords();
    return ended();
}

HostConnection::Outcome HostConnection::receive(double seconds, const Caller &caller)
{
    const Outcome outcome = reader.hasMore() ? Outcome::Done : waitForBytes(seconds, caller);
    if (outcome != Outcome::Done)
        return outcome;
    const wire::MessageReader::Arrival arrival = reader.next();
    if (arrival == wire::MessageReader::Arrival::Broken && why.empty())
        endFor(reader.reason());
    if (arrival != wire::MessageReader::Arrival::Message)
        return ended();
    if (reader.kind() != wire::Kind::LastWords)
        return Outcome::Done;
    noteLastWords();
    return ended();
}

void HostConnection::noteLastWords()
{
    std::string_view words;
    std::string wrong;
    if (wire::Decode(reader.payload(), words, wrong))
        why = words;
}

// It may have said why before it went.
void HostConnection::hearLastWords()
{
    while ((reader.hasMore() || readable(tickMilliseconds)) && reader.next() == wire::MessageReader::Arrival::Message)
        if (reader.kind() == wire::Kind::LastWords)
            return noteLastWords();
}

bool HostConnection::isAlive()
{
    if (process.runs())
        return true;
    hearLastWords();
    ended();
    return false;
}

bool HostConnection::readable(int milliseconds) const
{
    pollfd wanted = {output, POLLIN, 0};
    return poll(&wanted, 1, milliseconds) > 0;
}

HostConnection::Outcome HostConnection::waitForBytes(double seconds, const Caller &caller)
{
    const Deadline last(seconds);
    while (!readable(tickMilliseconds)) {
        if (caller.interrupted())
            return Outcome::Interrupted;
        if (last.isOver())
            return Outcome::Late;
        if (!process.runs() && !readable(0))
            return ended();
    }
    return Outcome::Done;
}

std::size_t HostConnection::read(void *bytes, std::size_t capacity)
{
    for (;;) {
        if (!readable(tickMilliseconds)) {
            if (!process.runs() && !readable(0))
                return 0;
            continue;
        }
        const ssize_t count = ::read(output, bytes, capacity);
        if (count >= 0)
            return static_cast<std::size_t>(count);
        if (errno != EINTR && errno != EAGAIN)
            return 0;
    }
}

bool HostConnection::write(const void *bytes, std::size_t count)
{
    const char *next = static_cast<const char *>(bytes);
    while (count > 0) {
        const ssize_t written = ::write(input, next, count);
        if (written >= 0) {
            next += written;
            count -= static_cast<std::size_t>(written);
            continue;
        }
        pollfd wanted = {input, POLLOUT, 0};
        if (errno == EAGAIN)
            poll(&wanted, 1, tickMilliseconds);
        else if (errno != EINTR)
            return false;
        if (!process.runs())
            return false;
    }
    return true;
}

bool HostConnection::endsWithin(double seconds)
{
    const Deadline last(seconds);
    while (process.runs() && !last.isOver())
        poll(nullptr, 0, 1);
    return !process.runs();
}

// The program has ended, or is about to: nothing more can be said to it.
HostConnection::Outcome HostConnection::ended()
{
    closePipes();
    endsWithin(exitSeconds);
    process.kill();
    if (why.empty())
        why = process.howItEnded();
    return Outcome::Ended;
}

void HostConnection::end(Way way)
{
    closePipes();
    if (way == Way::WithItsExitRoutine)
        endsWithin(exitSeconds);
    process.kill();
}

void HostConnection::endFor(const std::string &reasonOfOurs)
{
    end(Way::AtOnce);
    why = reasonOfOurs;
}

void HostConnection::leave()
{
    closePipes();
    process.leave();
}

void HostConnection::closePipes()
{
    for (int *descriptor : {&input, &output}) {
        if (*descriptor >= 0)
            close(*descriptor);
        *descriptor = -1;
    }
}
