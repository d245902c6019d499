#include "isolation/text.h"

namespace {

std::string narrow(UINT codePage, LPCWSTR text)
{
    if (!text || !*text)
        return {};
    const int size = WideCharToMultiByte(codePage, 0, text, -1, nullptr, 0, nullptr, nullptr);
    std::string result(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(codePage, 0, text, -1, result.data(), size, nullptr, nullptr);
    result.resize(result.size() - 1); // of its terminator
    return result;
}

} // namespace

std::string Utf8(LPCWSTR text) { return narrow(CP_UTF8, text); }

std::string CodePageText(LPCWSTR text) { return narrow(CP_THREAD_ACP, text); }

// By its manifest the program has UTF-8 for its code page where Windows knows of that.
std::string Utf8OfCodePage(const char *text)
{
    if (!*text || GetACP() == CP_UTF8)
        return text;
    const int size = MultiByteToWideChar(CP_THREAD_ACP, 0, text, -1, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(size), L'\0');
    MultiByteToWideChar(CP_THREAD_ACP, 0, text, -1, wide.data(), size);
    return Utf8(wide.c_str());
}
