#include "wire/decoder.h"

#include <algorithm>
#include <cstring>

namespace wire {

namespace {

constexpr std::uint64_t mostElements = INT64_MAX; // sizes have a sign elsewhere

class Decoder {
public:
    explicit Decoder(Payload payload) : bytes(payload.bytes), left(payload.size) {}

    template <class Field> bool field(Field &result)
    {
        if (!peek(result))
            return false;
        pass(sizeof result);
        return true;
    }

    bool values(std::uint64_t count, int depth, std::vector<Value> &result)
    {
        if (count > left / sizeof(ValueHeader))
            return wrong("more values than the message has room for");
        result.clear();
        result.resize(count);
        return std::all_of(result.begin(), result.end(), [&](Value &each) { return value(each, depth); });
    }

    // `count` bytes where they lie, and their padding.
    bool block(std::uint64_t count, const void *&result)
    {
        if (count > left || Padded(count) > left)
            return wrong("more elements than the message has room for");
        const std::byte *end = bytes + Padded(count);
        if (std::any_of(bytes + count, end, [](std::byte byte) { return byte != std::byte{0}; }))
            return wrong("padding that is not 0");
        result = bytes;
        pass(Padded(count));
        return true;
    }

    bool isAtEnd() { return left == 0 || wrong("the message goes on behind its end"); }

    // At the next byte, or at one that was taken already.
    bool wrong(const char *what, std::size_t before = 0)
    {
        if (reason.empty())
            reason = "byte " + std::to_string(sizeof(FrameHeader) + passed - before) + " of a message: " + what;
        return false;
    }

    std::string reason;

private:
    template <class Field> bool peek(Field &result)
    {
        if (left < sizeof result)
            return wrong("the message ends too early");
        std::memcpy(&result, bytes, sizeof result);
        return true;
    }

    void pass(std::size_t count)
    {
        bytes += count;
        left -= count;
        passed += count;
    }

    bool value(Value &result, int depth)
    {
        ValueHeader header;
        if (!peek(header))
            return false;
        result.type = static_cast<Class>(header.type);
        const bool isKnown = ElementSize(result.type) > 0 || result.type == Class::Cell ||
                             result.type == Class::Opaque || result.type == Class::Missing;
        if (!isKnown)
            return wrong("a class that there is not");
        const bool isComplex = header.flags == complexFlag && IsNumeric(result.type);
        if (header.flags != 0 && !isComplex)
            return wrong("flags that this class does not have");
        if (header.reserved != 0)
            return wrong("reserved bytes that are not 0");
        const bool isMissing = result.type == Class::Missing;
        if (isMissing ? header.dimensionCount != 0 : header.dimensionCount < 2)
            return wrong("a number of dimensions that this class does not have");
        pass(sizeof header);
        result.dimensionCount = header.dimensionCount;
        std::uint64_t count = 0;
        if (isMissing)
            return true;
        if (!dimensions(result, count))
            return false;
        return result.type == Class::Cell ? cell(result, count, depth) : elements(result, count, isComplex);
    }

    bool dimensions(Value &result, std::uint64_t &count)
    {
        if (result.dimensionCount > left / sizeof(std::uint64_t))
            return wrong("more dimensions than the message has room for");
        result.dimensions = reinterpret_cast<const std::size_t *>(bytes);
        const std::size_t *end = result.dimensions + result.dimensionCount;
        if (std::any_of(result.dimensions, end, [](std::size_t size) { return size > mostElements; }))
            return wrong("a dimension beyond 2^63");
        count = 1;
        if (std::find(result.dimensions, end, 0u) != end)
            count = 0;
        for (const std::size_t *size = result.dimensions; count > 0 && size != end; ++size) {
            if (*size > mostElements / count)
                return wrong("more elements than 2^63");
            count *= *size;
        }
        pass(result.dimensionCount * sizeof(std::uint64_t));
        return true;
    }

    bool cell(Value &result, std::uint64_t count, int depth)
    {
        if (depth >= deepestCell)
            return wrong("cells that are too deep");
        return values(count, depth + 1, result.elements);
    }

    bool elements(Value &result, std::uint64_t count, bool isComplex)
    {
        const std::size_t size = ElementSize(result.type);
        if (size == 0)
            return true;
        if (count > left / size)
            return wrong("more elements than the message has room for");
        const std::byte *first = bytes;
        if (result.type == Class::Logical &&
            std::any_of(first, first + count, [](std::byte byte) { return byte > std::byte{1}; }))
            return wrong("a logical that is neither 0 nor 1");
        return block(count * size, result.real) && (!isComplex || block(count * size, result.imaginary));
    }

    const std::byte *bytes;
    std::size_t left;
    std::size_t passed = 0;
};

bool decodeCall(Decoder &decoder, Call &call)
{
    CallHeader header;
    if (!decoder.field(header))
        return false;
    if (header.outputs < 0 || header.outputs > mostOutputs)
        return decoder.wrong("a number of results that nobody can ask for", sizeof header);
    call.outputs = header.outputs;
    return decoder.values(header.arguments, 0, call.arguments) && decoder.isAtEnd();
}

bool decodeResults(Decoder &decoder, std::vector<Value> &results)
{
    ResultHeader header;
    if (!decoder.field(header))
        return false;
    if (header.reserved != 0)
        return decoder.wrong("reserved bytes that are not 0", sizeof header.reserved);
    return decoder.values(header.count, 0, results) && decoder.isAtEnd();
}

bool decodeWords(Decoder &decoder, std::string_view &words)
{
    std::uint64_t length = 0;
    const void *bytes = nullptr;
    if (!decoder.field(length) || !decoder.block(length, bytes))
        return false;
    words = {static_cast<const char *>(bytes), length};
    return decoder.isAtEnd();
}

template <class Content, class Steps> bool decode(Payload payload, Content &content, std::string &reason, Steps steps)
{
    Decoder decoder(payload);
    if (steps(decoder, content))
        return true;
    reason = decoder.reason;
    return false;
}

} // namespace

bool Decode(Payload payload, Call &call, std::string &reason) { return decode(payload, call, reason, decodeCall); }

bool Decode(Payload payload, std::vector<Value> &results, std::string &reason)
{
    return decode(payload, results, reason, decodeResults);
}

bool Decode(Payload payload, std::string_view &words, std::string &reason)
{
    return decode(payload, words, reason, decodeWords);
}

bool DecodeNothing(Payload payload, std::string &reason)
{
    Decoder decoder(payload);
    const bool isEmpty = decoder.isAtEnd();
    reason = decoder.reason;
    return isEmpty;
}

} // namespace wire
