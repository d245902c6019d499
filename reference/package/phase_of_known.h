// A phase without those absent compounds, of mole fraction zero, that lack a constant which a quantity needs.
#pragma once

#include "reference/engine/phase/phase_point.h"
#include "reference/engine/quantities/phase_quantity.h"

#include <array>
#include <span>

namespace reference {

class PhaseOfKnown {
public:
    // The phase must outlive this object.
    PhaseOfKnown(const PhasePoint &whole, PhaseQuantity quantity);

    // The phase, made of the compounds that are left; this object must outlive it.
    PhasePoint point(Root root) const;

    // Calculates the values for all compounds, as `calculate` orders them: NaN for what belongs to one that is left
    // out. False where a present compound lacks a constant, or the model has no such quantity.
    bool calculate(Root root, Differential differential, std::span<double> values) const;

private:
    const PhasePoint &phase;
    const PhaseQuantity quantity;
    int count = 0; // of those left
    std::array<int, maximumCompounds> indices;
    CompoundArray amounts;
    MixtureModel model;

    MixtureModel keep();
};

} // namespace reference
