// Texts between UTF-16 and code pages.
#pragma once

#include "platform/platform.h"

#include <string>

inline std::string Narrow(UINT codePage, LPCWSTR text) // null is empty
{
    if (!text || !*text)
        return {};
    const int size = WideCharToMultiByte(codePage, 0, text, -1, nullptr, 0, nullptr, nullptr);
    std::string result(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(codePage, 0, text, -1, result.data(), size, nullptr, nullptr);
    result.resize(result.size() - 1); // of its terminator
    return result;
}

inline WideString Widen(UINT codePage, const char *text)
{
    if (!*text)
        return {};
    const int size = MultiByteToWideChar(codePage, 0, text, -1, nullptr, 0);
    WideString result(static_cast<std::size_t>(size), L'\0');
    MultiByteToWideChar(codePage, 0, text, -1, result.data(), size);
    result.resize(result.size() - 1);
    return result;
}
