// The bytes of one input, read from the front: whatever is decided later stands later, so that a change in the middle
// leaves what came before. Beyond the end all bytes are 0, and choice 0 is the harmless one everywhere.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>

namespace fuzz {

class Input {
public:
    Input(const std::uint8_t *bytes, std::size_t count) : next(bytes), end(bytes + count) {}

    bool atEnd() const { return next == end; }
    std::uint8_t byte() { return atEnd() ? std::uint8_t{0} : *next++; }

    // From 0 up to `bound` minus 1, of at most 256 choices.
    unsigned below(std::size_t bound) { return static_cast<unsigned>(byte() % bound); }

    // True for `of256` of 256 bytes, the highest.
    bool chance(unsigned of256) { return byte() >= 256 - of256; }

    template <class Value> Value bits()
    {
        Value value{};
        std::uint8_t raw[sizeof value];
        for (std::uint8_t &part : raw)
            part = byte();
        std::memcpy(&value, raw, sizeof value);
        return value;
    }

    // An element of an array or a vector.
    template <class List> const auto &pick(const List &list) { return list[below(std::size(list))]; }

private:
    const std::uint8_t *next;
    const std::uint8_t *end;
};

} // namespace fuzz
