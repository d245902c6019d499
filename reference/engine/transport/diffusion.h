// Diffusion coefficients of one phase.
#pragma once

#include "reference/engine/transport/transport_mixture.h"

namespace reference {

// The matrix of binary diffusion coefficients of Maxwell and Stefan, m2/s, at the phase's own density
// or viscosity. Symmetric; a compound with itself: its self-diffusion.
// - Vapor: Fuller, Schettler, Giddings, Ind. Eng. Chem. 58(5) (1966) 18, with the volumes of Fuller,
//   Ensley, Giddings, J. Phys. Chem. 73 (1969) 3679. The product of density and coefficient is that of
//   the ideal gas.
// - Liquid: Wilke, Chang, AIChE J. 1 (1955) 264 for one compound in the other, with molar volumes at
//   the boiling point after Tyn, Calus (1975), Vb = 0.285 Vc^1.048 in cm3/mol; between the two by
//   Kooijman, Taylor, Ind. Eng. Chem. Res. 30 (1991) 1217. The viscosity is the mixture's.
void diffusionCoefficients(const PhasePoint &point, const TransportMixture &mixture, const Direction &direction,
                           Dual *values);

} // namespace reference
