// The process-wide work lists and values that the commands share. They are resized per call and
// mean nothing between calls.
#pragma once

#include "cape/variant_array.h"
#include "platform/platform.h"

#include <cstdint>
#include <vector>

extern std::vector<WideString> NameList;     // lists to return, and requested property names
extern std::vector<std::int32_t> HandleList; // handles, and small counts of the calculation commands
extern std::vector<double> ConstantValues;   // command 16
extern VariantArray ResultArray;             // an array received from a package
extern VariantArray NameArray;               // an array of names handed to a package
extern VARIANT EmptyVariant;                 // VT_EMPTY: asks a package for all compounds
