#include "client/host_connection.h"
#include "client/seconds.h"

#include <chrono>
#include <thread>
#include <utility>

namespace {

// So often it is looked whether the user waits on, and whether the process is alive: others that were started along
// with it may hold the pipes open.
constexpr int tickMilliseconds = 50;
constexpr double exitSeconds = 10;
constexpr double secondsOfGrace = 1; // for what has said something odd, to end by itself

} // namespace

HostConnection::HostConnection(std::unique_ptr<HostProcess> started)
    : process(std::move(started)), reader(*this), writer(*this)
{
}

HostConnection::Outcome HostConnection::greet(double seconds, const Caller &caller)
{
    const Deadline last(seconds);
    const Outcome outcome = waitForBytes(seconds, caller);
    if (outcome != Outcome::Done)
        return outcome;
    patience = last;
    const bool greeted = reader.greeting();
    patience = Deadline(0);
    if (greeted)
        return Outcome::Done;
    if (last.isOver())
        return Outcome::Late;
    process->close();
    if (!endsWithin(secondsOfGrace))
        endFor(reader.reason());
    return ended();
}

HostConnection::Outcome HostConnection::send(int outputs, const std::vector<wire::Value> &arguments)
{
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
    while ((reader.hasMore() || process->readable(tickMilliseconds)) &&
           reader.next() == wire::MessageReader::Arrival::Message)
        if (reader.kind() == wire::Kind::LastWords)
            return noteLastWords();
}

bool HostConnection::isAlive()
{
    if (process->runs())
        return true;
    hearLastWords();
    ended();
    return false;
}

HostConnection::Outcome HostConnection::waitForBytes(double seconds, const Caller &caller)
{
    const Deadline last(seconds);
    while (!process->readable(tickMilliseconds)) {
        if (caller.interrupted())
            return Outcome::Interrupted;
        if (last.isOver())
            return Outcome::Late;
        if (!process->runs() && !process->readable(0))
            return ended();
    }
    return Outcome::Done;
}

std::size_t HostConnection::read(void *bytes, std::size_t capacity)
{
    while (!process->readable(tickMilliseconds))
        if (patience.isOver() || (!process->runs() && !process->readable(0)))
            return 0;
    return process->read(bytes, capacity);
}

bool HostConnection::write(const void *bytes, std::size_t count) { return process->write(bytes, count); }

bool HostConnection::endsWithin(double seconds)
{
    const Deadline last(seconds);
    while (process->runs() && !last.isOver())
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    return !process->runs();
}

// The process has ended, or is about to: nothing more can be said to it.
HostConnection::Outcome HostConnection::ended()
{
    end(Way::WithItsExitRoutine);
    if (why.empty())
        why = process->howItEnded();
    return Outcome::Ended;
}

void HostConnection::end(Way way)
{
    process->close();
    if (way == Way::WithItsExitRoutine)
        endsWithin(exitSeconds);
    process->kill();
}

void HostConnection::endFor(const std::string &reasonOfOurs)
{
    end(Way::AtOnce);
    why = reasonOfOurs;
}

void HostConnection::leave() { process->leave(); }

std::unique_ptr<HostConnection> ReadyHost(std::unique_ptr<HostProcess> started, const std::string &name,
                                          const std::string &remedy, double seconds, const Caller &caller,
                                          std::string &error)
{
    auto host = std::make_unique<HostConnection>(std::move(started));
    switch (host->greet(seconds, caller)) {
    case HostConnection::Outcome::Done:
        return host;
    case HostConnection::Outcome::Interrupted:
        error.clear();
        break;
    case HostConnection::Outcome::Late:
        error = name + " did not start within " + InSeconds(seconds) +
                ". VERDANTH_START_LIMIT, in the environment, gives it more";
        break;
    default:
        error = NotStarted(name, host->reason(), remedy);
    }
    return nullptr;
}

std::string NotStarted(const std::string &name, const std::string &reason, const std::string &remedy)
{
    return name + " did not start: " + reason + remedy;
}
