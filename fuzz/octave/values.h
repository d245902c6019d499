// Octave's values from the bytes of the fuzzer.
#pragma once

#include <octave/oct.h>

#include "fuzz/input.h"

#include <initializer_list>

// Those that only the interpreter can make, once.
void MakeOddValues();

octave_value Row(std::initializer_list<double> numbers);
octave_value Column(std::initializer_list<double> numbers);

// A value of any class, shape and storage. `depth` is that of the cells and structs around it.
octave_value AnyValue(FuzzedDataProvider &input, int depth);

// The same numbers in another class that has them, or in another storage; anything but a real array as it is.
octave_value InAnotherForm(FuzzedDataProvider &input, const octave_value &value);
