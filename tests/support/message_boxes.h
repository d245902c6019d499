// Takes the message boxes that the process shows: answers each with OK and keeps what it said.
#pragma once

#include "tests/support/text.h"

#include <memory>
#include <ostream>
#include <vector>

namespace support {

struct ShownMessage {
    WideString text;
    WideString caption;

    bool operator==(const ShownMessage &) const = default;
    friend void PrintTo(const ShownMessage &message, std::ostream *stream)
    {
        *stream << Narrow(message.caption) << ": " << Narrow(message.text);
    }
};

class MessageBoxes {
public:
    MessageBoxes(); // one at a time
    ~MessageBoxes();
    MessageBoxes(const MessageBoxes &) = delete;
    MessageBoxes &operator=(const MessageBoxes &) = delete;

    std::vector<ShownMessage> shown() const; // so far, in order

private:
    struct Watch;
    std::unique_ptr<Watch> watch;
};

} // namespace support
