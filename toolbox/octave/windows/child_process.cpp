#include "toolbox/octave/windows/child_process.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/personality.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace {

std::vector<char *> pointersTo(const std::vector<std::string> &texts)
{
    std::vector<char *> pointers;
    pointers.reserve(texts.size() + 1);
    for (const std::string &text : texts)
        pointers.push_back(const_cast<char *>(text.c_str()));
    pointers.push_back(nullptr);
    return pointers;
}

void closeFrom(int first)
{
    if (syscall(SYS_close_range, first, ~0U, 0) == 0)
        return;
    const long most = sysconf(_SC_OPEN_MAX); // an old kernel
    for (int descriptor = first; descriptor < most; ++descriptor)
        close(descriptor);
}

// In the new process, which has only the thread that made it: nothing here may take memory or a lock. What went wrong
// is written to `report`, which succeeding closes.
[[noreturn]] void becomeProgram(char *const *command, char *const *environment, const StandardStreams &streams,
                                int report)
{
    setpgid(0, 0);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    const int old = personality(0xffffffff);
    if (old != -1)
        personality(static_cast<unsigned long>(old) | ADDR_NO_RANDOMIZE);
    // First out of the way of where they are to be.
    const int from[] = {fcntl(streams.input, F_DUPFD, 4), fcntl(streams.output, F_DUPFD, 4),
                        fcntl(streams.errors, F_DUPFD, 4)};
    const int toReport = fcntl(report, F_DUPFD, 4);
    for (int k = 0; k < 3; ++k)
        dup2(from[k], k);
    dup2(toReport, 3);
    fcntl(3, F_SETFD, FD_CLOEXEC);
    closeFrom(4);
    execve(command[0], command, environment);
    const int reason = errno;
    if (write(3, &reason, sizeof reason) < 0)
        _exit(126);
    _exit(127);
}

} // namespace

bool ChildProcess::start(const std::vector<std::string> &command, const std::vector<std::string> &environment,
                         const StandardStreams &streams, std::string &error)
{
    const std::vector<char *> arguments = pointersTo(command);
    const std::vector<char *> variables = pointersTo(environment);
    int report[2];
    if (pipe2(report, O_CLOEXEC) != 0) {
        error = std::strerror(errno);
        return false;
    }
    const pid_t made = fork();
    if (made == 0)
        becomeProgram(arguments.data(), variables.data(), streams, report[1]);
    int reason = made < 0 ? errno : 0;
    close(report[1]);
    if (made > 0) {
        ssize_t count = 0;
        do
            count = read(report[0], &reason, sizeof reason);
        while (count < 0 && errno == EINTR);
    }
    close(report[0]);
    if (reason != 0) {
        if (made > 0)
            waitpid(made, nullptr, 0);
        error = std::strerror(reason);
        return false;
    }
    id = made;
    known = false;
    return true;
}

void ChildProcess::ask(int options)
{
    int newStatus = 0;
    pid_t waited = 0;
    do
        waited = waitpid(id, &newStatus, options);
    while (waited < 0 && errno == EINTR);
    if (waited == 0)
        return;
    known = waited > 0;
    status = newStatus;
    id = -1;
}

bool ChildProcess::runs()
{
    if (id > 0)
        ask(WNOHANG);
    return id > 0;
}

// Not what it started: Wine's services serve others, too, and go by themselves.
void ChildProcess::kill()
{
    if (!runs())
        return;
    ::kill(id, SIGKILL);
    ask(0);
}

// It belongs to the process that this one was copied from.
void ChildProcess::leave() { id = -1; }

std::string ChildProcess::howItEnded() const
{
    if (!known)
        return "it ended";
    return WIFSIGNALED(status) ? "signal " + std::to_string(WTERMSIG(status))
                               : "exit code " + std::to_string(WEXITSTATUS(status));
}
