// Words that packages and scripts use, right ones, nearly right ones and wrong ones, as an input chooses them.
#pragma once

#include "fuzz/support/byte_input.h"
#include "platform/platform.h"

#include <optional>
#include <vector>

namespace fuzz {

// As a BSTR may be: null, or with characters behind a null character.
using MaybeText = std::optional<WideString>;

// The text as far as a reader of terminated strings sees it.
MaybeText Terminated(const MaybeText &text);

// Changes the text a little, or not at all: case, an end cut off, a character more, a null character within.
WideString Altered(Input &input, WideString text);

WideString PropertyWord(Input &input);                                   // never null
MaybeText PropertyText(Input &input);                                    // a property's name, now and then null
MaybeText BasisText(Input &input);                                       // of a basis; null is none
MaybeText LabelText(Input &input, const std::vector<WideString> &known); // of a phase, mostly a known one

double Number(Input &input);      // mostly an ordinary one; zeros, NaNs, infinities, and extremes too
double PlainNumber(Input &input); // an ordinary one, above zero

} // namespace fuzz
