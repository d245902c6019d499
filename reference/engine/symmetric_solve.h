// Linear equations of a minimisation.
#pragma once

#include "reference/engine/mixture_model.h"

namespace reference {

// Solves matrix * solution = right side in place for a symmetric matrix (element i, j at
// i + n * j; overwritten). A pivot that shows the matrix not to be positive definite is raised, so
// that the solution is always a direction in which a function with this second derivative and minus
// this right side as gradient falls.
void solveDescent(int n, PairArray &matrix, CompoundArray &rightSide);

} // namespace reference
