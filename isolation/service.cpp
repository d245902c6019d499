#include "isolation/service.h"

#include "isolation/last_words.h"
#include "isolation/text.h"

#include <exception>

namespace {

constexpr char outOfMemory[] = "Out of memory.";

} // namespace

void Service::run(wire::ByteSource &client)
{
    if (!writer.greeting())
        return;
    Listener listener(client);
    if (!listener.start())
        return;
    bool goesOn = true;
    while (goesOn && listener.next())
        goesOn = answer(listener);
    if (goesOn && !listener.complaint().empty()) // otherwise the listener may still be writing it
        complain(listener.complaint());
    library.unload();
}

// False when the conversation is over.
bool Service::answer(Listener &listener)
{
    switch (listener.kind()) {
    case wire::Kind::Call:
        return answerCall(listener);
    case wire::Kind::Unload:
        return answerUnload(listener);
    default:
        return complain("byte 0 of a message: a kind that a host does not know");
    }
}

bool Service::answerCall(Listener &listener)
{
    bool worked = false;
    std::string error;
    running.clear();
    try {
        if (!wire::Decode(listener.payload(), call, error))
            return complain(error);
        RenewLastWords();
        if (const MexFunction function = library.load(error)) {
            worked = running.run(function, call.outputs, call.arguments);
            error = Utf8OfCodePage(running.error().c_str());
        }
    } catch (const std::bad_alloc &) {
        error = outOfMemory;
    }
    const WritingMessage writing;
    listener.done();
    bool heard = true;
    for (const std::string &warning : running.warnings())
        heard = heard && writer.text(wire::Kind::Warning, Utf8OfCodePage(warning.c_str()));
    heard = heard && (worked ? writer.result(running.results()) : writer.text(wire::Kind::Error, error));
    listener.answered();
    running.release();
    return heard;
}

bool Service::answerUnload(Listener &listener)
{
    std::string reason;
    if (!wire::DecodeNothing(listener.payload(), reason))
        return complain(reason);
    library.unload();
    const WritingMessage writing;
    listener.done();
    const bool heard = writer.result({});
    listener.answered();
    return heard;
}

bool Service::complain(const std::string &reason)
{
    const WritingMessage writing;
    writer.text(wire::Kind::LastWords, "malformed message: " + reason);
    return false;
}
