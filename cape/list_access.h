// The elements of a list where they lie, for lists that are read or made at every condition.
#pragma once

#include "platform/platform.h"

#include <cstdint>

// The elements of a value that is empty or exactly a one-dimensional array of doubles; they stay the
// value's. False with the reason of VariantArray::Validate in `message` for anything else.
bool TakeDoubles(const VARIANT &value, const double *&data, std::int32_t &count, WideString &message);

// The same for strings, which stay the value's too; an element may be null.
bool TakeTexts(const VARIANT &value, const BSTR *&texts, std::int32_t &count, WideString &message);

// A new array of `count` doubles into a caller's out-parameter; what stood there is cleared.
void GiveDoubles(const double *values, std::int32_t count, VARIANT *target);
