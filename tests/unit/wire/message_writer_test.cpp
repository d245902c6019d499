// What is written, byte for byte, and that the same comes out of it again.
#include "tests/unit/wire/written_bytes.h"
#include "wire/message_writer.h"

#include <gtest/gtest.h>

#include <cstring>

using wire::Class;
using wire::Value;

namespace {

constexpr std::size_t scalar[] = {1, 1};
constexpr std::size_t pair[] = {1, 2};
constexpr std::size_t triple[] = {3, 1};
constexpr std::size_t none[] = {0, 7};

Value arrayOf(Class type, const std::size_t (&dimensions)[2], const void *real, const void *imaginary = nullptr)
{
    return {type, 2, dimensions, real, imaginary, {}};
}

std::string callOf(int outputs, const std::vector<Value> &arguments)
{
    Written written;
    EXPECT_TRUE(wire::MessageWriter(written).call(outputs, arguments));
    return written.all;
}

// The call with this one argument, as the format has it.
std::string framed(const Bytes &argument) { return Bytes().u32(1).u32(1).add(argument).frame(1).all(); }

bool same(const Value &a, const Value &b)
{
    if (a.type != b.type || a.dimensionCount != b.dimensionCount || !a.imaginary != !b.imaginary ||
        a.elements.size() != b.elements.size())
        return false;
    std::size_t bytes = wire::ElementSize(a.type);
    for (std::size_t i = 0; i < a.dimensionCount; ++i) {
        if (a.dimensions[i] != b.dimensions[i])
            return false;
        bytes *= a.dimensions[i];
    }
    for (std::size_t i = 0; i < a.elements.size(); ++i)
        if (!same(a.elements[i], b.elements[i]))
            return false;
    return bytes == 0 || (std::memcmp(a.real, b.real, bytes) == 0 &&
                          (!a.imaginary || std::memcmp(a.imaginary, b.imaginary, bytes) == 0));
}

void expectSameAgain(const std::vector<Value> &arguments)
{
    Stream stream(callOf(3, arguments));
    wire::MessageReader reader(stream);
    ASSERT_EQ(reader.next(), wire::MessageReader::Arrival::Message) << reader.reason();
    ASSERT_EQ(reader.kind(), wire::Kind::Call);
    wire::Call call;
    std::string reason;
    ASSERT_TRUE(wire::Decode(reader.payload(), call, reason)) << reason;
    EXPECT_EQ(call.outputs, 3);
    ASSERT_EQ(call.arguments.size(), arguments.size());
    for (std::size_t i = 0; i < arguments.size(); ++i)
        EXPECT_TRUE(same(call.arguments[i], arguments[i])) << i;
}

TEST(MessageWriter, GreetsWithItsVersion)
{
    Written written;
    EXPECT_TRUE(wire::MessageWriter(written).greeting());
    EXPECT_EQ(written.all, Bytes().text("VERDANTH").u32(1).u32(0).all());
}

TEST(MessageWriter, WritesACallInOneGo)
{
    const double number = 1.5;
    Written written;
    EXPECT_TRUE(wire::MessageWriter(written).call(2, {arrayOf(Class::Double, scalar, &number)}));
    EXPECT_EQ(written.all, Bytes().u32(2).u32(1).value(6, 0, {1, 1}).f64(1.5).frame(1).all());
    EXPECT_EQ(written.writes, 1u);
}

TEST(MessageWriter, WritesEachClass)
{
    const double doubles[] = {1, -2};
    const float singles[] = {0.5, -0.25};
    const std::int8_t bytes[] = {-1, 2};
    const std::int16_t words[] = {-2, 3};
    const std::int32_t integers[] = {-3, 4};
    const std::int64_t longs[] = {-4, 5};
    const bool truths[] = {true, false};
    const struct {
        Class type;
        const void *elements;
        Bytes bytes;
    } cases[] = {
        {Class::Double, doubles, Bytes().f64(1).f64(-2)},
        {Class::Single, singles, Bytes().f32(0.5).f32(-0.25)},
        {Class::Int8, bytes, Bytes().u8(0xFF).u8(2).zeros(6)},
        {Class::UInt8, bytes, Bytes().u8(0xFF).u8(2).zeros(6)},
        {Class::Int16, words, Bytes().u16(0xFFFE).u16(3).zeros(4)},
        {Class::UInt16, words, Bytes().u16(0xFFFE).u16(3).zeros(4)},
        {Class::Int32, integers, Bytes().u32(0xFFFFFFFD).u32(4)},
        {Class::UInt32, integers, Bytes().u32(0xFFFFFFFD).u32(4)},
        {Class::Int64, longs, Bytes().u64(0xFFFFFFFFFFFFFFFC).u64(5)},
        {Class::UInt64, longs, Bytes().u64(0xFFFFFFFFFFFFFFFC).u64(5)},
        {Class::Logical, truths, Bytes().u8(1).u8(0).zeros(6)},
        {Class::Char, words, Bytes().u16(0xFFFE).u16(3).zeros(4)},
    };
    for (const auto &each : cases) {
        const Value value = arrayOf(each.type, pair, each.elements);
        const auto number = static_cast<std::uint8_t>(each.type);
        EXPECT_EQ(callOf(1, {value}), framed(Bytes().value(number, 0, {1, 2}).add(each.bytes))) << int{number};
        expectSameAgain({value});
        if (!wire::IsNumeric(each.type))
            continue;
        const Value both = arrayOf(each.type, pair, each.elements, each.elements);
        EXPECT_EQ(callOf(1, {both}), framed(Bytes().value(number, 1, {1, 2}).add(each.bytes).add(each.bytes)));
        expectSameAgain({both});
    }
}

TEST(MessageWriter, WritesEmptyArraysAndManyDimensions)
{
    const Value empty = arrayOf(Class::Double, none, nullptr);
    EXPECT_EQ(callOf(1, {empty}), framed(Bytes().value(6, 0, {0, 7})));
    const double parts[] = {0};
    const Value complex = arrayOf(Class::Double, none, nullptr, parts);
    EXPECT_EQ(callOf(1, {complex}), framed(Bytes().value(6, 1, {0, 7})));
    const std::size_t four[] = {2, 1, 1, 1};
    const std::uint8_t elements[] = {8, 9};
    Value block = arrayOf(Class::UInt8, pair, elements);
    block.dimensionCount = 4;
    block.dimensions = four;
    EXPECT_EQ(callOf(1, {block}), framed(Bytes().value(9, 0, {2, 1, 1, 1}).u8(8).u8(9).zeros(6)));
    expectSameAgain({empty, complex, block});
}

TEST(MessageWriter, WritesTextsAsTheyAre)
{
    // A surrogate alone and a zero are as good as other units.
    const char16_t units[] = {u'a', u'\0', static_cast<char16_t>(0xD83D)};
    const Value text = arrayOf(Class::Char, triple, units);
    EXPECT_EQ(callOf(1, {text}), framed(Bytes().value(4, 0, {3, 1}).u16('a').u16(0).u16(0xD83D).u16(0)));
    expectSameAgain({text});
}

TEST(MessageWriter, WritesCellsAndWhatIsNotThere)
{
    const double number = 4;
    Value inner = arrayOf(Class::Cell, scalar, nullptr);
    inner.elements = {arrayOf(Class::Double, scalar, &number)};
    Value cell = arrayOf(Class::Cell, triple, nullptr);
    cell.elements = {inner, Value{}, arrayOf(Class::Opaque, triple, nullptr)};
    EXPECT_EQ(callOf(1, {cell}), framed(Bytes()
                                            .value(1, 0, {3, 1})
                                            .value(1, 0, {1, 1})
                                            .value(6, 0, {1, 1})
                                            .f64(4)
                                            .value(255, 0, {})
                                            .value(0, 0, {3, 1})));
    expectSameAgain({cell, Value{}, inner});
}

TEST(MessageWriter, SaysOfWhatIsTooDeepJustItsSize)
{
    Value cell = arrayOf(Class::Cell, none, nullptr);
    Bytes expected;
    for (int depth = 1; depth <= wire::deepestCell; ++depth) {
        Value outer = arrayOf(Class::Cell, scalar, nullptr);
        outer.elements = {cell};
        cell = outer;
        expected.value(1, 0, {1, 1});
    }
    expected.value(0, 0, {0, 7});
    EXPECT_EQ(callOf(1, {cell}), framed(expected));
    expectSameAgain({cell.elements[0]});
}

TEST(MessageWriter, WritesAnswers)
{
    const std::int32_t number = 7;
    Written written;
    wire::MessageWriter writer(written);
    EXPECT_TRUE(writer.text(wire::Kind::Warning, "\xC3\xA4 is hot"));
    EXPECT_TRUE(writer.result({arrayOf(Class::Int32, scalar, &number)}));
    EXPECT_TRUE(writer.text(wire::Kind::Error, ""));
    EXPECT_TRUE(writer.text(wire::Kind::LastWords, "eight..."));
    EXPECT_TRUE(writer.result({}));
    EXPECT_TRUE(writer.unload());
    EXPECT_EQ(written.all, Bytes()
                               .add(Bytes().u64(9).text("\xC3\xA4 is hot").zeros(7).frame(16))
                               .add(Bytes().u32(1).u32(0).value(12, 0, {1, 1}).u32(7).u32(0).frame(17))
                               .add(Bytes().u64(0).frame(18))
                               .add(Bytes().u64(8).text("eight...").frame(19))
                               .add(Bytes().u32(0).u32(0).frame(17))
                               .add(Bytes().frame(2))
                               .all());
    EXPECT_EQ(written.writes, 6u);
}

TEST(MessageWriter, AsksForNoNumberOfResultsThatTheFormatDoesNotHave)
{
    EXPECT_EQ(callOf(-1, {}), Bytes().u32(0).u32(0).frame(1).all());
    EXPECT_EQ(callOf(65536, {}), Bytes().u32(65535).u32(0).frame(1).all());
}

TEST(MessageWriter, WritesLargeBlocksFromWhereTheyLie)
{
    const std::vector<double> numbers(100'000, 2.5);
    const std::size_t dimensions[] = {100'000, 1};
    const Value large = arrayOf(Class::Double, dimensions, numbers.data());
    Written written;
    EXPECT_TRUE(wire::MessageWriter(written).call(1, {large, large}));
    EXPECT_EQ(written.writes, 4u); // header and block, twice
    EXPECT_EQ(written.all.size(), 16u + 8 + 2 * (24 + 800'000));
    expectSameAgain({large, large});
}

TEST(MessageWriter, TellsThatNobodyReads)
{
    const std::vector<double> numbers(10'000, 2.5);
    const std::size_t dimensions[] = {10'000, 1};
    for (const std::size_t room : {0u, 100u}) {
        Written written;
        written.room = room;
        wire::MessageWriter writer(written);
        EXPECT_FALSE(writer.call(1, {arrayOf(Class::Double, dimensions, numbers.data())}));
        EXPECT_FALSE(writer.unload());
    }
}

} // namespace
