// Listens to the client in a thread of its own: so it is noticed at once when the client goes, and while the process
// has nothing to do the windows of packages, and COM's, are served.
#pragma once

#include "platform/platform.h"
#include "wire/message_reader.h"

#include <atomic>
#include <string>

class Listener {
public:
    explicit Listener(wire::ByteSource &client) : reader(client) {}
    bool start();

    // Waits for the next message. False when there will be none: the client has gone, or complaint() tells what it did
    // wrong. When the client goes in the middle of a call, the process ends soon, whatever a package does.
    bool next();
    wire::Kind kind() const { return reader.kind(); }
    wire::Payload payload() const { return reader.payload(); } // until done()
    const std::string &complaint() const { return wrong; }

    // What the message said is not needed any more: after the answer, which is written next, there may be another.
    void done();
    void answered(); // the answer has been written

private:
    enum State : unsigned { Nothing, Message, End };

    static DWORD WINAPI run(void *self);
    void listen();
    void post(State state);
    bool changesSoonFrom(State known);

    wire::MessageReader reader;
    std::string wrong;
    std::atomic<unsigned> state = Nothing;
    std::atomic<bool> sleeps = false;
    HANDLE wake = nullptr; // for a main thread that sleeps
};
