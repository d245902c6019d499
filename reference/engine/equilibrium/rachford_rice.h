// The amounts of two phases whose compositions have given ratios.
#pragma once

namespace reference {

inline constexpr double limitOfLnK = 700.0; // largest |ln K|: with more, fractions vanish

struct PhaseAmounts {
    double vapor;  // moles of vapor in one mole of feed
    double liquid; // the rest, with all its digits when it is small
};

// Solves sum z_i (K_i - 1) / (liquid + vapor K_i) = 0 (Rachford, Rice, J. Petrol. Technol. 4 (1952)
// 19) for amounts strictly between 0 and 1. False when there are none.
bool solveRachfordRice(int n, const double *z, const double *K, PhaseAmounts &amounts);

} // namespace reference
