#include "tests/soak/process_size.h"

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>

ProcessSize CurrentProcessSize()
{
    ProcessSize size;
    std::ifstream statistics("/proc/self/statm");
    std::size_t whole = 0;
    std::size_t resident = 0;
    std::size_t shared = 0;
    statistics >> whole >> resident >> shared;
    size.memory = (resident - shared) * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    const std::filesystem::directory_iterator files("/proc/self/fd");
    size.handles = static_cast<std::size_t>(std::distance(begin(files), end(files)));
    return size;
}
