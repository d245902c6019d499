// What the commands of the library are called in scripts, and which of their arguments is a handle.
#pragma once

#include <string>

struct CommandWords {
    int code;
    const char *function;
    int handle;      // the place of the handle among the arguments, the code's is 0; 0 where there is none
    bool calculates; // with the package's models
};

const CommandWords *WordsOf(int code); // null for a code that is none

// "while calculating capeOpenFlash", "in capeOpenCreate", "in command 99"
std::string WhereIn(int code);
