// A call of the library with plain descriptions of values.
#pragma once

#include "host/array_values.h"

#include <string>
#include <vector>

namespace host {

class ValueCall {
public:
    ValueCall() = default;
    ~ValueCall() { release(); }
    ValueCall(const ValueCall &) = delete;
    ValueCall &operator=(const ValueCall &) = delete;

    // False when it raised; then error() is its text and there are no results. At least one result comes back
    // otherwise; its data live until release().
    bool run(MexFunction function, int outputs, const std::vector<wire::Value> &arguments);
    const std::vector<wire::Value> &results() const { return values; }
    const std::string &error() const { return words; }
    const std::vector<std::string> &warnings() const { return warned; } // in order
    void release();
    void clear(); // forgets warnings and the error, too, as run() does first

private:
    std::vector<mxArray *> given, returned;
    std::vector<wire::Value> values;
    std::vector<std::string> warned;
    std::string words;
};

} // namespace host
