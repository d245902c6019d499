// The process that serves as host, and the two pipes to it, as a system has them.
#pragma once

#include <cstddef>
#include <functional>
#include <string>

class HostProcess {
public:
    virtual ~HostProcess() = default;

    virtual bool isOpen() const = 0; // whether the pipes are
    virtual void close() = 0;        // the pipes; a host ends when it sees that

    // Whether there is something to read, or its end; waits at most so long.
    virtual bool readable(int milliseconds) = 0;

    // Whether to wait on. It is asked at times while the other side does nothing.
    using WaitsOn = std::function<bool()>;

    // What there is, at least a byte; 0 at the end, and when nobody waits on.
    virtual std::size_t read(void *bytes, std::size_t capacity, const WaitsOn &waitsOn) = 0;

    // All of them, or false: nobody reads any more, or nobody waits on.
    virtual bool write(const void *bytes, std::size_t count, const WaitsOn &waitsOn) = 0;

    virtual bool runs() = 0;                    // does not wait
    virtual void kill() = 0;                    // and waits until it is gone
    virtual std::string howItEnded() const = 0; // "exit code 3"

    // Gives it up to the process that this one was copied from, where processes can be copied.
    virtual void leave() = 0;
};
