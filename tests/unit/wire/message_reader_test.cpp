#include "tests/unit/support/allocation_watch.h"
#include "tests/unit/wire/written_bytes.h"
#include "wire/message_reader.h"

#include <gtest/gtest.h>

using Arrival = wire::MessageReader::Arrival;

namespace {

std::string contentOf(const wire::MessageReader &reader)
{
    return {reinterpret_cast<const char *>(reader.payload().bytes), reader.payload().size};
}

TEST(MessageReader, ReadsMessagesInPiecesOfAnySize)
{
    const std::string large(3'000'000, 'x');
    const std::string all =
        Bytes().text("12345678").frame(7).add(Bytes().frame(2)).add(Bytes().text(large).frame(9)).all();
    for (const std::size_t piece : {SIZE_MAX, std::size_t{1}, std::size_t{7}, std::size_t{4097}}) {
        Stream stream(all, piece);
        wire::MessageReader reader(stream);
        ASSERT_EQ(reader.next(), Arrival::Message);
        EXPECT_EQ(reader.kind(), wire::Kind{7});
        EXPECT_EQ(contentOf(reader), "12345678");
        ASSERT_EQ(reader.next(), Arrival::Message);
        EXPECT_EQ(reader.kind(), wire::Kind::Unload);
        EXPECT_EQ(contentOf(reader), "");
        ASSERT_EQ(reader.next(), Arrival::Message);
        EXPECT_EQ(contentOf(reader), large);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(reader.payload().bytes) % 8, 0u);
        EXPECT_EQ(reader.next(), Arrival::End);
    }
}

TEST(MessageReader, WaitsForMoreWithoutLosingAnything)
{
    for (const std::size_t piece : {SIZE_MAX, std::size_t{1}}) {
        Stream stream(Bytes().text("12345678").frame(7).add(Bytes().frame(2)).all(), piece);
        wire::MessageReader reader(stream);
        ASSERT_EQ(reader.next(), Arrival::Message);
        EXPECT_TRUE(reader.waitForMore());
        EXPECT_EQ(contentOf(reader), "12345678");
        ASSERT_EQ(reader.next(), Arrival::Message);
        EXPECT_EQ(reader.kind(), wire::Kind::Unload);
        EXPECT_FALSE(reader.waitForMore());
    }
}

TEST(MessageReader, BelievesALengthAsBytesArrive)
{
    Stream stream(Bytes().u32(1).u32(0).u64(std::uint64_t{1} << 40).zeros(3'000'000).all());
    wire::MessageReader reader(stream);
    EXPECT_EQ(reader.next(), Arrival::Broken);
    EXPECT_EQ(reader.reason(), "the stream ended at byte 3000016 of a message");
    EXPECT_LE(stream.largestRequest, std::size_t{1} << 21);
    EXPECT_EQ(reader.payload().size, 0u);
}

TEST(MessageReader, LetsAMessagePassThatThereIsNoRoomFor)
{
    Stream stream(Bytes().zeros(3'000'000).frame(7).add(Bytes().text("12345678").frame(8)).all());
    for (const std::size_t block : {std::size_t{1}, std::size_t{2}, std::size_t{3}}) {
        stream.at = 0;
        wire::MessageReader reader(stream);
        {
            const FailingAllocation failing(block);
            EXPECT_EQ(reader.next(), Arrival::NoRoom);
        }
        EXPECT_EQ(reader.reason(), "no memory for a message of 3000000 bytes");
        EXPECT_EQ(reader.kind(), wire::Kind{7});
        EXPECT_EQ(reader.payload().size, 0u);
        ASSERT_EQ(reader.next(), Arrival::Message);
        EXPECT_EQ(contentOf(reader), "12345678");
    }
}

TEST(MessageReader, TellsWhereTheStreamEnded)
{
    const std::string all = Bytes().text("12345678").frame(7).all();
    for (std::size_t size = 1; size < all.size(); ++size) {
        Stream stream(all.substr(0, size));
        wire::MessageReader reader(stream);
        EXPECT_EQ(reader.next(), Arrival::Broken);
        EXPECT_EQ(reader.reason(), "the stream ended at byte " + std::to_string(size) + " of a message");
    }
}

TEST(MessageReader, RefusesHeadersThatAreNone)
{
    const struct {
        Bytes bytes;
        const char *reason;
    } cases[] = {
        {Bytes().u32(1).u32(1).u64(0), "byte 4 of a message: reserved bytes that are not 0"},
        {Bytes().u32(1).u32(0).u64(9), "byte 8 of a message: a length that is no multiple of 8"},
        {Bytes().u32(1).u32(0).u64((std::uint64_t{1} << 40) + 8), "byte 8 of a message: a length beyond 2^40"},
        {Bytes().u32(1).u32(0).u64(~std::uint64_t{7}), "byte 8 of a message: a length beyond 2^40"},
    };
    for (const auto &each : cases) {
        Stream stream(each.bytes.all());
        wire::MessageReader reader(stream);
        EXPECT_EQ(reader.next(), Arrival::Broken);
        EXPECT_EQ(reader.reason(), each.reason);
    }
}

TEST(MessageReader, KnowsTheGreetingOfAHost)
{
    const struct {
        Bytes bytes;
        const char *reason; // null for none
    } cases[] = {
        {Bytes().text("VERDANTH").u32(1).u32(0), nullptr},
        {Bytes().text("VERDANTH").u32(1).u8(0), "it ended before it had greeted"},
        {Bytes(), "it ended before it had greeted"},
        {Bytes().text("verdanth").u32(1).u32(0), "it did not greet as a host of Verdanth does"},
        {Bytes().text("VERDANTH").u32(2).u32(0), "it speaks version 2 of the messages, and not 1"},
    };
    for (const auto &each : cases) {
        Stream stream(each.bytes.all(), 5);
        wire::MessageReader reader(stream);
        EXPECT_EQ(reader.greeting(), !each.reason);
        EXPECT_EQ(reader.reason(), each.reason ? each.reason : "");
    }
}

} // namespace
