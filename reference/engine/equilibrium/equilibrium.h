// A mixture in equilibrium at a temperature and pressure, with what it holds and how that changes.
#pragma once

#include "reference/engine/equilibrium/rachford_rice.h"
#include "reference/engine/equilibrium/totals.h"

namespace reference {

// What is flashed: amounts above zero of each compound of the model.
struct Feed {
    const MixtureModel &model;
    const double *z; // mole fractions
    FlashPhases phases;

    int size() const { return model.size; }
    std::span<const double> fractions() const { return {z, static_cast<std::size_t>(model.size)}; }
};

struct Equilibrium {
    FlashResult phases;
    Totals totals;
    double gibbs; // over R T

    // Finds the phases at a temperature and pressure, and fills all. False when they are not found.
    bool find(const Feed &feed, double temperature, double pressure);

    bool twoPhases() const { return phases.vaporPresent && phases.liquidPresent; }
};

} // namespace reference
