// Whether phases are stable, by the tangent plane of the Gibbs energy: Michelsen, Fluid Phase Equilibria 9 (1982) 1.
#pragma once

#include "reference/engine/equilibrium/split_descent.h"

namespace reference {

class StabilityTest {
public:
    // Of phases whose fugacities are equal.
    StabilityTest(const FlashProblem &problem, const PhaseSplit &split);

    // Looks for another phase with less Gibbs energy, one that is allowed, from the next ones of many starts: compounds
    // nearly pure where they would stay so, vapor and liquid by Wilson's ratios where there is none yet, the mean of
    // each two phases and, next to a critical point, what is nearer to either (Li, Firoozabadi, Fluid Phase Equilibria
    // 330 (2012) 1 have such a list). False when no start is left that leads to one.
    bool findNext(TrialPhase &trial);

private:
    const FlashProblem &problem;
    const PhaseSplit &split;
    const bool isOne;        // or as good as one
    CompoundArray potential; // ln x_i + ln phi_i, the same in all phases

    struct Start {
        enum class Kind { wilsonVapor, wilsonLiquid, mean, lean, pure } kind;
        int one;   // phase or compound
        int other; // phase
    };
    static constexpr int mostStarts = 2 + 3 * maximumPhases * (maximumPhases - 1) / 2 + maximumCompounds;
    std::array<Start, mostStarts> starts;
    std::array<CompoundArray, maximumCompounds> pureStarts; // lnW, of those that are starts
    double arrival =
        0.0; // difference from a phase there is, from which on a trial that comes nearer quickly ends there
    int startCount = 0;
    int nextStart = 0;

    void listStarts();
    void setStart(const Start &at, TrialPhase &trial) const;
    double differenceFromKnown(const CompoundArray &W, const PhaseState &state) const;
    bool setPureStart(int pure, double reach, CompoundArray &lnW) const;
    bool isNearCritical() const;
    bool descend(TrialPhase &trial) const;
    struct Trial;
    bool newtonStep(Trial &trial) const;
};

} // namespace reference
