// Formatted text: printf formatting into 16-bit text, and the system's messages with inserts.
#include "platform/native/encoding.h"
#include "platform/native/system_messages.h"
#include "platform/native/text.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <string>

namespace {

// A printf conversion of one insert: `format` is what stands between the exclamation marks. The
// conversions of texts and of whole numbers are known.
std::u16string formatInsert(std::u16string_view format, std::uintptr_t argument)
{
    const char16_t conversion = format.empty() ? u's' : format.back();
    if (conversion == u's' || conversion == u'S') {
        const auto *text = reinterpret_cast<LPCWSTR>(argument);
        return text ? text : u"(null)";
    }
    std::string narrow = "%" + native::toUtf8(format.substr(0, format.size() - 1));
    narrow += static_cast<char>(conversion);
    char buffer[128];
    // Arguments are as wide as a pointer, the numbers in them 32 bits.
    std::snprintf(buffer, sizeof buffer, narrow.c_str(), static_cast<UINT>(argument));
    return native::toUtf16(buffer);
}

// Puts the inserts into a message template: %n or %n!format! with n from 1 to 99; %n alone is a
// line end, %0 ends the message, and any other character after % stands for itself.
std::u16string insertArguments(std::u16string_view source, const std::uintptr_t *arguments)
{
    const auto isDigit = [](char16_t c) { return c >= u'0' && c <= u'9'; };
    std::u16string result;
    for (std::size_t i = 0; i < source.size(); ++i) {
        if (source[i] != u'%' || i + 1 == source.size()) {
            result += source[i];
            continue;
        }
        const char16_t next = source[++i];
        if (next == u'0')
            break;
        if (next == u'n') {
            result += u"\r\n";
            continue;
        }
        if (!isDigit(next)) {
            result += next;
            continue;
        }
        std::size_t number = next - u'0';
        if (i + 1 < source.size() && isDigit(source[i + 1]))
            number = number * 10 + (source[++i] - u'0');
        std::u16string_view format;
        if (i + 1 < source.size() && source[i + 1] == u'!') {
            const std::size_t end = source.find(u'!', i + 2);
            if (end != std::u16string_view::npos) {
                format = source.substr(i + 2, end - i - 2);
                i = end;
            }
        }
        result += formatInsert(format, arguments[number - 1]);
    }
    return result;
}

} // namespace

DWORD FormatMessageW(DWORD flags, LPCVOID source, DWORD messageId, DWORD, LPWSTR buffer, DWORD capacity,
                     MessageInserts *arguments)
{
    std::u16string text;
    if (flags & FORMAT_MESSAGE_FROM_STRING) {
        text = static_cast<LPCWSTR>(source);
    } else {
        text = native::toUtf16(native::systemMessage(messageId));
        if (text.empty()) {
            SetLastError(ERROR_MR_MID_NOT_FOUND);
            return 0;
        }
        text += u"\r\n";
    }
    if (!(flags & FORMAT_MESSAGE_IGNORE_INSERTS))
        text = insertArguments(text, reinterpret_cast<const std::uintptr_t *>(arguments));
    if (text.size() >= capacity) {
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return 0;
    }
    std::copy_n(text.c_str(), text.size() + 1, buffer);
    return static_cast<DWORD>(text.size());
}

int swprintf(WCHAR *buffer, std::size_t capacity, const WCHAR *format, ...)
{
    const std::string narrow = native::toUtf8(format);
    std::string formatted(capacity, '\0');
    va_list arguments;
    va_start(arguments, format);
    const int length = std::vsnprintf(formatted.data(), capacity, narrow.c_str(), arguments);
    va_end(arguments);
    if (length < 0 || static_cast<std::size_t>(length) >= capacity)
        return -1;
    std::copy_n(formatted.data(), length + 1, buffer); // ASCII throughout
    return length;
}
