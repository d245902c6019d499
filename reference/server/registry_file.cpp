// Prints the registration in the format of .reg files, for platforms that fill the class registry from
// such files. The argument is the file name of the library, which lies next to the folder of the .reg file.
#include "reference/server/registration.h"

#include <cstdio>

namespace {

std::string narrow(const WideString &text) { return std::string(text.begin(), text.end()); } // all of it is ASCII

std::string quoted(const WideString &text)
{
    std::string result = "\"";
    for (const char c : narrow(text)) {
        if (c == '"' || c == '\\')
            result += '\\';
        result += c;
    }
    return result + '"';
}

} // namespace

int main(int count, char **arguments)
{
    if (count != 2)
        return 2;
    const std::string_view library = arguments[1];
    std::puts("Windows Registry Editor Version 5.00");
    WideString section;
    const auto print = [&](const WideString &key, const WideString &name, const WideString &value) {
        if (key != section)
            std::printf("\n[HKEY_CLASSES_ROOT\\%s]\n", narrow(key).c_str());
        section = key;
        std::printf("%s=%s\n", name.empty() ? "@" : quoted(name).c_str(), quoted(value).c_str());
        return true;
    };
    return reference::describeRegistration(WideString(library.begin(), library.end()), print) ? 0 : 1;
}
