// The numbers of the format, version 1. All fields are little-endian, as on every machine that this runs on, and every
// part of a message begins at a multiple of 8, so that elements can be used where they arrived.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>

namespace wire {

static_assert(std::endian::native == std::endian::little && sizeof(std::size_t) == 8);

inline constexpr char magic[8] = {'V', 'E', 'R', 'D', 'A', 'N', 'T', 'H'};
inline constexpr std::uint32_t formatVersion = 1;

enum class Kind : std::uint32_t {
    // To the host.
    Call = 1,
    Unload = 2,
    // From the host.
    Warning = 16,
    Result = 17,
    Error = 18,
    LastWords = 19,
};

struct Greeting {
    char magic[8];
    std::uint32_t version;
    std::uint32_t reserved;
};

struct FrameHeader {
    Kind kind;
    std::uint32_t reserved;
    std::uint64_t length; // of what follows
};

struct CallHeader {
    std::int32_t outputs;
    std::uint32_t arguments;
};

struct ResultHeader {
    std::uint32_t count;
    std::uint32_t reserved;
};

struct ValueHeader {
    std::uint8_t type;
    std::uint8_t flags;
    std::uint16_t reserved;
    std::uint32_t dimensionCount;
};
inline constexpr std::uint8_t complexFlag = 1;

inline constexpr std::uint64_t longestMessage = std::uint64_t{1} << 40;
inline constexpr std::int32_t mostOutputs = 65535;
inline constexpr int deepestCell = 32; // cells within cells; the outermost is 1

constexpr std::uint64_t Padded(std::uint64_t size) { return (size + 7) / 8 * 8; }

} // namespace wire
