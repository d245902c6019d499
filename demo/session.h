// A MATLAB session in small: commands of the library, whose texts are to be printed.
#pragma once

#include "host/library.h"

// The texts of results, as UTF-8.
std::string Printable(const WideString &text);
std::vector<std::string> Printable(const std::vector<WideString> &texts);

// A call that raises ends the program with its message.
class Session {
public:
    Session(); // ends the program when the library is not there

    // Calls command `code`.
    std::vector<host::Array> call(int code, int resultCount, const std::vector<host::Array> &arguments);
    host::Array call(int code, const std::vector<host::Array> &arguments) { return call(code, 1, arguments).front(); }

private:
    host::Library library;
};
