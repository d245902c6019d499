// Messages in memory: written byte by byte as the format has it, and read in pieces of any size.
#pragma once

#include "wire/bytes.h"
#include "wire/decoder.h"

#include <cstdint>
#include <string>
#include <vector>

// What a message says, put down by hand: `Bytes().u32(1).u32(0).text("abc")`.
class Bytes {
public:
    Bytes &u8(std::uint8_t value) { return put(value, 1); }
    Bytes &u16(std::uint16_t value) { return put(value, 2); }
    Bytes &u32(std::uint32_t value) { return put(value, 4); }
    Bytes &u64(std::uint64_t value) { return put(value, 8); }
    Bytes &f64(double value);
    Bytes &f32(float value);
    Bytes &text(const std::string &raw);
    Bytes &zeros(std::size_t count);
    Bytes &value(std::uint8_t type, std::uint8_t flags, const std::vector<std::uint64_t> &dimensions);
    Bytes &add(const Bytes &other) { return text(other.raw); }
    Bytes frame(std::uint32_t kind) const; // with a header before it

    const std::string &all() const { return raw; }
    wire::Payload payload() const; // as long as this lives; aligned as a reader's

private:
    Bytes &put(std::uint64_t value, int size);

    std::string raw;
    mutable std::vector<std::uint64_t> aligned;
};

struct Written final : wire::ByteSink {
    bool write(const void *bytes, std::size_t count) override;

    std::string all;
    std::size_t writes = 0;
    std::size_t room = SIZE_MAX; // writes beyond that find nobody
};

struct Stream final : wire::ByteSource {
    explicit Stream(std::string bytes, std::size_t piece = SIZE_MAX) : all(std::move(bytes)), most(piece) {}
    std::size_t read(void *bytes, std::size_t capacity) override;

    std::string all;
    std::size_t most; // given at once
    std::size_t at = 0;
    std::size_t largestRequest = 0;
};
