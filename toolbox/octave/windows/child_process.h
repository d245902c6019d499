// A process that this one starts.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

// Its standard input, output and error output.
struct StandardStreams {
    int input;
    int output;
    int errors;
};

// Gets no descriptor of ours but those three, no signal that a terminal sends us, and no address at random: Wine wants
// certain pages for itself, which the heap of its loader takes now and then.
class ChildProcess {
public:
    ChildProcess() = default;
    ChildProcess(const ChildProcess &) = delete;
    ChildProcess &operator=(const ChildProcess &) = delete;
    ~ChildProcess() { kill(); }

    // `command` begins with the file of the program. False with the system's reason in `error`.
    bool start(const std::vector<std::string> &command, const std::vector<std::string> &environment,
               const StandardStreams &streams, std::string &error);

    bool runs(); // does not wait
    void kill(); // and waits until it is gone
    void leave();

    bool succeeded() const { return known && status == 0; }
    std::string howItEnded() const; // "exit code 3"

private:
    void ask(int options);

    pid_t id = -1;
    bool known = false; // whether the status is: someone else may have asked for it
    int status = 0;
};
