// One phase at a temperature, pressure and composition, and everything that can be asked of it.
#pragma once

#include "reference/engine/phase_quantity.h"
#include "reference/engine/phase_state.h"

#include <span>

namespace reference {

// Whether the model has the quantity for the phase that `root` stands for. The liquid of an ideal
// mixture does not yield to pressure, and so has no heatCapacityCv and no speedOfSound. True for all
// other single-phase quantities and their derivatives.
bool isAvailable(const MixtureModel &model, Root root, PhaseQuantity quantity, Differential differential);

class PhasePoint {
public:
    // The model must outlive the point. Temperature (K) and pressure (Pa) above zero; mole fractions
    // zero or more, summing to one. `root` says which phase is meant where there are two.
    PhasePoint(const MixtureModel &model, double temperature, double pressure, std::span<const double> fractions,
               Root root);

    // Writes the values, as many as valueCount says. False, with nothing written, for what is not
    // available. Logarithms and partial entropies of a compound of fraction zero are infinite; nothing
    // is NaN.
    bool calculate(PhaseQuantity quantity, Differential differential, std::span<double> values) const;

    const MixtureModel &model() const { return mixture; }
    const PhaseState &state() const { return phase; }
    double temperature() const { return isotherm.temperature; }
    double pressure() const { return phase.pressure; }
    const CompoundArray &fractions() const { return x; }

private:
    const MixtureModel &mixture;
    Isotherm isotherm;
    PhaseState phase;
    CompoundArray x;
};

// The same for a pair of phases of one model, at temperatures and pressures that are the same.
// False for the surface tension where a compound has no parachor.
bool calculatePair(const PhasePoint &first, const PhasePoint &second, PairQuantity quantity, Differential differential,
                   std::span<double> values);

} // namespace reference
