// Writes messages. What is small is gathered, large blocks go out from where they lie.
#pragma once

#include "wire/bytes.h"
#include "wire/format.h"
#include "wire/value.h"

#include <string>
#include <string_view>
#include <vector>

namespace wire {

// Every message is on its way when its function returns. False when nobody reads any more.
class MessageWriter {
public:
    explicit MessageWriter(ByteSink &target) : sink(target) {}

    bool greeting(); // what a host begins with
    bool call(int outputs, const std::vector<Value> &arguments);
    bool unload();
    bool result(const std::vector<Value> &values);
    bool text(Kind kind, std::string_view words); // a warning, an error, or last words

private:
    template <class Field> void put(const Field &field) { put(&field, sizeof field); }
    void put(const void *bytes, std::size_t count);
    void pad(std::size_t count);
    void put(const Value &value, int depth);
    void put(const std::vector<Value> &values);
    bool flush();

    ByteSink &sink;
    std::string gathered;
    bool broken = false;
};

} // namespace wire
