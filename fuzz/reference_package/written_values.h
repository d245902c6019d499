// Lists that a package gave or wrote.
#pragma once

#include "platform/platform.h"

#include <vector>

namespace fuzz {

// The number of elements; -1 for what is no list of that type.
int LengthOf(const VARIANT &value, VARTYPE type);

// Of a list that has to have some, none of them NaN.
std::vector<double> NumbersWritten(const VARIANT &value);

} // namespace fuzz
