// Bytes that are no messages. What is one is read again in message_writer_test.cpp.
#include "tests/unit/wire/written_bytes.h"
#include "wire/decoder.h"

#include <gtest/gtest.h>

namespace {

// Why these bytes are no call; empty if they are one.
std::string complaintOf(const Bytes &bytes)
{
    wire::Call call;
    std::string reason;
    const bool isCall = wire::Decode(bytes.payload(), call, reason);
    EXPECT_EQ(isCall, reason.empty());
    return reason;
}

Bytes oneArgument() { return Bytes().u32(1).u32(1); }

TEST(Decoder, EndsAtEachTruncationWithAReason)
{
    const Bytes all = Bytes()
                          .u32(1)
                          .u32(4)
                          .value(1, 0, {1, 2})
                          .value(6, 1, {1, 1})
                          .f64(1)
                          .f64(2)
                          .value(255, 0, {})
                          .value(4, 0, {1, 3})
                          .u16('a')
                          .u16('b')
                          .u16('c')
                          .u16(0)
                          .value(0, 0, {2, 2})
                          .value(3, 0, {1, 1})
                          .u8(1)
                          .zeros(7);
    EXPECT_EQ(complaintOf(all), "");
    for (std::size_t size = 0; size < all.all().size(); ++size)
        EXPECT_NE(complaintOf(Bytes().text(all.all().substr(0, size))), "") << size;
    EXPECT_EQ(complaintOf(Bytes().add(all).zeros(8)),
              "byte " + std::to_string(16 + all.all().size()) + " of a message: the message goes on behind its end");
}

TEST(Decoder, SaysWhatIsWrongAndWhere)
{
    constexpr std::uint64_t huge = std::uint64_t{1} << 62;
    const struct {
        Bytes bytes;
        const char *reason;
    } cases[] = {
        {Bytes(), "byte 16 of a message: the message ends too early"},
        {Bytes().u32(0xFFFFFFFF).u32(0), "byte 16 of a message: a number of results that nobody can ask for"},
        {Bytes().u32(65536).u32(0), "byte 16 of a message: a number of results that nobody can ask for"},
        {Bytes().u32(1).u32(0xFFFFFFFF), "byte 24 of a message: more values than the message has room for"},
        {oneArgument().value(2, 0, {1, 1}), "byte 24 of a message: a class that there is not"},
        {oneArgument().value(5, 0, {1, 1}), "byte 24 of a message: a class that there is not"},
        {oneArgument().value(16, 0, {1, 1}), "byte 24 of a message: a class that there is not"},
        {oneArgument().value(254, 0, {1, 1}), "byte 24 of a message: a class that there is not"},
        {oneArgument().value(6, 2, {0, 0}), "byte 24 of a message: flags that this class does not have"},
        {oneArgument().value(4, 1, {0, 0}), "byte 24 of a message: flags that this class does not have"},
        {oneArgument().value(3, 1, {0, 0}), "byte 24 of a message: flags that this class does not have"},
        {oneArgument().value(1, 1, {0, 0}), "byte 24 of a message: flags that this class does not have"},
        {oneArgument().value(0, 1, {0, 0}), "byte 24 of a message: flags that this class does not have"},
        {oneArgument().value(255, 1, {}), "byte 24 of a message: flags that this class does not have"},
        {oneArgument().u8(6).u8(0).u16(256).u32(2).u64(0).u64(0),
         "byte 24 of a message: reserved bytes that are not 0"},
        {oneArgument().value(255, 0, {1, 1}),
         "byte 24 of a message: a number of dimensions that this class does not have"},
        {oneArgument().value(6, 0, {1}), "byte 24 of a message: a number of dimensions that this class does not have"},
        {oneArgument().value(0, 0, {}), "byte 24 of a message: a number of dimensions that this class does not have"},
        {oneArgument().u8(6).u8(0).u16(0).u32(0xFFFFFFFF).u64(1).u64(1),
         "byte 32 of a message: more dimensions than the message has room for"},
        {oneArgument().value(6, 0, {0, ~std::uint64_t{0}}), "byte 32 of a message: a dimension beyond 2^63"},
        {oneArgument().value(0, 0, {huge, 2}), "byte 32 of a message: more elements than 2^63"},
        {oneArgument().value(6, 0, {huge, huge}), "byte 32 of a message: more elements than 2^63"},
        {oneArgument().value(6, 0, {huge, 1}).f64(1),
         "byte 48 of a message: more elements than the message has room for"},
        {oneArgument().value(6, 0, {1, 2}).f64(1), "byte 48 of a message: more elements than the message has room for"},
        {oneArgument().value(6, 1, {1, 1}).f64(1), "byte 56 of a message: more elements than the message has room for"},
        {oneArgument().value(1, 0, {huge, 1}), "byte 48 of a message: more values than the message has room for"},
        {oneArgument().value(1, 0, {1, 2}).value(255, 0, {}),
         "byte 48 of a message: more values than the message has room for"},
        {oneArgument().value(8, 0, {1, 3}).u8(1).u8(2).u8(3).u8(4).zeros(4),
         "byte 48 of a message: padding that is not 0"},
        {oneArgument().value(8, 0, {1, 3}).u8(1).u8(2).u8(3).zeros(4).u8(1),
         "byte 48 of a message: padding that is not 0"},
        {oneArgument().value(3, 0, {1, 2}).u8(1).u8(2).zeros(6),
         "byte 48 of a message: a logical that is neither 0 nor 1"},
    };
    for (const auto &each : cases)
        EXPECT_EQ(complaintOf(each.bytes), each.reason);
}

TEST(Decoder, TakesCellsAsDeepAsTheFormatHasThem)
{
    Bytes bytes = oneArgument();
    for (int depth = 1; depth < wire::deepestCell; ++depth)
        bytes.value(1, 0, {1, 1});
    EXPECT_EQ(complaintOf(Bytes().add(bytes).value(1, 0, {0, 0})), "");
    EXPECT_EQ(complaintOf(bytes.value(1, 0, {1, 1}).value(1, 0, {0, 0})),
              "byte " + std::to_string(16 + 8 + 33 * 24) + " of a message: cells that are too deep");
}

TEST(Decoder, TakesAnyDimensionBesideANought)
{
    constexpr std::uint64_t largest = INT64_MAX;
    EXPECT_EQ(complaintOf(oneArgument().value(6, 0, {largest, 0, largest})), "");
    EXPECT_EQ(complaintOf(oneArgument().value(0, 0, {largest, 1})), "");
}

TEST(Decoder, ForgetsWhatItHadReadBefore)
{
    const Bytes first = Bytes().u32(1).u32(0).value(6, 1, {1, 1}).f64(1).f64(2);
    const Bytes second = Bytes().u32(1).u32(0).value(255, 0, {});
    std::vector<wire::Value> results;
    std::string reason;
    ASSERT_TRUE(wire::Decode(first.payload(), results, reason));
    EXPECT_NE(results[0].imaginary, nullptr);
    ASSERT_TRUE(wire::Decode(second.payload(), results, reason));
    EXPECT_EQ(results[0].imaginary, nullptr);
    EXPECT_EQ(results[0].real, nullptr);
}

TEST(Decoder, ReadsAnswers)
{
    std::vector<wire::Value> results;
    std::string_view words;
    std::string reason;
    const Bytes empty = Bytes().u32(0).u32(0);
    EXPECT_TRUE(wire::Decode(empty.payload(), results, reason));
    EXPECT_TRUE(results.empty());
    const Bytes reserved = Bytes().u32(0).u32(1);
    EXPECT_FALSE(wire::Decode(reserved.payload(), results, reason));
    EXPECT_EQ(reason, "byte 20 of a message: reserved bytes that are not 0");
    const Bytes text = Bytes().u64(3).text(std::string("a\0c", 3)).zeros(5);
    EXPECT_TRUE(wire::Decode(text.payload(), words, reason));
    EXPECT_EQ(words, std::string_view("a\0c", 3));
    const Bytes longer = Bytes().u64(~std::uint64_t{0}).text("abc").zeros(5);
    EXPECT_FALSE(wire::Decode(longer.payload(), words, reason));
    EXPECT_EQ(reason, "byte 24 of a message: more elements than the message has room for");
    EXPECT_TRUE(wire::DecodeNothing({}, reason));
    EXPECT_FALSE(wire::DecodeNothing(empty.payload(), reason));
    EXPECT_EQ(reason, "byte 16 of a message: the message goes on behind its end");
}

} // namespace
