// Numbers of seconds as people write and read them.
#pragma once

#include <string>

// What a setting says; an empty one leaves `seconds` as it is. False when it is no time, and `error` says so of `name`.
bool ReadSeconds(const char *name, const std::string &text, double &seconds, std::string &error);

// "0.5 s"
std::string InSeconds(double seconds);
