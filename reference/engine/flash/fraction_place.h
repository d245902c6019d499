// What a flash tells of a state near one of a given vapor fraction.
#pragma once

#include "reference/engine/equilibrium/equilibrium.h"

namespace reference {

// A place with what a vapor fraction and another variable, which is no fraction, miss their values by, in this order,
// and the slopes with the logarithms of both conditions.
struct FractionPlace {
    double lnT;
    double lnP;
    Equilibrium equilibrium;
    double residual[2];
    double byT[2];
    double byP[2];

    double largest() const; // residual

    // Finds everything at lnT and lnP. False where no phases are found, or no vapor beside a liquid.
    bool evaluate(const Feed &feed, const FlashSpecification &fraction, const FlashSpecification &other);
};

} // namespace reference
