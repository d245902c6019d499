// One mixture at a temperature and pressure, as the search for its phases sees it.
#pragma once

#include "reference/engine/phase/isotherm.h"
#include "reference/engine/phase/phase_state.h"

namespace reference {

// All amounts are above zero.
struct FlashProblem {
    const MixtureModel &model;
    Isotherm isotherm;
    double pressure;
    const double *z;          // mole fractions of the feed, summing to one
    bool vaporAllowed;        // otherwise every phase stands at its liquid root
    PhaseState feed;          // the feed as one phase, at its best root
    double gibbs;             // sum z_i (ln z_i + ln phi_i) of that phase
    CompoundArray largestLnK; // |ln K|: with more, a compound's fraction in a phase would be too small for a number

    FlashProblem(const MixtureModel &mixture, double temperature, double pressure, const double *z,
                 bool vaporAllowed = true);

    int size() const { return model.size; }
    // The one of lower Gibbs energy, of those that are allowed.
    Root bestRoot() const { return vaporAllowed ? Root::stable : Root::liquid; }

    // Whether a phase is a liquid: by its root or, where it has one only, by its density and the van der Waals loop
    // that its equation still has.
    bool looksLiquid(const PhaseState &state) const;
};

// Wilson's estimate of the ratio of a compound's mole fractions in vapor and liquid (1968), as
// logarithm; and how that falls with the inverse temperature, K.
double wilsonLogRatio(const CompoundTerms &compound, double temperature, double pressure);
double wilsonFall(const CompoundTerms &compound);

} // namespace reference
