// Property names worked out a second time: which there are, and what a name with a suffix means.
#pragma once

#include "fuzz/support/words.h"
#include "platform/platform.h"

namespace fuzz::model {

WideString Lower(WideString text); // A to Z alone

// Equality of names; a null name is like an empty one.
bool Same(const MaybeText &a, const MaybeText &b);

enum class Derivative { none, temperature, pressure, moles, molFraction };

struct Property {
    WideString name; // as the vocabulary writes it, without a suffix
    int dimensions = 0;
    int basisPower = 0;
    bool isMixable = false;
    Derivative derivative = Derivative::none;

    bool isCompositionDerivative() const
    {
        return derivative == Derivative::moles || derivative == Derivative::molFraction;
    }
    std::size_t count(std::size_t compounds) const; // of its values, at one condition
};

enum class Kind { singlePhase, twoPhase };

// The reason of a refusal, or empty and `property` filled.
WideString Parse(Kind kind, const MaybeText &name, Property &property);

// A property that a flash may be given, or report as a sum over the phases.
bool IsFlashProperty(const WideString &name, Property &property);

} // namespace fuzz::model
