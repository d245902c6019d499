// What the bytes of a message say. Everything is checked before it is believed, and before memory is taken.
#pragma once

#include "wire/message_reader.h"
#include "wire/value.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace wire {

struct Call {
    std::int32_t outputs = 0;
    std::vector<Value> arguments;
};

// The bytes have to outlive what is made of them: values lie where they arrived. False for bytes that are no such
// message; then `reason` says what was wrong, and at which byte of the message.
bool Decode(Payload payload, Call &call, std::string &reason);
bool Decode(Payload payload, std::vector<Value> &results, std::string &reason);
bool Decode(Payload payload, std::string_view &words, std::string &reason);
bool DecodeNothing(Payload payload, std::string &reason); // of a message without a content

} // namespace wire
