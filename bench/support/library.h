// The library as a program calls it, with the bench package open.
#pragma once

#include "host/array.h"

// Calls mexFunction. Ends the program when the call raises.
void Call(int code, int resultCount, const std::vector<host::Array> &arguments);

// Opens the bench package anew with a number of compounds; Handle is its handle from then on.
void OpenBenchPackage(int compounds);
const host::Array &Handle();
