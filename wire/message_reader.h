// Reads messages off a stream, as bytes. A length is believed only as far as bytes arrive.
#pragma once

#include "wire/bytes.h"
#include "wire/format.h"

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <string>

namespace wire {

// The bytes behind the header of a message, the first at a multiple of 8.
struct Payload {
    const std::byte *bytes = nullptr;
    std::size_t size = 0;
};

class MessageReader {
public:
    explicit MessageReader(ByteSource &from) : source(from) {}

    bool greeting(); // what a host begins with; false for anything else, and reason() tells

    enum class Arrival {
        Message,
        End,    // between two messages
        Broken, // reason() tells
        NoRoom, // for the message, which has passed by
    };
    Arrival next();
    Kind kind() const { return header.kind; }
    Payload payload() const { return {block.get(), header.length}; } // until next() or forget()
    void forget();                                                   // gives large memory back

    bool hasMore() const { return aheadBegin < aheadEnd; } // bytes that came behind the message
    bool waitForMore(); // for a byte behind the message, which stays as it is; false at the end of the stream
    const std::string &reason() const { return why; }

private:
    struct Free {
        void operator()(std::byte *bytes) const { std::free(bytes); }
    };

    std::size_t take(void *bytes, std::size_t count); // fewer at the end of the stream
    Arrival broken(std::string reason);
    bool makeRoom(std::size_t count);
    Arrival skip(std::uint64_t count);
    Arrival fetchPayload();

    ByteSource &source;
    FrameHeader header{};
    std::unique_ptr<std::byte, Free> block;
    std::size_t capacity = 0;
    std::byte ahead[4096];
    std::size_t aheadBegin = 0;
    std::size_t aheadEnd = 0;
    std::string why;
};

} // namespace wire
