// Roots of a cubic equation of state in the compressibility factor.
#pragma once

#include "reference/engine/equation_of_state.h"

namespace reference {

// The compressibility factors above B that a phase can have. Where the equation has one such root
// the two are equal.
struct CompressibilityRoots {
    double vapor;  // the largest root
    double liquid; // the smallest root above B

    bool distinct() const { return vapor != liquid; }
};

// Solves Z = Z / (Z - B) - A Z / ((Z + d1 B) (Z + d2 B)) for A = a P / (R T)^2 and B = b P / (R T),
// B above zero. Closed form first, then Newton to the last digits.
CompressibilityRoots solveCompressibility(const CubicConstants &equation, double A, double B);

} // namespace reference
