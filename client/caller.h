// Whoever waits while something is started or calculated, as the library's side sees them.
#pragma once

struct Caller {
    bool (*interrupted)();             // whether they wish to wait no longer
    void (*tell)(const char *message); // a word on what takes its time
};
