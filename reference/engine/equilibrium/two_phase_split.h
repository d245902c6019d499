// The split of a feed into vapor and liquid.
#pragma once

#include "reference/engine/equilibrium/rachford_rice.h"
#include "reference/engine/equilibrium/stability.h"

namespace reference {

struct TwoPhases {
    CompoundArray lnK; // logarithms of y_i / x_i
    PhaseAmounts amounts;
    CompoundArray y; // vapor
    CompoundArray x; // liquid
    PhaseState vapor;
    PhaseState liquid;
    CompoundArray lnFugacityRatio; // ln f_i of the vapor less that of the liquid
    double largestLnRatio;         // of these, without sign
    double gibbs;                  // over R T, on the scale of FlashProblem::gibbs; valid after findGibbs

    // Makes all of it from lnK. False when these ratios leave one phase alone.
    bool update(const FlashProblem &problem);
    void findGibbs(const FlashProblem &problem);
};

enum class SplitStatus {
    solved,       // two phases, equal fugacities, less Gibbs energy than the feed
    collapsed,    // the phases ran into each other, or one vanished
    notConverged, // the feed splits, but the last digits were not reached
};

// Starts from the ratios that Wilson estimates.
SplitStatus splitFromWilson(const FlashProblem &problem, TwoPhases &phases);

// Starts from a composition that splits off from the feed, as splitsOff found it.
SplitStatus splitFromTrial(const FlashProblem &problem, Root root, const CompoundArray &lnW, TwoPhases &phases);

} // namespace reference
