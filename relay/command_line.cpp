#include "relay/command_line.h"

#include <string>
#include <string_view>

namespace {

struct Switch {
    std::string_view word;
    RelayTask task;
};

constexpr Switch switches[] = {
    {"regserver", RelayTask::RegisterServer},
    {"unregserver", RelayTask::UnregisterServer},
    {"regtypelib", RelayTask::RegisterTypeLibrary},
    {"unregtypelib", RelayTask::UnregisterTypeLibrary},
    {"embedding", RelayTask::Serve},
};

} // namespace

RelayTask TaskOf(const char *commandLine)
{
    const std::string_view line = commandLine ? commandLine : "";
    if (line.empty() || (line[0] != '/' && line[0] != '-'))
        return RelayTask::None;
    std::string word(line.substr(1, line.find(' ') - 1));
    for (char &c : word)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c + ('a' - 'A'));
    for (const Switch &entry : switches)
        if (word == entry.word)
            return entry.task;
    return RelayTask::None;
}
