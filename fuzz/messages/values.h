// Values of any kind, and what the format says about them, written a second time.
#pragma once

#include "fuzz/input.h"
#include "wire/value.h"

#include <deque>
#include <string>
#include <vector>

// Where the dimensions and elements of values lie.
struct Storage {
    std::deque<std::vector<std::size_t>> dimensions;
    std::deque<std::string> elements;
};

// `depth` is that of the cells around it.
wire::Value AnyValue(FuzzedDataProvider &input, Storage &storage, int depth = 0);

bool Same(const wire::Value &a, const wire::Value &b);
bool Same(const std::vector<wire::Value> &a, const std::vector<wire::Value> &b);

std::string Written(const wire::Value &value);
std::string Written(const std::vector<wire::Value> &values);
std::string Number(std::uint64_t value, int bytes);
std::string PaddedText(const std::string &text);
