// A mixture in equilibrium at a temperature and pressure, with what it holds and how that changes.
#pragma once

#include "reference/engine/equilibrium/flash_budget.h"
#include "reference/engine/equilibrium/totals.h"

namespace reference {

// What is flashed: amounts above zero of each compound of the model.
struct Feed {
    const MixtureModel &model;
    const double *z; // mole fractions
    FlashPhases phases;
    FlashBudget *budget = nullptr; // of flashAt and Equilibrium::find; null for no limit

    int size() const { return model.size; }
    std::span<const double> fractions() const { return {z, static_cast<std::size_t>(model.size)}; }
};

// Finds the phases at a temperature or pressure (`one`) and a value of the other condition; none when the budget is
// spent.
FlashStatus flashAt(const Feed &feed, const FlashSpecification &one, double other, FlashResult &result);

// The temperature in K below which phases are not found: far below the freezing point of what is there, most flashes
// search long and in vain. Looked for once for each budget.
double coldestWithPhases(const Feed &feed);

struct Equilibrium {
    FlashResult phases;
    Totals totals;

    // How the part that is vapor grows with the temperature and with the pressure, where there is more than vapor.
    struct Growth {
        double byT = 0.0; // 1/K
        double byP = 0.0; // 1/Pa
    };
    Growth vaporMoles;
    Growth vaporMass;

    // Finds the phases at a temperature and pressure, and fills all when they are found; none when the budget
    // is spent.
    FlashStatus find(const Feed &feed, double temperature, double pressure);

    // Fills the rest from the phases, of which there must be something.
    void findTotals(const Feed &feed);

private:
    struct HeldPhase;
    void addTransfer(const Feed &feed, const Isotherm &isotherm, int count, const HeldPhase *held);
};

} // namespace reference
