// The stable state of a mixture at a temperature and pressure, found slowly, by ways that the engine doesn't take.
#pragma once

#include "reference/engine/phase/mixture_model.h"

#include <vector>

namespace reference {

struct JudgedPhase {
    std::vector<double> x; // mole fractions
    double amount;         // moles in one mole of feed
    bool severalRoots;
    bool vaporRoot;
};

struct JudgedState {
    std::vector<JudgedPhase> phases;
    double gibbs;    // sum of n_i (ln x_i + ln phi_i) over all phases
    double distance; // least distance from the tangent plane that was found; not below zero where the state is stable

    // Whether these are all the phases, and one vapor and two liquids can name them: none has the root of another's
    // name.
    bool canBeNamed() const;
};

// Only the phases' ln phi are the engine's. Trial phases start from every pure compound, from pairs and from random
// mixtures, so many that the state of least Gibbs energy is hardly missed; amounts are found by a general minimizer.
JudgedState judge(const MixtureModel &model, double temperature, double pressure, const std::vector<double> &z);

} // namespace reference
