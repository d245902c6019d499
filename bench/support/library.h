// The library as a program calls it, with the bench package open.
#pragma once

#include "platform/matlab/standin.h"

#include <initializer_list>
#include <string_view>
#include <vector>

// A new array; arrays are destroyed by the call that they are arguments of.
mxArray *Number(double value);
mxArray *Matrix(std::size_t rows, std::size_t columns, double value);
mxArray *Text(std::string_view ascii);
mxArray *Handle();

// Calls mexFunction and destroys arguments and results. Ends the program when the call raises.
void Call(int code, int resultCount, std::initializer_list<mxArray *> arguments);
void Call(int code, int resultCount, const std::vector<mxArray *> &arguments);

// Opens the bench package anew with a number of compounds; Handle is its handle from then on.
void OpenBenchPackage(int compounds);
