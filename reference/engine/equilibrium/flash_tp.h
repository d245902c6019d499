// Phase equilibrium of vapor and liquid at a given temperature and pressure.
#pragma once

#include "reference/engine/equilibrium/flash_types.h"
#include "reference/engine/phase/mixture_model.h"

#include <span>

namespace reference {

// Solves for given temperature (K) and pressure (Pa), both above zero and not held to the limits above.
// `z` are the mole fractions of the feed, zero or more, summing to one; compounds below 1e-100 count as
// absent. Two phases are reported when they have a lower Gibbs energy than one, and then ln f_i differs by
// less than 1e-10 between them.
//
// A single phase where the equation has two roots is the one of lower Gibbs energy. Where it has
// one, it is liquid if the equation with the mixture's a and b still has a van der Waals loop at the
// temperature, and the volume is below that of the equation's critical point; otherwise vapor.
FlashStatus flashTP(const MixtureModel &model, double temperature, double pressure, std::span<const double> z,
                    FlashResult &result);

} // namespace reference
