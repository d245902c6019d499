// Roots of the Peng-Robinson equation in the compressibility factor.
#pragma once

namespace reference {

// The compressibility factors above B that a phase can have. Where the equation has one such root
// the two are equal.
struct CompressibilityRoots {
    double vapor;  // the largest root
    double liquid; // the smallest root above B

    bool distinct() const { return vapor != liquid; }
};

// Solves Z^3 - (1 - B) Z^2 + (A - 3 B^2 - 2 B) Z - (A B - B^2 - B^3) = 0 for A = a P / (R T)^2 and
// B = b P / (R T), both above zero. Closed form first, then Newton to the last digits.
CompressibilityRoots solveCompressibility(double A, double B);

} // namespace reference
