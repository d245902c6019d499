// The split of a feed into several phases.
#pragma once

#include "reference/engine/equilibrium/flash_problem.h"
#include "reference/engine/equilibrium/phase_amounts.h"

namespace reference {

struct SplitPhase {
    Root root;         // by which its properties are found
    double amount;     // moles in one mole of feed
    CompoundArray lnE; // ln x_i less something that is the same for the compound in all phases
    CompoundArray x;   // mole fractions
    PhaseState state;
};

struct PhaseSplit {
    int count = 0;
    std::array<SplitPhase, maximumPhases> phases;
    double largestLnRatio; // of a compound's fugacities in two phases, without sign
    double gibbs;          // over R T, on the scale of FlashProblem::gibbs; valid after findGibbs

    // The feed as one phase.
    void setOnePhase(const FlashProblem &problem);

    // Makes all but the Gibbs energy from each phase's root and lnE; of three phases or more the amounts are searched
    // from those there are. Phases of which nothing is left are taken out; false when only one remains.
    bool update(const FlashProblem &problem);
    void findGibbs(const FlashProblem &problem);

    void remove(int phase);

    // Has each phase with a single root stand for a liquid or a vapor as its density tells, for where it comes to have
    // several: it must not jump there.
    void followDensity(const FlashProblem &problem);

    // ln f_i of a phase less that of the first one.
    double lnFugacityRatio(int phase, int i) const
    {
        const SplitPhase &one = phases[phase];
        return one.lnE[i] - phases[0].lnE[i] + one.state.lnPhi[i] - phases[0].state.lnPhi[i];
    }

private:
    bool divide(const FlashProblem &problem); // amounts and compositions
};

} // namespace reference
