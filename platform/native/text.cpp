// Comparison of texts, and conversion between 16-bit text and UTF-8.
#include "platform/native/text.h"
#include "platform/native/case_folding.h"
#include "platform/native/encoding.h"

#include <algorithm>
#include <string>

namespace {

// Null comes before every text, the empty one included.
template <class Compare> int compareWithNull(LPCWSTR a, LPCWSTR b, Compare compare)
{
    if (!a || !b)
        return (a != nullptr) - (b != nullptr);
    const int difference = compare(std::u16string_view(a), std::u16string_view(b));
    return (difference > 0) - (difference < 0);
}

bool isGoodCall(LPCVOID text, int length, LPCVOID target, int capacity)
{
    const bool good = text && length != 0 && length >= -1 && capacity >= 0 && (capacity == 0 || target);
    if (!good)
        SetLastError(ERROR_INVALID_PARAMETER);
    return good;
}

// The text to convert: with its terminator if no length is given.
template <class Character> std::basic_string_view<Character> textToConvert(const Character *text, int length)
{
    return {text, length == -1 ? std::char_traits<Character>::length(text) + 1 : static_cast<std::size_t>(length)};
}

// Gives the size when the capacity is 0; writes as much as fits and fails when it is too small.
template <class Character> int deliver(const std::basic_string<Character> &text, Character *target, int capacity)
{
    const int size = static_cast<int>(text.size());
    if (capacity == 0)
        return size;
    std::copy_n(text.data(), std::min(size, capacity), target);
    if (size <= capacity)
        return size;
    SetLastError(ERROR_INSUFFICIENT_BUFFER);
    return 0;
}

} // namespace

int lstrcmpW(LPCWSTR a, LPCWSTR b)
{
    return compareWithNull(a, b, [](std::u16string_view x, std::u16string_view y) { return x.compare(y); });
}

int lstrcmpiW(LPCWSTR a, LPCWSTR b) { return compareWithNull(a, b, native::compareFolded); }

int lstrlenW(LPCWSTR text) { return text ? static_cast<int>(std::char_traits<WCHAR>::length(text)) : 0; }

int WideCharToMultiByte(UINT, DWORD, LPCWSTR text, int length, LPSTR target, int capacity, LPCSTR, BOOL *usedDefault)
{
    if (!isGoodCall(text, length, target, capacity))
        return 0;
    bool replaced = false;
    const std::string converted = native::toUtf8(textToConvert(text, length), &replaced);
    if (usedDefault)
        *usedDefault = replaced;
    return deliver(converted, target, capacity);
}

int MultiByteToWideChar(UINT, DWORD, LPCSTR text, int length, LPWSTR target, int capacity)
{
    if (!isGoodCall(text, length, target, capacity))
        return 0;
    return deliver(native::toUtf16(textToConvert(text, length)), target, capacity);
}
