// Flashes at given temperature and pressure, held against a judge of their Gibbs energies.
#pragma once

#include "tests/reference/engine/feed_families.h"

#include <string>
#include <vector>

namespace reference {

struct PhaseSweepCount {
    int feeds = 0;
    int byPhases[4] = {}; // answers of one, two and three phases; refusals at 0
    int worse = 0;        // answers that are not the stable state: the judge's Gibbs energy is lower by more than 1e-9
    int refused = 0;      // though there is a state that the phases' names fit
    int inexact = 0;      // answers of which a balance, sum or fugacity is wrong
    int judgeWorse = 0;   // the judge's Gibbs energy is higher by more than 1e-9

    void add(const PhaseSweepCount &other);
    int faults() const { return worse + refused + inexact; }
};

struct PhaseSweep {
    PhaseSweepCount count;
    std::vector<std::string> faults; // and where the judge was worse, in words
};

PhaseSweep sweepPhases(const FeedFamily &family, std::uint64_t seed, int count);

} // namespace reference
