// What a client asks of a reference package, as an input chooses it: what there is, seldom anything else.
#pragma once

#include "fuzz/input.h"
#include "platform/platform.h"

#include <initializer_list>
#include <string_view>

namespace fuzz {

WideString Wide(std::string_view ascii);

bool Seldom(FuzzedDataProvider &input); // once in 16 times, and where no bytes are left

// Mostly one of the words.
WideString AnyWord(FuzzedDataProvider &input, std::initializer_list<const char *> words);
WideString AnyPropertyName(FuzzedDataProvider &input); // mostly one that a package has
WideString AnyLabel(FuzzedDataProvider &input);        // of a phase
WideString AnySolutionType(FuzzedDataProvider &input);

double AnyTemperature(FuzzedDataProvider &input); // K, mostly of 20 to 1500
double AnyPressure(FuzzedDataProvider &input);    // Pa, mostly of 0.01 to 1e8
double AnyAmount(FuzzedDataProvider &input);      // mostly from 0 to 1

// Lists, or what is none. The caller clears them.
VARIANT AnyPropertyList(FuzzedDataProvider &input);
VARIANT AnyCompoundList(FuzzedDataProvider &input); // of ids, or empty, which stands for all compounds
VARIANT AnyLabelPair(FuzzedDataProvider &input);
VARIANT AnySpecification(FuzzedDataProvider &input); // of an equilibrium: property, basis, phase

} // namespace fuzz
