// Phase equilibrium at any two given conditions.
#pragma once

#include "reference/engine/flash/flash_reason.h"
#include "reference/engine/phase/mixture_model.h"

#include <span>

namespace reference {

// Solves for any two conditions, given in either order; `z` as for flashTP. The values of the solution agree
// with those given to 1e-9, relative to the larger of the value itself and its natural size (R T for an
// energy, R for an entropy). `result` is valid when the flash is solved, `reason` when it is not. No call
// depends on one before, and none allocates.
//
// Several states can have the given values: at one temperature a gas and a liquid may have the same
// enthalpy, at one pressure the Gibbs and Helmholtz energy rise and fall. Then one of them is the answer,
// always the same; of two phases with a given vapor fraction, the solution type chooses.
//
// A pure compound that boils has a range of enthalpies, entropies, volumes, internal and Helmholtz
// energies at one temperature and pressure, and one Gibbs energy; so its Gibbs energy together with its
// temperature or pressure leaves the amounts open.
FlashStatus flash(const MixtureModel &model, const FlashRequest &request, std::span<const double> z,
                  FlashResult &result, FlashReason &reason);

// Whether two variables can determine a state at all; null if so, otherwise why not, as for FlashReason.
const char *refusalOf(FlashVariable first, FlashVariable second);

} // namespace reference
