// Numbers of seconds as people write and read them.
#pragma once

#include <string>

// What the user allows by variables of the environment.
struct Limits {
    double call = 0;   // 0 for as long as it takes
    double start = 60; // of a host
};

// `variable` gives what one is set to; those that are empty leave a limit as it is. False when one is no time, and
// `error` says so.
bool ReadLimits(std::string (*variable)(const char *name), Limits &limits, std::string &error);

// "0.5 s"
std::string InSeconds(double seconds);
