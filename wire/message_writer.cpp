#include "wire/message_writer.h"

#include <algorithm>
#include <iterator>

namespace wire {

namespace {

constexpr std::size_t largeBlock = 16384; // from here on a copy costs more than a write

// The library looks into no cell that deep.
bool isTooDeep(const Value &value, int depth) { return value.type == Class::Cell && depth >= deepestCell; }

std::uint64_t sizeOf(const Value &value, int depth)
{
    std::uint64_t size = sizeof(ValueHeader) + value.dimensionCount * sizeof(std::uint64_t);
    if (value.type == Class::Cell && !isTooDeep(value, depth))
        for (const Value &element : value.elements)
            size += sizeOf(element, depth + 1);
    return size + (value.imaginary ? 2 : 1) * Padded(ElementCount(value) * ElementSize(value.type));
}

std::uint64_t sizeOf(const std::vector<Value> &values)
{
    std::uint64_t size = 0;
    for (const Value &value : values)
        size += sizeOf(value, 0);
    return size;
}

} // namespace

bool MessageWriter::greeting()
{
    Greeting start{{}, formatVersion, 0};
    std::copy(std::begin(magic), std::end(magic), start.magic);
    put(start);
    return flush();
}

bool MessageWriter::call(int outputs, const std::vector<Value> &arguments)
{
    put(FrameHeader{Kind::Call, 0, sizeof(CallHeader) + sizeOf(arguments)});
    put(CallHeader{std::clamp(outputs, 0, mostOutputs), static_cast<std::uint32_t>(arguments.size())});
    put(arguments);
    return flush();
}

bool MessageWriter::unload()
{
    put(FrameHeader{Kind::Unload, 0, 0});
    return flush();
}

bool MessageWriter::result(const std::vector<Value> &values)
{
    put(FrameHeader{Kind::Result, 0, sizeof(ResultHeader) + sizeOf(values)});
    put(ResultHeader{static_cast<std::uint32_t>(values.size()), 0});
    put(values);
    return flush();
}

bool MessageWriter::text(Kind kind, std::string_view words)
{
    put(FrameHeader{kind, 0, sizeof(std::uint64_t) + Padded(words.size())});
    put(std::uint64_t{words.size()});
    put(words.data(), words.size());
    pad(words.size());
    return flush();
}

void MessageWriter::put(const void *bytes, std::size_t count)
{
    if (count >= largeBlock) {
        if (flush())
            broken = !sink.write(bytes, count);
    } else if (count > 0) {
        gathered.append(static_cast<const char *>(bytes), count);
        if (gathered.size() >= 4 * largeBlock)
            flush();
    }
}

void MessageWriter::pad(std::size_t count) { gathered.append(Padded(count) - count, '\0'); }

void MessageWriter::put(const Value &value, int depth)
{
    const Class type = isTooDeep(value, depth) ? Class::Opaque : value.type;
    put(ValueHeader{static_cast<std::uint8_t>(type), value.imaginary ? complexFlag : std::uint8_t{0}, 0,
                    static_cast<std::uint32_t>(value.dimensionCount)});
    put(value.dimensions, value.dimensionCount * sizeof(std::uint64_t));
    const std::size_t bytes = ElementCount(value) * ElementSize(type);
    for (const void *part : {value.real, value.imaginary}) {
        if (bytes == 0 || !part)
            break;
        put(part, bytes);
        pad(bytes);
    }
    if (type == Class::Cell)
        for (const Value &element : value.elements)
            put(element, depth + 1);
}

void MessageWriter::put(const std::vector<Value> &values)
{
    for (const Value &value : values)
        put(value, 0);
}

bool MessageWriter::flush()
{
    if (!broken && !gathered.empty())
        broken = !sink.write(gathered.data(), gathered.size());
    gathered.clear();
    return !broken;
}

} // namespace wire
