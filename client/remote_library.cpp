#include "client/remote_library.h"
#include "client/command_names.h"
#include "client/deadline.h"
#include "client/seconds.h"

#include <cmath>
#include <new>
#include <string_view>

namespace {

using Outcome = HostConnection::Outcome;
using Way = HostConnection::Way;

constexpr std::string_view refusedHandle = "Invalid property package handle";
constexpr char outOfMemory[] = "Out of memory.";
constexpr double secondsOfSilence = 1; // until the user is told what is waited for

int codeOf(const std::vector<wire::Value> &arguments)
{
    if (arguments.empty() || arguments[0].type != wire::Class::Double || ElementCount(arguments[0]) != 1)
        return 0;
    const double code = *static_cast<const double *>(arguments[0].real);
    return std::abs(code) < 1000 ? static_cast<int>(code) : 0;
}

} // namespace

bool RemoteLibrary::failed(const std::string &text)
{
    words = text;
    return false;
}

bool RemoteLibrary::stop()
{
    gaveUp = true;
    return failed("");
}

void RemoteLibrary::leaveToParent()
{
    if (host)
        host->leave();
}

// Whether the host that runs is the one that is wanted.
bool RemoteLibrary::keepWhatRuns(const Wishes &wanted)
{
    if (!host)
        return false;
    if (!host->isOpen())
        handles.lose("it is open in the process that this one was copied from");
    else if (wanted.place != wishes.place)
        handles.lose(otherPlace);
    else if (!host->isAlive())
        handles.lose(host->reason());
    else {
        wishes = wanted; // the limit may be another
        return true;
    }
    if (host->isOpen())
        host->end(stoppedCode ? Way::AtOnce : Way::WithItsExitRoutine);
    host.reset();
    return false;
}

bool RemoteLibrary::start()
{
    words.clear();
    gaveUp = false;
    Wishes wanted;
    std::string error;
    if (!readWishes(wanted, error))
        return failed(error);
    if (keepWhatRuns(wanted))
        return true;
    wishes = wanted;
    stoppedCode.reset();
    host = startHost(caller, startWarning, error);
    if (host)
        return true;
    return error.empty() ? stop() : failed(error);
}

bool RemoteLibrary::call(int outputs, const std::vector<wire::Value> &arguments)
{
    try {
        return ask(outputs, arguments);
    } catch (const std::bad_alloc &) {
        return failedForMemory(codeOf(arguments));
    }
}

// A host goes on unless its answer was left in the middle.
bool RemoteLibrary::failedForMemory(int code)
{
    values.clear();
    words = outOfMemory; // needs none
    if (!host || host->isIdle())
        return false;
    host->end(Way::AtOnce);
    host.reset();
    stoppedCode.reset();
    try {
        return lose("memory ran out", "Out of memory in the middle of an answer, and the process of the packages was "
                                      "ended, " +
                                          WhereIn(code));
    } catch (const std::bad_alloc &) {
        return false;
    }
}

bool RemoteLibrary::ask(int outputs, const std::vector<wire::Value> &arguments)
{
    release();
    warned.clear();
    if (!start() || (stoppedCode && !finishStopped()))
        return false;
    if (!startWarning.empty())
        warned.push_back(std::move(startWarning));
    startWarning.clear();
    const int code = codeOf(arguments);
    const Deadline limit(wishes.callLimit);
    if (!finish(host->send(outputs, arguments, limit.left(), caller), code))
        return false;
    do
        if (!finish(host->receive(limit.left(), caller), code))
            return false;
    while (host->kind() == wire::Kind::Warning && take(code));
    if (!take(code))
        return false;
    if (host->kind() == wire::Kind::Result)
        handles.note(code, arguments, values);
    else if (words == refusedHandle)
        words += handles.explanation(code, arguments);
    return host->kind() == wire::Kind::Result;
}

// Goes on unless the host has ended, or has to.
bool RemoteLibrary::finish(Outcome outcome, int code)
{
    switch (outcome) {
    case Outcome::Done:
        return true;
    case Outcome::Interrupted:
        stoppedCode = code;
        return stop();
    case Outcome::BrokenOff:
        return endStopped();
    case Outcome::Late: {
        const std::string limit = InSeconds(wishes.callLimit);
        host->end(Way::AtOnce);
        return lose("it did not answer within " + limit, "The property package did not answer within " + limit +
                                                             ", and its process was ended, " + WhereIn(code));
    }
    default:
        return lose(host->reason(), "The property package ended its process: " + host->reason() + ", " + WhereIn(code));
    }
}

bool RemoteLibrary::lose(const std::string &reason, const std::string &text)
{
    handles.lose(reason);
    host.reset();
    stoppedCode.reset();
    return failed(text);
}

bool RemoteLibrary::endStopped()
{
    host->end(Way::AtOnce);
    lose("it was ended by Ctrl-C", "");
    return stop();
}

// What came last: a warning, results, or an error. False when it can not be read.
bool RemoteLibrary::take(int code)
{
    std::string wrong = "an unexpected kind of message";
    std::string_view text;
    bool good = false;
    switch (host->kind()) {
    case wire::Kind::Warning:
        good = wire::Decode(host->payload(), text, wrong);
        if (good)
            warned.emplace_back(text);
        break;
    case wire::Kind::Result:
        good = wire::Decode(host->payload(), values, wrong);
        break;
    case wire::Kind::Error:
        good = wire::Decode(host->payload(), text, wrong);
        words = text;
        break;
    default:
        break;
    }
    if (good)
        return true;
    values.clear();
    host->end(Way::AtOnce);
    return lose("it sent what can not be read",
                "The host process sent what can not be read (" + wrong + "), and was ended, " + WhereIn(code));
}

// The call that the user did not wait for comes first. Who does not wait for it either has the host ended.
bool RemoteLibrary::finishStopped()
{
    const Deadline limit(wishes.callLimit);
    bool told = false;
    const int code = *stoppedCode;
    for (;;) {
        const bool mayTell = !told && (limit.left() == 0 || limit.left() > secondsOfSilence);
        Outcome outcome = host->await(mayTell ? secondsOfSilence : limit.left(), caller);
        if (outcome == Outcome::Late && mayTell) {
            caller.tell("Verdanth: waiting for the call that was stopped; Ctrl-C ends its process");
            told = true;
            continue;
        }
        if (outcome == Outcome::Done)
            outcome = host->receive(limit.left(), caller);
        if (outcome == Outcome::Interrupted)
            return endStopped();
        if (!finish(outcome, code) || !take(code))
            return false;
        if (host->kind() != wire::Kind::Warning)
            break;
    }
    handles.note(code, {}, values);
    stoppedCode.reset();
    release();
    warned.clear();
    words.clear();
    return true;
}

void RemoteLibrary::release()
{
    values.clear();
    if (host)
        host->forget();
}

void RemoteLibrary::unload()
{
    release();
    if (host && host->isOpen())
        host->end(stoppedCode ? Way::AtOnce : Way::WithItsExitRoutine);
    host.reset();
    handles.clear();
    stoppedCode.reset();
}
