// The native library behind the same messages, for compare.py: what the host process is to the Windows library, without
// what is said about crashes.
#include "host/library.h"
#include "host/value_call.h"
#include "wire/decoder.h"
#include "wire/message_writer.h"

#include <unistd.h>

#include <cstdlib>

namespace {

struct Input final : wire::ByteSource {
    std::size_t read(void *bytes, std::size_t capacity) override
    {
        const ssize_t count = ::read(STDIN_FILENO, bytes, capacity);
        return count < 0 ? 0 : static_cast<std::size_t>(count);
    }
};

struct Output final : wire::ByteSink {
    bool write(const void *bytes, std::size_t count) override
    {
        const auto *next = static_cast<const char *>(bytes);
        while (count > 0) {
            const ssize_t written = ::write(STDOUT_FILENO, next, count);
            if (written <= 0)
                return false;
            next += written;
            count -= static_cast<std::size_t>(written);
        }
        return true;
    }
};

} // namespace

int main()
{
    const host::Library library;
    Input input;
    Output output;
    wire::MessageReader reader(input);
    wire::MessageWriter writer(output);
    wire::Call call;
    host::ValueCall running;
    std::string reason;
    writer.greeting();
    while (reader.next() == wire::MessageReader::Arrival::Message) {
        if (!wire::Decode(reader.payload(), call, reason))
            return EXIT_FAILURE;
        const bool worked = running.run(library.mexFunction(), call.outputs, call.arguments);
        for (const std::string &warning : running.warnings())
            writer.text(wire::Kind::Warning, warning);
        worked ? writer.result(running.results()) : writer.text(wire::Kind::Error, running.error());
        running.release();
    }
    return EXIT_SUCCESS;
}
