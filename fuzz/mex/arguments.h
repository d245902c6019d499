// Arguments of mexFunction out of an input's bytes.
#pragma once

#include "fuzz/support/words.h"
#include "platform/matlab/standin.h"

#include <vector>

namespace fuzz {

// Owner of the arguments of one call.
class Arguments {
public:
    Arguments() = default;
    Arguments(const Arguments &) = delete;
    Arguments &operator=(const Arguments &) = delete;
    ~Arguments();

    void add(mxArray *array) { arrays.push_back(array); }
    void replace(std::size_t index, mxArray *array);
    void drop(); // the last
    std::size_t count() const { return arrays.size(); }
    const mxArray **data() { return const_cast<const mxArray **>(arrays.data()); }

private:
    std::vector<mxArray *> arrays;
};

mxArray *NumberArray(double value);
mxArray *NumbersArray(std::size_t rows, std::size_t columns, const std::vector<double> &columnByColumn);
mxArray *Int32Array(std::int32_t value);
mxArray *TextArray(const WideString &text);
mxArray *TextsArray(const std::vector<WideString> &texts); // a cell column

// Any class, any shape, cells within cells.
mxArray *AnyArray(Input &input, int depth = 0);

} // namespace fuzz
