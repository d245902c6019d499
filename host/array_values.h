// The stand-in's arrays and the plain descriptions in which values cross a border.
#pragma once

#include "platform/matlab/standin.h"
#include "wire/value.h"

namespace host {

// Null when there is no memory, and for what is missing. The array may use the elements of the value in place: they
// have to outlive it.
mxArray *ArrayOf(const wire::Value &value);

// Dimensions and elements are the array's. Null is what is missing.
wire::Value ValueOf(const mxArray *array);

} // namespace host
