// Messages between a client and its host: those that are made of values come out as the same values, and of bytes those
// that are understood are written again as the same bytes. Whatever is understood becomes arrays.
#include "fuzz/messages/values.h"
#include "host/array_values.h"
#include "wire/decoder.h"
#include "wire/message_writer.h"

#include <algorithm>
#include <cstring>

namespace {

using Arrival = wire::MessageReader::Arrival;

struct Sink final : wire::ByteSink {
    bool write(const void *bytes, std::size_t count) override
    {
        all.append(static_cast<const char *>(bytes), count);
        return true;
    }
    std::string all;
};

struct Source final : wire::ByteSource {
    Source(const std::string &bytes, std::size_t largest) : all(bytes), piece(largest) {}
    std::size_t read(void *bytes, std::size_t capacity) override
    {
        const std::size_t count = std::min({capacity, piece, all.size() - at});
        std::memcpy(bytes, all.data() + at, count);
        at += count;
        return count;
    }
    const std::string &all;
    std::size_t piece;
    std::size_t at = 0;
};

void useInArrays(const std::vector<wire::Value> &values)
{
    for (const wire::Value &value : values) {
        mxArray *array = host::ArrayOf(value);
        FUZZ_CHECK(!array == (value.type == wire::Class::Missing));
        const wire::Value again = host::ValueOf(array);
        FUZZ_CHECK(again.type == value.type && again.elements.size() == value.elements.size());
        mxDestroyArray(array);
    }
    FUZZ_CHECK(mxStandInLiveArrays() == 0);
}

// The message once more, written from what was understood; empty when it was refused.
std::string rewritten(const wire::MessageReader &reader)
{
    Sink sink;
    wire::MessageWriter writer(sink);
    wire::Call call;
    std::vector<wire::Value> results;
    std::string_view words;
    std::string reason;
    bool understood = false;
    switch (reader.kind()) {
    case wire::Kind::Call:
        understood = wire::Decode(reader.payload(), call, reason);
        if (understood) {
            useInArrays(call.arguments);
            writer.call(call.outputs, call.arguments);
        }
        break;
    case wire::Kind::Unload:
        understood = wire::DecodeNothing(reader.payload(), reason);
        writer.unload();
        break;
    case wire::Kind::Result:
        understood = wire::Decode(reader.payload(), results, reason);
        if (understood) {
            useInArrays(results);
            writer.result(results);
        }
        break;
    case wire::Kind::Warning:
    case wire::Kind::Error:
    case wire::Kind::LastWords:
        understood = wire::Decode(reader.payload(), words, reason);
        writer.text(reader.kind(), words);
        break;
    default:
        return {};
    }
    FUZZ_CHECK(understood == reason.empty());
    return understood ? sink.all : std::string();
}

void readAnything(const std::string &bytes, std::size_t piece)
{
    Source source(bytes, piece);
    wire::MessageReader reader(source);
    std::size_t at = 0;
    Arrival arrival = reader.next();
    for (; arrival == Arrival::Message; arrival = reader.next()) {
        const std::size_t size = sizeof(wire::FrameHeader) + reader.payload().size;
        const std::string again = rewritten(reader);
        FUZZ_CHECK(again.empty() || again == bytes.substr(at, size));
        at += size;
    }
    FUZZ_CHECK((arrival != Arrival::End) == !reader.reason().empty());
    FUZZ_CHECK(arrival != Arrival::End || at == bytes.size());
}

std::string framed(wire::Kind kind, const std::string &content)
{
    return Number(static_cast<std::uint32_t>(kind), 4) + Number(0, 4) + Number(content.size(), 8) + content;
}

// The same message by the writer, and by the format.
std::string anyMessage(FuzzedDataProvider &input)
{
    Storage storage;
    std::vector<wire::Value> values;
    for (int count = input.ConsumeIntegralInRange(0, 4); count > 0; --count)
        values.push_back(AnyValue(input, storage));
    Sink sink;
    wire::MessageWriter writer(sink);
    std::string expected;
    std::string reason;
    switch (input.ConsumeIntegralInRange(0, 2)) {
    case 0: {
        const int outputs = input.ConsumeIntegralInRange(0, 65535);
        writer.call(outputs, values);
        expected = framed(wire::Kind::Call,
                          Number(static_cast<std::uint64_t>(outputs), 4) + Number(values.size(), 4) + Written(values));
        Source source(sink.all, SIZE_MAX);
        wire::MessageReader reader(source);
        wire::Call call;
        FUZZ_CHECK(reader.next() == Arrival::Message && wire::Decode(reader.payload(), call, reason));
        FUZZ_CHECK(call.outputs == outputs && Same(call.arguments, values));
        break;
    }
    case 1: {
        writer.result(values);
        expected = framed(wire::Kind::Result, Number(values.size(), 4) + Number(0, 4) + Written(values));
        Source source(sink.all, SIZE_MAX);
        wire::MessageReader reader(source);
        std::vector<wire::Value> results;
        FUZZ_CHECK(reader.next() == Arrival::Message && wire::Decode(reader.payload(), results, reason));
        FUZZ_CHECK(Same(results, values));
        break;
    }
    default: {
        const std::string words = input.ConsumeRandomLengthString(40);
        writer.text(wire::Kind::Error, words);
        expected = framed(wire::Kind::Error, Number(words.size(), 8) + PaddedText(words));
    }
    }
    FUZZ_CHECK(sink.all == expected);
    return expected;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FuzzedDataProvider input(data, size);
    const std::size_t piece = input.ConsumeIntegralInRange<std::size_t>(1, 5000);
    if (input.ConsumeBool()) {
        readAnything(input.ConsumeRemainingBytesAsString(), piece);
        return 0;
    }
    std::string bytes = anyMessage(input);
    for (int changes = input.ConsumeIntegralInRange(0, 3); changes > 0; --changes)
        bytes[input.ConsumeIntegralInRange<std::size_t>(0, bytes.size() - 1)] = input.ConsumeIntegral<char>();
    readAnything(bytes, piece);
    return 0;
}
