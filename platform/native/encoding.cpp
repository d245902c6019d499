#include "platform/native/encoding.h"

#include <cstdint>

namespace {

constexpr char32_t replacement = 0xFFFD;

bool isHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool isLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

void appendUtf8(std::string &text, char32_t character)
{
    const auto continuation = [&](int shift) { text += static_cast<char>(0x80 | ((character >> shift) & 0x3F)); };
    if (character < 0x80) {
        text += static_cast<char>(character);
    } else if (character < 0x800) {
        text += static_cast<char>(0xC0 | (character >> 6));
        continuation(0);
    } else if (character < 0x10000) {
        text += static_cast<char>(0xE0 | (character >> 12));
        continuation(6);
        continuation(0);
    } else {
        text += static_cast<char>(0xF0 | (character >> 18));
        continuation(12);
        continuation(6);
        continuation(0);
    }
}

void appendUtf16(std::u16string &text, char32_t character)
{
    if (character < 0x10000) {
        text += static_cast<char16_t>(character);
        return;
    }
    text += static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10));
    text += static_cast<char16_t>(0xDC00 + ((character - 0x10000) & 0x3FF));
}

// What the first byte of a sequence tells: how many bytes follow, and the range of the second,
// which excludes overlong forms, surrogates and what lies beyond U+10FFFF.
struct Lead {
    int following; // -1 for a byte that starts nothing
    std::uint8_t low;
    std::uint8_t high;
};

Lead leadOf(std::uint8_t byte)
{
    if (byte < 0x80)
        return {0, 0, 0};
    if (byte < 0xC2)
        return {-1, 0, 0};
    if (byte < 0xE0)
        return {1, 0x80, 0xBF};
    if (byte < 0xF0)
        return {2, static_cast<std::uint8_t>(byte == 0xE0 ? 0xA0 : 0x80),
                static_cast<std::uint8_t>(byte == 0xED ? 0x9F : 0xBF)};
    if (byte < 0xF5)
        return {3, static_cast<std::uint8_t>(byte == 0xF0 ? 0x90 : 0x80),
                static_cast<std::uint8_t>(byte == 0xF4 ? 0x8F : 0xBF)};
    return {-1, 0, 0};
}

// Reads one character at `position` and moves behind it, or behind the longest start of one.
char32_t readUtf8(std::string_view text, std::size_t &position)
{
    const auto first = static_cast<std::uint8_t>(text[position++]);
    Lead lead = leadOf(first);
    if (lead.following < 0)
        return replacement;
    if (lead.following == 0)
        return first;
    char32_t character = first & (0x3F >> lead.following);
    for (int i = 0; i < lead.following; ++i) {
        const auto next = position < text.size() ? static_cast<std::uint8_t>(text[position]) : std::uint8_t{0};
        if (next < lead.low || next > lead.high)
            return replacement;
        character = (character << 6) | (next & 0x3F);
        lead.low = 0x80;
        lead.high = 0xBF;
        ++position;
    }
    return character;
}

} // namespace

std::string native::toUtf8(std::u16string_view text, bool *replaced)
{
    std::string result;
    result.reserve(text.size());
    if (replaced)
        *replaced = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t character = text[i];
        if (isHighSurrogate(character) && i + 1 < text.size() && isLowSurrogate(text[i + 1])) {
            character = 0x10000 + ((character - 0xD800) << 10) + (text[++i] - 0xDC00);
        } else if (isHighSurrogate(character) || isLowSurrogate(character)) {
            character = replacement;
            if (replaced)
                *replaced = true;
        }
        appendUtf8(result, character);
    }
    return result;
}

std::u16string native::toUtf16(std::string_view text)
{
    std::u16string result;
    result.reserve(text.size());
    for (std::size_t position = 0; position < text.size();)
        appendUtf16(result, readUtf8(text, position));
    return result;
}
