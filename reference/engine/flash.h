// Phase equilibrium of vapour and liquid.
#pragma once

#include "reference/engine/mixture_model.h"

#include <span>

namespace reference {

enum class FlashStatus {
    solved,
    notConverged,
};

// What a feed becomes. At most one vapour and one liquid: where the model has two liquids at once,
// they are treated as far as one of them can stand for the vapour, as the less dense one.
struct FlashResult {
    bool vaporPresent;
    bool liquidPresent;
    double vaporFraction;  // moles of vapour in one mole of feed: 0, 1 or between
    double liquidFraction; // the rest, with all its digits when it is small
    CompoundArray vapor;   // mole fractions, where present
    CompoundArray liquid;
};

// Solves for given temperature (K) and pressure (Pa). `z` are the mole fractions of the feed, zero
// or more, summing to one; compounds below 1e-100 count as absent. Two phases are reported when
// they have a lower Gibbs energy than one, and then ln f_i differs by less than 1e-10 between them.
//
// A single phase where the equation has two roots is the one of lower Gibbs energy. Where it has
// one, it is liquid if the equation with the mixture's a and b still has a van der Waals loop at the
// temperature, and the volume is below that of the equation's critical point; otherwise vapour.
FlashStatus flashTP(const MixtureModel &model, double temperature, double pressure, std::span<const double> z,
                    FlashResult &result);

} // namespace reference
