// The calls of a client made in process, for measure.py:  in_process LIBRARY MESSAGES TIMES
//
// LIBRARY is the file that is called: the library, or what MATLAB calls in its place.
// MESSAGES is a file with calls as they go to a host. The last is made so many times more, and the least time that it
// took is printed in microseconds. A handle is another one in each process: as such it gets what the first call gave.
#include "host/library.h"
#include "host/value_call.h"
#include "wire/decoder.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace {

struct File final : wire::ByteSource {
    explicit File(const char *name) : file(std::fopen(name, "rb")) {}
    std::size_t read(void *bytes, std::size_t capacity) override { return std::fread(bytes, 1, capacity, file); }
    std::FILE *file;
};

} // namespace

int main(int count, char **arguments)
{
    if (count != 4)
        return EXIT_FAILURE;
    const std::string name = arguments[1];
    const host::Library library(mexLEAVE_UNWIND, WideString(name.begin(), name.end()));
    File file(arguments[2]);
    wire::MessageReader reader(file);
    wire::Call call;
    host::ValueCall running;
    std::string reason;
    std::int32_t handle = 0;
    while (reader.next() == wire::MessageReader::Arrival::Message) {
        if (!wire::Decode(reader.payload(), call, reason))
            return EXIT_FAILURE;
        for (wire::Value &argument : call.arguments)
            if (argument.type == wire::Class::Int32)
                argument.real = &handle;
        if (!reader.waitForMore())
            break;
        if (running.run(library.mexFunction(), call.outputs, call.arguments) &&
            running.results()[0].type == wire::Class::Int32)
            handle = *static_cast<const std::int32_t *>(running.results()[0].real);
    }
    double least = 1e99;
    for (int i = std::atoi(arguments[3]); i > 0; --i) {
        const auto start = std::chrono::steady_clock::now();
        if (!running.run(library.mexFunction(), call.outputs, call.arguments)) {
            std::fprintf(stderr, "%s\n", running.error().c_str());
            return EXIT_FAILURE;
        }
        running.release();
        const std::chrono::duration<double, std::micro> passed = std::chrono::steady_clock::now() - start;
        least = std::min(least, passed.count());
    }
    std::printf("%.2f\n", least);
    return EXIT_SUCCESS;
}
