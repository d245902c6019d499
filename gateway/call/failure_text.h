// Putting a failure message together in LastError.
#pragma once

#include "gateway/call/verdict.h"
#include "gateway/state/global_text.h"

#include <type_traits>
#include <utility>

// A number as a message shows it.
WideString NumberText(double number);

// LastError becomes the pieces one behind the other. What is a literal as a whole is refused with, see Verdict.
template <class... Pieces> Verdict FailWith(const Pieces &...pieces)
{
    static_assert(sizeof...(pieces) > 1 || !(std::is_array_v<Pieces> && ...), "Verdict::refuse takes a literal");
    WideString message;
    ((message += pieces), ...);
    LastError = std::move(message); // a piece may be LastError itself
    return Verdict::failed();
}
