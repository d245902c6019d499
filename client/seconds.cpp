#include "client/seconds.h"

#include <cstdio>
#include <cstdlib>

namespace {

bool readSeconds(const char *name, const std::string &text, double &seconds, std::string &error)
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

} // namespace

bool ReadLimits(std::string (*variable)(const char *name), Limits &limits, std::string &error)
{
    const auto read = [&](const char *name, double &seconds) {
        return readSeconds(name, variable(name), seconds, error);
    };
    return read("VERDANTH_TIME_LIMIT", limits.call) && read("VERDANTH_START_LIMIT", limits.start);
}

std::string InSeconds(double seconds)
{
    char text[40];
    std::snprintf(text, sizeof text, "%g s", seconds);
    return text;
}
