// The program under Wine in which the library runs, and the messages to and from it: one object for one program.
#pragma once

#include "toolbox/octave/caller.h"
#include "toolbox/octave/windows/child_process.h"
#include "wire/decoder.h"
#include "wire/message_reader.h"
#include "wire/message_writer.h"

#include <string>
#include <vector>

class HostConnection final : private wire::ByteSource, private wire::ByteSink {
public:
    HostConnection();
    HostConnection(const HostConnection &) = delete;
    HostConnection &operator=(const HostConnection &) = delete;
    ~HostConnection() { end(Way::AtOnce); }

    enum class Outcome {
        Done,
        Interrupted, // by the user; what was waited for may still come
        Late,        // it took longer than it may
        Ended,       // the program has; reason() tells why
    };

    // Starts the program and waits until it is ready.
    Outcome start(const std::vector<std::string> &command, const std::vector<std::string> &environment, double seconds,
                  const Caller &caller);

    Outcome send(int outputs, const std::vector<wire::Value> &arguments);

    // Waits for the next message, at most so long; 0 is as long as it takes.
    Outcome receive(double seconds, const Caller &caller);
    wire::Kind kind() const { return reader.kind(); }
    wire::Payload payload() const { return reader.payload(); }
    void forget() { reader.forget(); }

    enum class Way { WithItsExitRoutine, AtOnce };
    void end(Way way);
    void endFor(const std::string &why); // at once; reason() gives WHY afterwards
    void leave();                        // to the process that this one was copied from

    bool isOpen() const { return input >= 0; }
    bool isAlive(); // else reason() tells how it ended
    const std::string &reason() const { return why; }

private:
    std::size_t read(void *bytes, std::size_t capacity) override;
    bool write(const void *bytes, std::size_t count) override;
    Outcome waitForBytes(double seconds, const Caller &caller);
    bool readable(int milliseconds) const;
    bool endsWithin(double seconds);
    void noteLastWords();
    void hearLastWords();
    Outcome ended();
    void closePipes();

    ChildProcess process;
    int input = -1;  // of the program
    int output = -1; // of the program
    std::string why;
    wire::MessageReader reader;
    wire::MessageWriter writer;
};
