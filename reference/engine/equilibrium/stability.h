// Whether phases are stable, by the tangent plane of the Gibbs energy: Michelsen, Fluid Phase Equilibria 9 (1982) 1.
#pragma once

#include "reference/engine/equilibrium/split_descent.h"

namespace reference {

class StabilityTest {
public:
    // Of phases whose fugacities are equal.
    StabilityTest(const FlashProblem &problem, const PhaseSplit &split);

    // Looks for another phase with less Gibbs energy, one that is allowed, from the next ones of many starts (Li,
    // Firoozabadi, Fluid Phase Equilibria 330 (2012) 1 have such a list):
    // - compounds nearly pure, but for those that would become another one's phase, and two that attract each other;
    // - vapor and liquid by Wilson's ratios and an ideal gas where there is none yet, what condenses from a gas;
    // - cube roots of these ratios from one phase, and from one near to a critical point;
    // - the mean of each two phases, and some of another one in a phase where these are two liquids or a gas is dense.
    // False when no start is left that leads to one.
    bool findNext(TrialPhase &trial);

private:
    const FlashProblem &problem;
    const PhaseSplit &split;
    const bool isOne;        // or as good as one
    CompoundArray potential; // ln x_i + ln phi_i, the same in all phases

    struct Start {
        enum class Kind {
            wilsonVapor,
            wilsonLiquid,
            lighter,
            heavier,
            idealGas,
            condensate,
            mean,
            lean,
            pure,
            pair
        } kind;
        int one;   // phase or compound
        int other; // the same
    };
    static constexpr int mostStarts =
        3 + 3 * maximumPhases + 3 * maximumPhases * (maximumPhases - 1) / 2 + 2 * maximumCompounds;
    std::array<Start, mostStarts> starts;
    std::array<CompoundArray, maximumCompounds> pureStarts; // lnW, not of ideal models
    double arrival = 0.0; // difference from a phase there is: a trial that comes nearer than this quickly ends there
    bool isNearCritical = false; // a phase is
    int startCount = 0;
    int nextStart = 0;

    void add(Start::Kind kind, int one = 0, int other = 0);
    void listStarts();
    void addPair(int one);
    void setStart(const Start &at, TrialPhase &trial) const;
    double differenceFromKnown(const CompoundArray &W, const PhaseState &state) const;
    void setPureStart(int pure, CompoundArray &lnW) const;
    void setPairStart(int one, int other, CompoundArray &lnW) const;
    double lnGammaOfPair(int one, int other) const;
    bool isCovered(int pure) const;
    bool isMiddling(const SplitPhase &phase) const;
    bool areOthersNearlyPure(int one) const;
    bool isDenseGas(const SplitPhase &phase) const;
    bool descend(TrialPhase &trial) const;
    struct Trial;
    bool newtonStep(Trial &trial) const;
};

} // namespace reference
