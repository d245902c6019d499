// The quantities of two phases.
#pragma once

#include "reference/engine/phase/phase_point.h"
#include "reference/engine/quantities/phase_quantity.h"

namespace reference {

// Whether the model has a quantity, with all its derivatives: it is missing where a compound lacks a
// constant that it needs.
bool isAvailable(const MixtureModel &model, PairQuantity quantity);

// Writes the values, as many as valueCount says, for two phases of one model at the same temperature and pressure.
// False, with nothing written, for what is not available.
bool calculatePair(const PhasePoint &first, const PhasePoint &second, PairQuantity quantity, Differential differential,
                   std::span<double> values);

} // namespace reference
