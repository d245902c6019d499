// Putting a failure message together in LastError.
#pragma once

#include "cape/error_text.h"
#include "gateway/global_text.h"
#include "gateway/verdict.h"

// Appends a number as a message shows it.
void AppendNumber(WideString &text, double number);

// LastError becomes the pieces one behind the other.
template <class... Pieces> Verdict FailWith(const Pieces &...pieces)
{
    WideString message;
    ((message += pieces), ...);
    LastError = std::move(message); // a piece may be LastError itself
    return Verdict::failed();
}
