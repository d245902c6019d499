// The quantities of one phase.
#pragma once

#include "reference/engine/phase/phase_point.h"
#include "reference/engine/quantities/phase_quantity.h"

namespace reference {

// Whether the model has a quantity, with all its derivatives, for the phase that `root` stands for.
// The liquid of an ideal mixture does not yield to pressure, and so has no heatCapacityCv and no
// speedOfSound; other quantities are missing where a compound lacks a constant that they need.
bool isAvailable(const MixtureModel &model, Root root, PhaseQuantity quantity);

// Why it may not be: the quantity is one of a fluid that yields to pressure, which the phase is not; or a compound
// lacks a constant, whose name this is (null for none).
bool needsCompressibility(PhaseQuantity quantity);
bool yieldsToPressure(const MixtureModel &model, Root root);
const char *missingConstant(const CompoundData &compound, PhaseQuantity quantity);

// Writes the values, as many as valueCount says. False, with nothing written, for what is not
// available. Logarithms and partial entropies of a compound of fraction zero are infinite; nothing
// is NaN.
bool calculate(const PhasePoint &point, PhaseQuantity quantity, Differential differential, std::span<double> values);

} // namespace reference
