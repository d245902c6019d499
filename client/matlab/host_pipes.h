// A host as a process of Windows.
#pragma once

#include "client/host_process.h"
#include "platform/platform.h"

class HostPipes final : public HostProcess {
public:
    HostPipes() = default;
    HostPipes(const HostPipes &) = delete;
    HostPipes &operator=(const HostPipes &) = delete;
    ~HostPipes() override;

    // False with Windows' reason in `error`. It gets no handle of ours but the pipes, and ends at the latest when this
    // process does.
    bool start(const WideString &program, std::string &error);

    bool isOpen() const override { return input != nullptr; }
    void close() override;
    bool readable(int milliseconds) override;
    std::size_t read(void *bytes, std::size_t capacity, const WaitsOn &waitsOn) override;
    bool write(const void *bytes, std::size_t count, const WaitsOn &waitsOn) override;
    bool runs() override;
    void kill() override;
    std::string howItEnded() const override;
    void leave() override {} // Windows copies no process

private:
    void beginToRead(void *bytes, std::size_t capacity);
    std::size_t finishReading();
    bool waitFor(const OVERLAPPED &transfer, const WaitsOn &waitsOn) const;
    bool launch(const WideString &program, HANDLE (&streams)[3]);

    HANDLE process = nullptr;
    HANDLE job = nullptr;
    HANDLE input = nullptr;  // of the process
    HANDLE output = nullptr; // of the process
    OVERLAPPED reading{};
    OVERLAPPED writing{};
    bool isReading = false; // into `ahead`, or, within read(), where it is wanted
    bool atEnd = false;
    char ahead[65536];
    std::size_t aheadBegin = 0;
    std::size_t aheadEnd = 0;
};
