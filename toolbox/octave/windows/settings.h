// What the user chooses by variables of the environment, where scripts and workers find it, too.
#pragma once

#include "client/seconds.h"

#include <string>

struct Settings {
    std::string prefix; // the Wine prefix
    std::string files;  // the folder of the Windows files; empty where they are found by themselves
    std::string loader; // of Wine; empty where it is found by itself
    Limits limits;
};

// False when a variable has a value that can not be, and `error` says so.
bool ReadSettings(Settings &settings, std::string &error);
