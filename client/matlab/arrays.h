// MATLAB's arrays and the plain descriptions in which values cross a border. Only what the library itself asks of an
// array is asked here, so that it sees the same in the other process.
#pragma once

#include "platform/matlab/matlab.h"
#include "wire/value.h"

#include <deque>
#include <vector>

// Arguments as values. They are in use until the next take(), and nothing of them is lost when a call is left by a
// jump.
class ArgumentValues {
public:
    const std::vector<wire::Value> &take(int count, const mxArray *const *arrays);
    void forget();

private:
    // What a value points to that the array has nowhere.
    struct Place {
        std::size_t dimensions[2];
        float number;
    };

    wire::Value valueOf(const mxArray *array);

    std::vector<wire::Value> values;
    std::deque<Place> places; // which stay where they are
};

// A new array; without memory it does not return.
mxArray *ArrayOf(const wire::Value &value);
