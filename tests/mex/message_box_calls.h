// The calls that the library makes of MessageBoxW, with all their arguments.
#pragma once

#include "tests/support/text.h"

#include <vector>

namespace support {

class MessageBoxCalls {
public:
    struct Call {
        bool hasOwner;
        WideString text;
        WideString title;
        UINT style;
    };

    // While it lives, no box of the loaded library is shown, and each is answered with OK. One at a time.
    MessageBoxCalls();
    ~MessageBoxCalls();
    MessageBoxCalls(const MessageBoxCalls &) = delete;
    MessageBoxCalls &operator=(const MessageBoxCalls &) = delete;

    const std::vector<Call> &made() const { return calls; }

private:
    static int WINAPI note(HWND owner, LPCWSTR text, LPCWSTR title, UINT style);

    std::vector<Call> calls;
};

} // namespace support
