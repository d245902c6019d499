// The residual properties of a mixture's phase, at its conditions and in a direction away from them.
#pragma once

#include "reference/engine/phase_quantity.h"
#include "reference/engine/phase_state.h"
#include "reference/engine/residual.h"

namespace reference {

// A direction in which the conditions change: temperature, pressure, or the moles of one compound, of
// one mole in all.
struct Direction {
    Differential differential = Differential::none; // byFractions is the same as byMoles here
    int compound = -1;

    double ofTemperature() const { return differential == Differential::byTemperature ? 1.0 : 0.0; }
    double ofPressure() const { return differential == Differential::byPressure ? 1.0 : 0.0; }
    // The mean of a property of the compounds, of which one has `own`, in this direction.
    double ofMean(double own, double mean) const { return compound < 0 ? 0.0 : own - mean; }
};

// What a phase by a cubic equation needs beyond PhaseState::pairSum for its residual properties: the
// same sums with other values in place of s. Not filled for ideal mixtures.
struct PairSums {
    CompoundArray slope;   // with ds/dT
    CompoundArray bending; // with d2s/dT2

    PairSums(const MixtureModel &model, const Isotherm &isotherm, const double *moleFractions);
};

Residual residualOf(const MixtureModel &model, const Isotherm &isotherm, const double *moleFractions,
                    const PhaseState &state, const PairSums &sums, const Direction &direction = {});

// Of a pure compound as the same phase at the same temperature and pressure, by a cubic equation.
Residual pureResidualOf(const MixtureModel &model, const Isotherm &isotherm, const PhaseState &state, int compound,
                        const Direction &direction);

} // namespace reference
