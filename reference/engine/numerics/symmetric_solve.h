// Linear equations of a minimization.
#pragma once

#include "reference/engine/numerics/compound_arrays.h"

namespace reference {

// Takes a symmetric matrix (element i, j at i + n * j; overwritten) apart, for solveFactored. A pivot
// that shows the matrix not to be positive definite is raised, so that the solution is always a
// direction in which a function with this second derivative and minus the right side as gradient falls.
void factorDescent(int n, PairArray &matrix);

// Solves matrix * solution = right side in place.
void solveFactored(int n, const PairArray &factors, CompoundArray &rightSide);

// Both at once.
void solveDescent(int n, PairArray &matrix, CompoundArray &rightSide);

} // namespace reference
