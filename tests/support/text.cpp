#include "tests/support/text.h"

#include <cstdint>

namespace support {

WideString Wide(std::string_view utf8)
{
    WideString text;
    for (std::size_t i = 0; i < utf8.size();) {
        const unsigned char first = static_cast<unsigned char>(utf8[i]);
        const int further = first < 0x80 ? 0 : first < 0xE0 ? 1 : first < 0xF0 ? 2 : 3;
        std::uint32_t code = further == 0 ? first : first & (0x3Fu >> further);
        for (int k = 1; k <= further && i + k < utf8.size(); ++k)
            code = code << 6 | (static_cast<unsigned char>(utf8[i + k]) & 0x3Fu);
        i += 1 + further;
        if (code >= 0x10000) {
            text += static_cast<WCHAR>(0xD800 + ((code - 0x10000) >> 10));
            text += static_cast<WCHAR>(0xDC00 + ((code - 0x10000) & 0x3FF));
        } else {
            text += static_cast<WCHAR>(code);
        }
    }
    return text;
}

std::string Narrow(const WideString &text)
{
    std::string utf8;
    for (std::size_t i = 0; i < text.size(); ++i) {
        std::uint32_t code = static_cast<std::uint16_t>(text[i]);
        if (code >= 0xD800 && code < 0xDC00 && i + 1 < text.size())
            code = 0x10000 + ((code - 0xD800) << 10) + (static_cast<std::uint16_t>(text[++i]) - 0xDC00u);
        const int further = code < 0x80 ? 0 : code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
        static constexpr unsigned heads[] = {0, 0xC0, 0xE0, 0xF0};
        utf8 += static_cast<char>(heads[further] | code >> 6 * further);
        for (int k = further - 1; k >= 0; --k)
            utf8 += static_cast<char>(0x80 | (code >> 6 * k & 0x3F));
    }
    return utf8;
}

std::vector<WideString> Names(std::initializer_list<AnyText> texts)
{
    std::vector<WideString> names;
    for (const AnyText &text : texts)
        names.push_back(text.wide);
    return names;
}

} // namespace support
