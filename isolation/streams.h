// The two streams between this process and its client: the standard input and output that it was started with. Nothing
// else of the process may get at them, since packages print and read as they like.
#pragma once

#include "platform/platform.h"
#include "wire/bytes.h"

// Takes them for the client alone: who asks for standard input from now on reads nothing, and what is printed goes
// where errors go. False when the process has none.
struct ClientStreams {
    HANDLE in = nullptr;
    HANDLE out = nullptr;
};
bool TakeClientStreams(ClientStreams &streams);

class PipeSource final : public wire::ByteSource {
public:
    explicit PipeSource(HANDLE from) : pipe(from) {}
    std::size_t read(void *bytes, std::size_t capacity) override;

private:
    HANDLE pipe;
};

class PipeSink final : public wire::ByteSink {
public:
    explicit PipeSink(HANDLE to) : pipe(to) {}
    bool write(const void *bytes, std::size_t count) override;

private:
    HANDLE pipe;
};
