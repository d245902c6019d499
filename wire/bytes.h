// Where messages come from and go to: a pipe, or what a test has in its place.
#pragma once

#include <cstddef>

namespace wire {

class ByteSource {
public:
    // Waits for at least one byte and gives how many there were, at most `capacity`; 0 at the end of the stream.
    virtual std::size_t read(void *bytes, std::size_t capacity) = 0;

protected:
    ~ByteSource() = default;
};

class ByteSink {
public:
    virtual bool write(const void *bytes, std::size_t count) = 0; // all of them, or false: nobody reads any more

protected:
    ~ByteSink() = default;
};

} // namespace wire
