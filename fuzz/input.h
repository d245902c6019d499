// What the targets read out of their bytes, beside what the fuzzer's own header offers.
#pragma once

#include "platform/platform.h"

#include <fuzzer/FuzzedDataProvider.h>

#include <array>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <limits>

// A text of up to `longest` characters without a terminator among them: letters from bytes, or any 16-bit characters,
// lone halves of pairs included.
inline WideString AnyText(FuzzedDataProvider &input, std::size_t longest)
{
    const bool isWide = input.ConsumeBool();
    const std::string bytes = input.ConsumeRandomLengthString(isWide ? 2 * longest : longest);
    WideString text;
    if (!isWide) {
        for (const char c : bytes)
            text += static_cast<WCHAR>(static_cast<unsigned char>(c));
    } else {
        for (std::size_t i = 0; i + 1 < bytes.size(); i += 2)
            text += static_cast<WCHAR>(static_cast<unsigned char>(bytes[i]) | static_cast<unsigned char>(bytes[i + 1])
                                                                                  << 8);
    }
    return text.substr(0, text.find(WCHAR{0}));
}

// Where arrays begin: at 0, mostly, or at the ends of what an index can be.
constexpr LONG lowestIndex = std::numeric_limits<LONG>::min();
constexpr LONG highestIndex = std::numeric_limits<LONG>::max();
constexpr LONG lowerBounds[] = {
    0, 1, -1, 42, lowestIndex, lowestIndex + 1, -3, highestIndex, highestIndex - 1, highestIndex - 4, 0, 0, 0, 0, 0, 0};

// A number: an everyday one, one of those at the edges of what a number can be, or any pattern of bits.
inline double AnyNumber(FuzzedDataProvider &input)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    static constexpr std::array edges = {
        0.0,          -0.0,          1.0,      -1.0,      0.5,
        1e-300,       1e308,         -1e308,   5e-324,    1e15,
        2147483648.0, -2147483649.0, infinity, -infinity, std::numeric_limits<double>::quiet_NaN()};
    switch (input.ConsumeIntegralInRange(0, 3)) {
    case 0:
        return input.PickValueInArray(edges);
    case 1: {
        const auto bits = input.ConsumeIntegral<std::uint64_t>();
        double number = 0;
        std::memcpy(&number, &bits, sizeof number);
        return number;
    }
    case 2:
        return input.ConsumeIntegral<std::int16_t>();
    default:
        return input.ConsumeIntegral<std::uint32_t>() / 4294967296.0;
    }
}

// Ends the process, which is how a target tells that something is not as it has to be.
#define FUZZ_CHECK(condition)                                                                                          \
    do {                                                                                                               \
        if (!(condition)) {                                                                                            \
            std::fprintf(stderr, "%s:%d: does not hold: %s\n", __FILE__, __LINE__, #condition);                        \
            std::abort();                                                                                              \
        }                                                                                                              \
    } while (false)
