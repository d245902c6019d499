#include "tests/unit/wire/written_bytes.h"

#include <algorithm>
#include <cstring>

Bytes &Bytes::put(std::uint64_t value, int size)
{
    for (int i = 0; i < size; ++i)
        raw += static_cast<char>((value >> (8 * i)) & 0xFF);
    return *this;
}

Bytes &Bytes::f64(double value)
{
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return u64(bits);
}

Bytes &Bytes::f32(float value)
{
    std::uint32_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return u32(bits);
}

Bytes &Bytes::text(const std::string &more)
{
    raw += more;
    return *this;
}

Bytes &Bytes::zeros(std::size_t count)
{
    raw.append(count, '\0');
    return *this;
}

Bytes &Bytes::value(std::uint8_t type, std::uint8_t flags, const std::vector<std::uint64_t> &dimensions)
{
    u8(type).u8(flags).u16(0).u32(static_cast<std::uint32_t>(dimensions.size()));
    for (const std::uint64_t dimension : dimensions)
        u64(dimension);
    return *this;
}

Bytes Bytes::frame(std::uint32_t kind) const
{
    Bytes framed;
    framed.u32(kind).u32(0).u64(raw.size()).text(raw);
    return framed;
}

wire::Payload Bytes::payload() const
{
    aligned.resize(raw.size() / 8 + 1);
    std::memcpy(aligned.data(), raw.data(), raw.size());
    return {reinterpret_cast<const std::byte *>(aligned.data()), raw.size()};
}

bool Written::write(const void *bytes, std::size_t count)
{
    ++writes;
    if (all.size() + count > room)
        return false;
    all.append(static_cast<const char *>(bytes), count);
    return true;
}

std::size_t Stream::read(void *bytes, std::size_t capacity)
{
    largestRequest = std::max(largestRequest, capacity);
    const std::size_t count = std::min({capacity, most, all.size() - at});
    std::memcpy(bytes, all.data() + at, count);
    at += count;
    return count;
}
