// The amounts of several phases whose compositions have given ratios.
#pragma once

#include "reference/engine/numerics/compound_arrays.h"

namespace reference {

// One vapor and two liquids are what a flash can give; one more is found where these are not all.
inline constexpr int maximumPhases = 4;

using PhaseArray = std::array<double, maximumPhases>; // one value for each phase

// The mole fractions of a compound in the phases are as its `E` there: x_ik = z_i E_ik / sum over m of amount_m E_im.
// Finds the amounts, zero or more and summing to one, at which the fractions of each phase that is there sum to one,
// and of each that is not, to one at most: the least of sum amount_k - sum z_i ln(sum amount_k E_ik), which is convex
// (Michelsen, Comput. Chem. Eng. 18 (1994) 545). `amounts` is the start. False when the amounts were not found.
bool solvePhaseAmounts(int compounds, int phases, const double *z, const CompoundArray *E, PhaseArray &amounts);

} // namespace reference
