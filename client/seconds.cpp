#include "client/seconds.h"

#include <cstdio>
#include <cstdlib>

bool ReadSeconds(const char *name, const std::string &text, double &seconds, std::string &error)
{
    if (text.empty())
        return true;
    char *end = nullptr;
    seconds = std::strtod(text.c_str(), &end);
    if (*end == '\0' && seconds > 0)
        return true;
    error = std::string(name) + " is a number of seconds, not '" + text + "'";
    return false;
}

std::string InSeconds(double seconds)
{
    char text[40];
    std::snprintf(text, sizeof text, "%g s", seconds);
    return text;
}
