// The calls that the library makes of MessageBoxW, with all their arguments.
#pragma once

#include "tests/mex/support/library_call.h"
#include "tests/support/text.h"

#include <optional>
#include <vector>

namespace support {

class MessageBoxCalls {
public:
    struct Call {
        bool hasOwner;
        std::optional<WideString> text; // none for a null one
        WideString title;
        UINT style;
    };

    // While it lives, no box of the loaded library is shown, and each gets the answer.
    explicit MessageBoxCalls(int answer = IDOK)
        : boxes(MessageBoxW, [this, answer](HWND owner, LPCWSTR text, LPCWSTR title, UINT style) {
              calls.push_back({owner != nullptr, text ? std::optional<WideString>(text) : std::nullopt, title, style});
              return answer;
          })
    {
    }

    const std::vector<Call> &made() const { return calls; }

private:
    std::vector<Call> calls;
    LibraryCall<"MessageBoxW", int(HWND, LPCWSTR, LPCWSTR, UINT)> boxes;
};

} // namespace support
