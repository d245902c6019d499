// A MATLAB session in small: arguments as arrays, a call of the library, results to read.
#pragma once

#include "platform/matlab/standin.h"

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

using Arrays = std::vector<mxArray *>;

mxArray *Number(double value);
mxArray *Column(const std::vector<double> &values);
mxArray *Row(const std::vector<double> &values);
mxArray *Text(std::string_view ascii);
mxArray *Texts(std::initializer_list<std::string_view> ascii);

std::string TextOf(const mxArray *row);                // UTF-8
std::vector<std::string> TextsOf(const mxArray *cell); // UTF-8

// The library, loaded by name as MATLAB loads it. A call that raises ends the program with its
// message.
class Session {
public:
    Session();
    ~Session(); // clears the library, as MATLAB does when it quits
    Session(const Session &) = delete;
    Session &operator=(const Session &) = delete;

    // Calls command `code`. Arguments are destroyed afterwards; results live as long as the session.
    Arrays call(int code, std::size_t resultCount, const Arrays &arguments);
    mxArray *call(int code, const Arrays &arguments) { return call(code, 1, arguments).front(); }

    // The same package handle as a new argument.
    static mxArray *copyOfHandle(const mxArray *handle);

private:
    HMODULE library = nullptr;
    MexFunction function = nullptr;
    Arrays results;
};
