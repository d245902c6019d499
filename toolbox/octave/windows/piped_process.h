// A host as a process with pipes of this system.
#pragma once

#include "client/host_process.h"
#include "toolbox/octave/windows/child_process.h"

class PipedProcess final : public HostProcess {
public:
    ~PipedProcess() override { close(); }

    // As ChildProcess::start, with the pipes as its standard streams.
    bool start(const std::vector<std::string> &command, const std::vector<std::string> &environment,
               std::string &error);

    bool isOpen() const override { return input >= 0; }
    void close() override;
    bool readable(int milliseconds) override;
    std::size_t read(void *bytes, std::size_t capacity, const WaitsOn &waitsOn) override;
    bool write(const void *bytes, std::size_t count, const WaitsOn &waitsOn) override;
    bool runs() override { return process.runs(); }
    void kill() override { process.kill(); }
    std::string howItEnded() const override { return process.howItEnded(); }
    void leave() override;

private:
    ChildProcess process;
    int input = -1;  // of the process
    int output = -1; // of the process
};
