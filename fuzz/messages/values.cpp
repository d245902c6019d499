#include "fuzz/messages/values.h"

#include <algorithm>
#include <cstring>

using wire::Class;
using wire::Value;

namespace {

constexpr int deepest = 4;
constexpr std::size_t longest = 40; // elements of an array

struct Size {
    Class type;
    std::size_t bytes;
};
constexpr Size sizes[] = {{Class::Logical, 1}, {Class::Char, 2},   {Class::Double, 8}, {Class::Single, 4},
                          {Class::Int8, 1},    {Class::UInt8, 1},  {Class::Int16, 2},  {Class::UInt16, 2},
                          {Class::Int32, 4},   {Class::UInt32, 4}, {Class::Int64, 8},  {Class::UInt64, 8}};

std::size_t sizeOf(Class type)
{
    for (const Size &each : sizes)
        if (each.type == type)
            return each.bytes;
    return 0;
}

std::size_t countOf(const Value &value)
{
    std::size_t count = value.dimensionCount == 0 ? 0 : 1;
    for (std::size_t i = 0; i < value.dimensionCount; ++i)
        count *= value.dimensions[i];
    return count;
}

std::vector<std::size_t> anyShape(FuzzedDataProvider &input)
{
    std::vector<std::size_t> shape(input.ConsumeIntegralInRange<std::size_t>(2, 5), 1);
    std::size_t count = 1;
    for (std::size_t &size : shape) {
        size = input.ConsumeIntegralInRange<std::size_t>(0, longest / (count == 0 ? 1 : count));
        count *= size;
    }
    // Beside a nought any dimension is a dimension.
    if (count == 0 && input.ConsumeBool())
        *std::find_if(shape.begin(), shape.end() - 1, [](std::size_t size) { return size != 0; }) =
            input.ConsumeIntegralInRange<std::size_t>(0, INT64_MAX);
    return shape;
}

const void *anyElements(FuzzedDataProvider &input, Storage &storage, Class type, std::size_t bytes)
{
    std::string elements = input.ConsumeBytesAsString(bytes);
    elements.resize(bytes);
    if (type == Class::Logical)
        for (char &element : elements)
            element &= 1;
    return storage.elements.emplace_back(std::move(elements)).data();
}

} // namespace

Value AnyValue(FuzzedDataProvider &input, Storage &storage, int depth)
{
    Value value;
    const int kind = input.ConsumeIntegralInRange(0, 15);
    if (kind == 0)
        return value;
    const std::vector<std::size_t> &shape = storage.dimensions.emplace_back(anyShape(input));
    value.dimensionCount = shape.size();
    value.dimensions = shape.data();
    value.type = kind < 13 ? sizes[kind - 1].type : kind == 13 || depth >= deepest ? Class::Opaque : Class::Cell;
    const std::size_t count = countOf(value);
    if (value.type == Class::Cell) {
        for (std::size_t i = 0; i < count; ++i)
            value.elements.push_back(AnyValue(input, storage, depth + 1));
    } else if (value.type != Class::Opaque) {
        const std::size_t bytes = count * sizeOf(value.type);
        value.real = anyElements(input, storage, value.type, bytes);
        if (value.type >= Class::Double && input.ConsumeIntegralInRange(0, 3) == 0)
            value.imaginary = anyElements(input, storage, value.type, bytes);
    }
    return value;
}

bool Same(const Value &a, const Value &b)
{
    if (a.type != b.type || a.dimensionCount != b.dimensionCount || !a.imaginary != !b.imaginary)
        return false;
    for (std::size_t i = 0; i < a.dimensionCount; ++i)
        if (a.dimensions[i] != b.dimensions[i])
            return false;
    const std::size_t bytes = countOf(a) * sizeOf(a.type);
    return Same(a.elements, b.elements) &&
           (bytes == 0 || (std::memcmp(a.real, b.real, bytes) == 0 &&
                           (!a.imaginary || std::memcmp(a.imaginary, b.imaginary, bytes) == 0)));
}

bool Same(const std::vector<Value> &a, const std::vector<Value> &b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const Value &one, const Value &other) { return Same(one, other); });
}

std::string Number(std::uint64_t value, int bytes)
{
    std::string written;
    for (int i = 0; i < bytes; ++i, value /= 256)
        written += static_cast<char>(value % 256);
    return written;
}

std::string PaddedText(const std::string &text)
{
    std::string padded = text;
    while (padded.size() % 8 != 0)
        padded += '\0';
    return padded;
}

std::string Written(const Value &value)
{
    std::string written = Number(static_cast<std::uint64_t>(value.type), 1) + Number(value.imaginary ? 1 : 0, 1) +
                          Number(0, 2) + Number(value.dimensionCount, 4);
    for (std::size_t i = 0; i < value.dimensionCount; ++i)
        written += Number(value.dimensions[i], 8);
    const std::size_t bytes = countOf(value) * sizeOf(value.type);
    if (value.real)
        written += PaddedText({static_cast<const char *>(value.real), bytes});
    if (value.imaginary)
        written += PaddedText({static_cast<const char *>(value.imaginary), bytes});
    return written + Written(value.elements);
}

std::string Written(const std::vector<Value> &values)
{
    std::string written;
    for (const Value &value : values)
        written += Written(value);
    return written;
}
