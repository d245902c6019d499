// A mixture in equilibrium at a temperature and pressure, with what it holds and how that changes.
#pragma once

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

// Finds the phases at a temperature or pressure (`one`) and a value of the other condition.
FlashStatus flashAt(const Feed &feed, const FlashSpecification &one, double other, FlashResult &result);

struct Equilibrium {
    FlashResult phases;
    Totals totals;

    // Finds the phases at a temperature and pressure, and fills all when they are found.
    FlashStatus find(const Feed &feed, double temperature, double pressure);

    // Fills the rest from the phases, of which there must be something.
    void findTotals(const Feed &feed);
};

} // namespace reference
