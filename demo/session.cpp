#include "demo/session.h"

#include "host/command.h"

#include <cstdio>
#include <cstdlib>

std::string Printable(const WideString &text)
{
    const int length = static_cast<int>(text.size());
    if (length == 0)
        return {};
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, utf8.data(), size, nullptr, nullptr);
    return utf8;
}

std::vector<std::string> Printable(const std::vector<WideString> &texts)
{
    std::vector<std::string> all;
    all.reserve(texts.size());
    for (const WideString &text : texts)
        all.push_back(Printable(text));
    return all;
}

Session::Session()
{
    if (!library.loaded()) {
        std::fputs("The library Verdanth could not be loaded; it has to lie beside this program.\n", stderr);
        std::exit(EXIT_FAILURE);
    }
}

std::vector<host::Array> Session::call(int code, int resultCount, const std::vector<host::Array> &arguments)
{
    return host::Command(library.mexFunction(), code, resultCount, arguments);
}
