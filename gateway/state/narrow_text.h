// 8-bit text for messages, in the thread's code page.
#pragma once

#include "platform/platform.h"

#include <memory>

// What NarrowText throws when the conversion itself fails; the system does not catch it.
struct NarrowTextFailure {
    HRESULT result;
};

class NarrowText {
public:
    explicit NarrowText(LPCWSTR text); // null for a null text
    NarrowText(const NarrowText &) = delete;
    NarrowText &operator=(const NarrowText &) = delete;

    const char *get() const { return narrow; }

private:
    static constexpr int inlineCapacity = 128;

    void makeRoom(int capacity);

    char buffer[inlineCapacity];
    std::unique_ptr<char[]> block; // for texts that the buffer can't hold
    char *narrow = nullptr;
};
