// Every command: its code, how many arguments it takes and gives, and its body.
#pragma once

#include "gateway/call/command.h"

struct Command {
    int code;
    int arguments;     // exact number of right-hand arguments, the code included
    int fewestResults; // allowed numbers of left-hand arguments
    int mostResults;
    CommandBody body;
};

// The row of a code, or null.
const Command *FindCommand(double code);
