// The host, a program in which the library runs, and the messages to and from it: one object for one process.
#pragma once

#include "client/caller.h"
#include "client/deadline.h"
#include "client/host_process.h"
#include "wire/decoder.h"
#include "wire/message_reader.h"
#include "wire/message_writer.h"

#include <chrono>
#include <memory>
#include <string>
#include <vector>

class HostConnection final : private wire::ByteSource, private wire::ByteSink {
public:
    explicit HostConnection(std::unique_ptr<HostProcess> started);
    HostConnection(const HostConnection &) = delete;
    HostConnection &operator=(const HostConnection &) = delete;
    ~HostConnection() { end(Way::AtOnce); }

    enum class Outcome {
        Done,
        Interrupted, // by the user; what was waited for may still come
        BrokenOff,   // by the user in the middle of a message, so that no other can follow
        Late,        // it took longer than it may
        Ended,       // the process has; reason() tells why
    };

    // Waits until it is ready.
    Outcome greet(double seconds, const Caller &caller);

    // This and what follows take at most so many seconds; 0 is as long as it takes.
    Outcome send(int outputs, const std::vector<wire::Value> &arguments, double seconds, const Caller &caller);

    Outcome await(double seconds, const Caller &caller); // the beginning of a message: when Late it may still come

    // Waits for the next message. Late may be in the middle of it, so that no other can follow. Without memory for it
    // std::bad_alloc is raised.
    Outcome receive(double seconds, const Caller &caller);
    bool isIdle() const { return idle; } // whether the last call was answered whole
    wire::Kind kind() const { return reader.kind(); }
    wire::Payload payload() const { return reader.payload(); }
    void forget() { reader.forget(); }

    enum class Way { WithItsExitRoutine, AtOnce };
    void end(Way way);
    void leave(); // to the process that this one was copied from

    bool isOpen() const { return process->isOpen(); }
    bool isAlive(); // else reason() tells how it ended
    const std::string &reason() const { return why; }

private:
    std::size_t read(void *bytes, std::size_t capacity) override;
    bool write(const void *bytes, std::size_t count) override;
    void beginToWait(double seconds, const Caller &caller);
    bool waitsOn();
    bool endsWithin(double seconds);
    void endFor(const std::string &reasonOfOurs);
    void noteLastWords();
    void hearLastWords();
    Outcome ended();

    std::unique_ptr<HostProcess> process;
    // With what has been begun, and what came of it.
    Deadline patience{0};
    Caller whoWaits{};
    Outcome given = Outcome::Done;

    bool idle = true;
    std::chrono::steady_clock::time_point heard{}; // when it answered last
    std::string why;
    wire::MessageReader reader;
    wire::MessageWriter writer;
};

// The connection to a process that has been started, when it is ready for calls. Null when it does not get so far: then
// `error` begins with `name` and tells why, or is empty when the user wished to wait no longer. `remedy` is for one
// that ended.
std::unique_ptr<HostConnection> ReadyHost(std::unique_ptr<HostProcess> started, const std::string &name,
                                          const std::string &remedy, double seconds, const Caller &caller,
                                          std::string &error);
std::string NotStarted(const std::string &name, const std::string &reason, const std::string &remedy);
