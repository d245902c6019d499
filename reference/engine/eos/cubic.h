// Roots of a cubic equation of state in the compressibility factor.
#pragma once

#include "reference/engine/eos/equation_of_state.h"

namespace reference {

// The compressibility factors above B that a phase can have, each as its distance from B: that keeps
// its digits in a dense liquid, where Z comes close to B. Where the equation has one such root the
// two are equal.
struct CompressibilityRoots {
    double vapor;  // the largest root, Z - B
    double liquid; // the smallest root above B, Z - B

    bool distinct() const { return vapor != liquid; }
};

// What a cubic equation of state is in U = Z - B: U^3 + c2 U^2 + c1 U + c0 = 0.
struct CompressibilityCubic {
    double c2, c1, c0;

    // Z = Z / (Z - B) - A Z / ((Z + d1 B) (Z + d2 B)) for A = a P / (R T)^2 and B = b P / (R T).
    CompressibilityCubic(const CubicConstants &equation, double A, double B)
        : c2(equation.sum() * B + 2.0 * B - 1.0), c1(A + (equation.atCovolume() * B - equation.sum() - 2.0) * B),
          c0(-equation.atCovolume() * B * B)
    {
    }
    double value(double u) const { return ((u + c2) * u + c1) * u + c0; }
    double slope(double u) const { return (3.0 * u + 2.0 * c2) * u + c1; }
};

// Solves the equation for B above zero. Closed form first, then Newton to the last digits.
CompressibilityRoots solveCompressibility(const CubicConstants &equation, double A, double B);

// The one of its roots that is asked for, in less time.
struct CompressibilityRoot {
    double free;  // Z - B
    bool several; // there are two
};
CompressibilityRoot solveCompressibility(const CubicConstants &equation, double A, double B, bool liquid);

} // namespace reference
