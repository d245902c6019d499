// The volumes of a pure compound's liquid and vapor in equilibrium, as a model has them.
#pragma once

#include "reference/engine/numerics/dual.h"
#include "reference/engine/phase/mixture_model.h"

namespace reference {

// m3/mol, without the shift of a cubic equation, and their derivatives by temperature.
struct SaturatedVolumes {
    Dual liquid;
    Dual vapor;
};

// At the vapor pressure of the compound's correlation, below the critical temperature.
SaturatedVolumes saturatedVolumes(const CompoundTerms &compound, EquationOfState equation, double kelvin);

} // namespace reference
