// The handles that the host gave. They are lost with it, and another program does not know them.
#pragma once

#include "wire/value.h"

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

class PackageHandles {
public:
    // After command CODE with these arguments worked.
    void note(int code, const std::vector<wire::Value> &arguments, const std::vector<wire::Value> &results);
    void lose(const std::string &reason);
    void clear();

    // What there is to add to the library's words when it refused a handle; empty for one that was not lost.
    std::string explanation(int code, const std::vector<wire::Value> &arguments) const;

private:
    std::set<std::int32_t> open;
    std::map<std::int32_t, std::string> lost;
};
