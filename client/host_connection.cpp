#include "client/host_connection.h"
#include "client/seconds.h"

#include <chrono>
#include <new>
#include <thread>
#include <utility>

namespace {

// So often it is looked whether the user waits on, and whether the process is alive: others that were started along
// with it may hold the pipes open.
constexpr int tickMilliseconds = 50;
constexpr double exitSeconds = 10;
constexpr std::chrono::milliseconds trust(1); // after an answer
constexpr double secondsOfGrace = 1;          // for what has said something odd, to end by itself

bool endsACall(wire::Kind kind) { return kind == wire::Kind::Result || kind == wire::Kind::Error; }

} // namespace

HostConnection::HostConnection(std::unique_ptr<HostProcess> started)
    : process(std::move(started)), reader(*this), writer(*this)
{
}

HostConnection::Outcome HostConnection::greet(double seconds, const Caller &caller)
{
    const Deadline last(seconds);
    const Outcome outcome = await(seconds, caller);
    if (outcome != Outcome::Done)
        return outcome;
    beginToWait(last.left(), caller);
    if (reader.greeting())
        return Outcome::Done;
    if (given != Outcome::Done)
        return given;
    process->close();
    if (!endsWithin(secondsOfGrace))
        endFor(reader.reason());
    return ended();
}

HostConnection::Outcome HostConnection::send(int outputs, const std::vector<wire::Value> &arguments, double seconds,
                                             const Caller &caller)
{
    beginToWait(seconds, caller);
    idle = false;
    if (writer.call(outputs, arguments))
        return Outcome::Done;
    if (given != Outcome::Done)
        return given;
    hearLastWords();
    return ended();
}

HostConnection::Outcome HostConnection::await(double seconds, const Caller &caller)
{
    beginToWait(seconds, caller);
    while (!reader.hasMore() && !process->readable(tickMilliseconds)) {
        if (!waitsOn())
            return given == Outcome::BrokenOff ? Outcome::Interrupted : given;
        if (!process->runs() && !process->readable(0))
            return ended();
    }
    return Outcome::Done;
}

HostConnection::Outcome HostConnection::receive(double seconds, const Caller &caller)
{
    const Deadline last(seconds);
    const Outcome outcome = await(seconds, caller);
    if (outcome != Outcome::Done)
        return outcome;
    beginToWait(last.left(), caller);
    const wire::MessageReader::Arrival arrival = reader.next();
    if (given != Outcome::Done)
        return given;
    if (arrival == wire::MessageReader::Arrival::Broken && why.empty())
        endFor(reader.reason());
    heard = std::chrono::steady_clock::now();
    idle = endsACall(reader.kind());
    if (arrival == wire::MessageReader::Arrival::NoRoom)
        throw std::bad_alloc();
    if (arrival != wire::MessageReader::Arrival::Message)
        return ended();
    if (reader.kind() != wire::Kind::LastWords)
        return Outcome::Done;
    noteLastWords();
    return ended();
}

void HostConnection::beginToWait(double seconds, const Caller &caller)
{
    patience = Deadline(seconds);
    whoWaits = caller;
    given = Outcome::Done;
}

bool HostConnection::waitsOn()
{
    if (whoWaits.interrupted())
        given = Outcome::BrokenOff;
    else if (patience.isOver())
        given = Outcome::Late;
    return given == Outcome::Done;
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
    // Call upon call goes without the question: what ends in between is told of by the next one.
    if (std::chrono::steady_clock::now() - heard < trust || process->runs())
        return true;
    beginToWait(secondsOfGrace, {[] { return false; }, nullptr});
    hearLastWords();
    ended();
    return false;
}

std::size_t HostConnection::read(void *bytes, std::size_t capacity)
{
    if (patience.isOver()) // bytes may come one by one for ever
        given = Outcome::Late;
    return given == Outcome::Done ? process->read(bytes, capacity, [this] { return waitsOn(); }) : 0;
}

bool HostConnection::write(const void *bytes, std::size_t count)
{
    return process->write(bytes, count, [this] { return waitsOn(); });
}

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
    case HostConnection::Outcome::BrokenOff:
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
