// Phase equilibrium at a given temperature and pressure.
#pragma once

#include "reference/engine/equilibrium/flash_types.h"
#include "reference/engine/phase/mixture_model.h"

#include <span>

namespace reference {

// Solves for given temperature (K) and pressure (Pa), both above zero and not held to the limits above.
// `z` are the mole fractions of the feed, zero or more, summing to one; compounds below 1e-100 count as
// absent. The result is the state of least Gibbs energy of those that the allowed phases can form, as far as the
// tangent plane shows: ln f_i differs by less than 1e-10 between its phases.
//
// A phase with two roots of the equation is vapor or liquid by its root. Where it has one, it is liquid if the equation
// with the phase's a and b still has a van der Waals loop at the temperature, and the volume is below that of the
// equation's critical point; otherwise vapor. Of two phases that would be vapors, and of any two where only one liquid
// is allowed, the denser one in units of its own covolume is the liquid.
FlashStatus flashTP(const MixtureModel &model, double temperature, double pressure, std::span<const double> z,
                    FlashPhases phases, FlashResult &result);

// A vapor and a liquid with equal fugacities that were found in another way: gives them the names that flashTP does,
// as far as it would find them. False when that is not certain: other phases may be stable. All compounds of the model
// must be there.
bool nameStablePair(const MixtureModel &model, const FlashResult &pair, std::span<const double> z, FlashPhases phases,
                    FlashResult &result);

} // namespace reference
