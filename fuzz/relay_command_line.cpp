// The relay's command line, against the same rules read off a list of all spellings.
#include "fuzz/input.h"
#include "relay/command_line.h"

#include <string>

namespace {

struct Word {
    const char *text;
    RelayTask task;
};

constexpr Word words[] = {
    {"RegServer", RelayTask::RegisterServer},
    {"UnregServer", RelayTask::UnregisterServer},
    {"RegTypeLib", RelayTask::RegisterTypeLibrary},
    {"UnregTypeLib", RelayTask::UnregisterTypeLibrary},
    {"Embedding", RelayTask::Serve},
};

char otherCase(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ? static_cast<char>(c ^ 0x20) : c; }

// Character by character, and the end or a blank behind the last.
bool startsWith(const char *line, const char *word)
{
    for (; *word; ++word, ++line)
        if (*line != *word && *line != otherCase(*word))
            return false;
    return *line == '\0' || *line == ' ';
}

RelayTask expectedTask(const char *line)
{
    if (*line != '/' && *line != '-')
        return RelayTask::None;
    for (const Word &word : words)
        if (startsWith(line + 1, word.text))
            return word.task;
    return RelayTask::None;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FUZZ_CHECK(TaskOf(nullptr) == RelayTask::None);
    FuzzedDataProvider input(data, size);
    std::string line;
    if (input.ConsumeBool()) {
        const char marks[] = {'/', '-'};
        line += input.PickValueInArray(marks);
        line += input.PickValueInArray(words).text;
        for (auto bits = input.ConsumeIntegral<std::uint16_t>(); char &c : line) {
            if ((bits & 1) != 0)
                c = otherCase(c);
            bits = static_cast<std::uint16_t>(bits >> 1);
        }
    }
    line += input.ConsumeRemainingBytesAsString();
    FUZZ_CHECK(TaskOf(line.c_str()) == expectedTask(line.c_str()));
    return 0;
}
