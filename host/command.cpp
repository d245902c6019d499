#include "host/command.h"

#include <cstdio>
#include <cstdlib>

namespace host {

std::vector<Array> Command(MexFunction function, int code, int resultCount, const std::vector<Array> &arguments)
{
    std::vector<Array> all;
    all.reserve(1 + arguments.size());
    all.push_back(Scalar(code));
    all.insert(all.end(), arguments.begin(), arguments.end());
    CallResult result = Call(function, resultCount, all);
    if (!result.returned) {
        std::fprintf(stderr, "Command %d failed: %s\n", code, result.error.c_str());
        std::exit(EXIT_FAILURE);
    }
    return std::move(result.outputs);
}

} // namespace host
