// Whether a phase is stable, by the tangent plane of the Gibbs energy: Michelsen, Fluid Phase
// Equilibria 9 (1982) 1.
#pragma once

#include "reference/engine/phase/isotherm.h"
#include "reference/engine/phase/phase_state.h"

namespace reference {

// One mixture at a temperature and pressure, with all amounts above zero.
struct FlashProblem {
    const MixtureModel &model;
    Isotherm isotherm;
    double pressure;
    const double *z;         // mole fractions of the feed, summing to one
    CompoundArray lnZ;       // their logarithms
    PhaseState feed;         // the feed as one phase, at its stable root
    CompoundArray potential; // ln z_i + ln phi_i of that phase
    double gibbs;            // sum z_i potential_i

    FlashProblem(const MixtureModel &mixture, double temperature, double pressure, const double *z);
};

// Wilson's estimate of the ratio of a compound's mole fractions in vapor and liquid (1968), as
// logarithm.
double wilsonLogRatio(const CompoundTerms &compound, double temperature, double pressure);

// Looks for a composition of kind `root` (vapor or liquid) that the feed would rather split off,
// from the one that Wilson's ratios suggest. True when there is one; `lnW` then holds the logarithms
// of its mole numbers, which sum to more than one.
bool splitsOff(const FlashProblem &problem, Root root, CompoundArray &lnW);

} // namespace reference
