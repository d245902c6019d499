// What the process tells its client when a package ends it.
#pragma once

#include "platform/platform.h"

// From now on a crash, on whichever thread, writes why to `client` before the process ends.
void ArrangeLastWords(HANDLE client);

// A package's runtime may have put itself in the place of what was arranged.
void RenewLastWords();

// While one of these lives a message is being written, and last words have to wait for its end.
class WritingMessage {
public:
    WritingMessage();
    ~WritingMessage();
    WritingMessage(const WritingMessage &) = delete;
    WritingMessage &operator=(const WritingMessage &) = delete;
};
