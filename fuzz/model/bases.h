// Mole and mass basis worked out a second time. Each gives the reason of a failure, or an empty text.
#pragma once

#include "platform/platform.h"

#include <vector>

namespace fuzz::model {

using Numbers = std::vector<double>;

// A NaN, or the number by which a package says that it has none.
bool IsMissing(double value);
bool AnyMissing(const Numbers &values);

struct Phase {
    Numbers composition; // fractions, one for each compound
    bool compositionPerMass = false;
    double fraction = 0; // of the total
    bool fractionPerMass = false;
    bool isPresent = false;
};

// Fractions per mole to fractions per mass, or back.
WideString ConvertFractions(const Numbers &weights, bool toMass, const Numbers &source, Numbers &target);

// The fraction of a phase, as those of all phases are in the other basis.
WideString ConvertPhaseFraction(const Numbers &weights, const std::vector<Phase> &phases, bool toMass,
                                std::size_t phase, double &fraction);

// Values per mole to values per mass for the power of the property, and back for its negative. `base` is the value of
// the property that mole fraction derivatives belong to, else 0.
WideString ConvertValues(const Numbers &weights, const Numbers &composition, bool compositionPerMass, int power,
                         double base, Numbers &values);

// Equal but for the rounding of different orders of the same operations; of numbers at the ends of the range, which
// one order reaches and the other does not, no more is asked than that both are there.
bool Close(double a, double b);
bool Close(const Numbers &a, const Numbers &b);

} // namespace fuzz::model
