#include "toolbox/octave/windows/windows_side.h"
#include "toolbox/octave/windows/command_names.h"
#include "toolbox/octave/windows/deadline.h"
#include "toolbox/octave/windows/host_start.h"
#include "toolbox/octave/windows/package_handles.h"
#include "toolbox/octave/windows/wine.h"

#include <pthread.h>

#include <cmath>
#include <memory>
#include <optional>
#include <string_view>

namespace {

using Outcome = HostConnection::Outcome;
using Way = HostConnection::Way;

constexpr std::string_view refusedHandle = "Invalid property package handle";
constexpr double secondsOfSilence = 1; // until the user is told what is waited for

int codeOf(const std::vector<wire::Value> &arguments)
{
    if (arguments.empty() || arguments[0].type != wire::Class::Double || ElementCount(arguments[0]) != 1)
        return 0;
    const double code = *static_cast<const double *>(arguments[0].real);
    return std::abs(code) < 1000 ? static_cast<int>(code) : 0;
}

class Windows final : public LibrarySide {
public:
    explicit Windows(std::string installed);

    bool start() override;
    bool call(int outputs, const std::vector<wire::Value> &arguments) override;
    const std::vector<wire::Value> &results() const override { return values; }
    const std::string &error() const override { return words; }
    bool stopped() const override { return gaveUp; }
    const std::vector<std::string> &warnings() const override { return warned; }
    void release() override;
    void unload() override;
    std::string description() override;

    void serve(const Caller &whoWaits) { caller = whoWaits; }
    void leaveToParent();

private:
    bool failed(const std::string &text);
    bool stop();
    bool keepWhatRuns(const Settings &wanted);
    bool finishStopped();
    bool finish(Outcome outcome, int code);
    bool lose(const std::string &reason, const std::string &text);
    bool take(int code);

    std::string folder;
    Caller caller{};
    std::unique_ptr<HostConnection> host;
    Settings settings; // of what runs
    PackageHandles handles;
    std::string startWarning;       // for the next call
    std::optional<int> stoppedCode; // of the call that the user did not wait for and the program still works on
    std::vector<wire::Value> values;
    std::string words;
    std::vector<std::string> warned;
    bool gaveUp = false;
};

Windows *instance = nullptr; // what a copy of this process has to leave alone

Windows::Windows(std::string installed) : folder(std::move(installed))
{
    instance = this;
    pthread_atfork(nullptr, nullptr, [] { instance->leaveToParent(); });
}

bool Windows::failed(const std::string &text)
{
    words = text;
    return false;
}

bool Windows::stop()
{
    gaveUp = true;
    return failed("");
}

void Windows::leaveToParent()
{
    if (host)
        host->leave();
}

// Whether the program that runs is the one that is wanted.
bool Windows::keepWhatRuns(const Settings &wanted)
{
    if (!host)
        return false;
    const bool same =
        wanted.prefix == settings.prefix && wanted.files == settings.files && wanted.loader == settings.loader;
    if (!host->isOpen())
        handles.lose("it is open in the process that this one was copied from");
    else if (!same)
        handles.lose("another prefix was chosen");
    else if (!host->isAlive())
        handles.lose(host->reason());
    else {
        settings = wanted; // the limits may be others
        return true;
    }
    if (host->isOpen())
        host->end(stoppedCode ? Way::AtOnce : Way::WithItsExitRoutine);
    host.reset();
    return false;
}

bool Windows::start()
{
    words.clear();
    gaveUp = false;
    Settings wanted;
    std::string error;
    if (!ReadSettings(wanted, error))
        return failed(error);
    if (keepWhatRuns(wanted))
        return true;
    settings = wanted;
    stoppedCode.reset();
    host = StartHost(settings, folder, caller, startWarning, error);
    if (host)
        return true;
    return error.empty() ? stop() : failed(error);
}

bool Windows::call(int outputs, const std::vector<wire::Value> &arguments)
{
    release();
    warned.clear();
    if (!start() || (stoppedCode && !finishStopped()))
        return false;
    if (!startWarning.empty())
        warned.push_back(std::move(startWarning));
    startWarning.clear();
    const int code = codeOf(arguments);
    if (!finish(host->send(outputs, arguments), code))
        return false;
    const Deadline limit(settings.callLimit);
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

// Goes on unless the program has ended, or has to.
bool Windows::finish(Outcome outcome, int code)
{
    switch (outcome) {
    case Outcome::Done:
        return true;
    case Outcome::Interrupted:
        stoppedCode = code;
        return stop();
    case Outcome::Late: {
        const std::string limit = InSeconds(settings.callLimit);
        host->end(Way::AtOnce);
        return lose("it did not answer within " + limit, "The property package did not answer within " + limit +
                                                             ", and its process was ended, " + WhereIn(code));
    }
    default:
        return lose(host->reason(), "The property package ended its process: " + host->reason() + ", " + WhereIn(code));
    }
}

bool Windows::lose(const std::string &reason, const std::string &text)
{
    handles.lose(reason);
    host.reset();
    stoppedCode.reset();
    return failed(text);
}

// What came last: a warning, results, or an error. False when it can not be read.
bool Windows::take(int code)
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
                "The Windows program sent what can not be read (" + wrong + "), and was ended, " + WhereIn(code));
}

// The call that the user did not wait for comes first. Who does not wait for it either has the program ended.
bool Windows::finishStopped()
{
    const Deadline limit(settings.callLimit);
    bool told = false;
    const int code = *stoppedCode;
    for (;;) {
        const bool mayTell = !told && (limit.left() == 0 || limit.left() > secondsOfSilence);
        Outcome outcome = host->receive(mayTell ? secondsOfSilence : limit.left(), caller);
        if (outcome == Outcome::Late && mayTell) {
            caller.tell("Verdanth: waiting for the call that was stopped; Ctrl-C ends its process");
            told = true;
            continue;
        }
        if (outcome == Outcome::Interrupted) {
            host->end(Way::AtOnce);
            lose("it was ended by Ctrl-C", "");
            return stop();
        }
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

void Windows::release()
{
    values.clear();
    if (host)
        host->forget();
}

void Windows::unload()
{
    release();
    if (host && host->isOpen())
        host->end(stoppedCode ? Way::AtOnce : Way::WithItsExitRoutine);
    host.reset();
    handles.clear();
    stoppedCode.reset();
}

std::string Windows::description()
{
    Settings wanted;
    Wine wine;
    std::string error;
    if (!ReadSettings(wanted, error) || !FindWine(wanted, wine, error))
        return "windows: " + error;
    return "windows: " + VersionOf(wine) + ", " + wanted.prefix;
}

} // namespace

LibrarySide *WindowsSide(const std::string &folder, const Caller &caller)
{
    static Windows side(folder);
    side.serve(caller); // another one each time that Octave has loaded Verdanth.mex anew
    return &side;
}
