// Writing to a pipe of which nobody reads raises a signal that would end the process; here it stays a failed write.
#pragma once

#include <signal.h>
#include <time.h>

class WithoutBrokenPipes {
public:
    WithoutBrokenPipes()
    {
        sigset_t pending;
        sigpending(&pending);
        hadOne = sigismember(&pending, SIGPIPE) == 1;
        sigemptyset(&brokenPipe);
        sigaddset(&brokenPipe, SIGPIPE);
        pthread_sigmask(SIG_BLOCK, &brokenPipe, &before);
    }
    WithoutBrokenPipes(const WithoutBrokenPipes &) = delete;
    WithoutBrokenPipes &operator=(const WithoutBrokenPipes &) = delete;
    ~WithoutBrokenPipes()
    {
        constexpr timespec now = {0, 0};
        if (!hadOne)
            sigtimedwait(&brokenPipe, nullptr, &now);
        pthread_sigmask(SIG_SETMASK, &before, nullptr);
    }

private:
    bool hadOne = false;
    sigset_t brokenPipe;
    sigset_t before;
};
