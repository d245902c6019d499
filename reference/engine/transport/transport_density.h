// The density of a phase for correlations that were made for true densities.
#pragma once

#include "reference/engine/phase/phase_point.h"

namespace reference {

// mol/m3: the volume of a cubic equation less the shift of each compound (Peneloux, Rauzy, Freze, Fluid Phase
// Equilibria 8 (1982) 7, here fitted to the liquid volume at 0.7 Tc).
Dual transportDensity(const PhasePoint &point, const Direction &direction);

} // namespace reference
