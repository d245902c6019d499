// States of a given vapor fraction with any number of liquids, found by flashes at given temperature and pressure
// alone.
#pragma once

#include "reference/engine/equilibrium/equilibrium.h"

namespace reference {

inline constexpr double lowestSearchPressure = 1e2; // where vapor fractions are looked for by flashes, Pa

// The part of a mixture that is vapor: moles, or mass for vaporMassFraction.
double vaporPart(const MixtureModel &model, const FlashResult &state, FlashVariable variable);

class QualitySearch {
public:
    QualitySearch(const Feed &whole, const FlashSpecification &vaporFraction) : feed(whole), fraction(vaporFraction) {}

    // Looks at one temperature or pressure (`at`), from a guess of the other condition outward, for a state of a type.
    bool beside(const FlashSpecification &at, double guess, SolutionType type);

    // Looks between two states at it that flashes found: false when both have too much vapor, or too little.
    bool between(const FlashSpecification &at, const FlashResult &first, const FlashResult &second);

    // Looks in so many intervals, of equal ratio, upward or downward, for the first one that has such a state; with
    // `from` beginning there, and leaving there the one with which to go on.
    bool scan(const FlashSpecification &at, double first, double end, int intervals, int *from = nullptr);

    const FlashResult &found() const { return result; }
    SolutionType foundType() const { return type; }

private:
    const Feed &feed;
    const FlashSpecification &fraction;
    FlashResult result;
    SolutionType type = SolutionType::normal;

    struct Sample {
        bool known = false;
        double free = 0.0; // logarithm of the other condition
        double surplus = 0.0;
        FlashResult state;
    };
    static constexpr double edgeWidth = 2e-15; // of the logarithm of a temperature or pressure
    bool isEnd() const { return fraction.value == 0.0 || fraction.value == 1.0; }
    static bool isBoth(const FlashResult &state) { return state.vaporPresent && state.phaseCount() > 1; }
    void nameAsNeighbor(FlashResult &state, const FlashResult &neighbor) const;
    void take(const FlashSpecification &at, double free, Sample &sample) const;
    double surplusOf(const FlashResult &state, const FlashResult &neighbor) const;
    bool liesBetween(const FlashResult &one, const FlashResult &other) const;
    bool differ(Sample &low, Sample &high) const;
    void enclose(const FlashSpecification &at, Sample &low, Sample &high) const;
    bool close(const FlashSpecification &at, Sample &low, Sample &high);
    bool closeBeforeGap(const FlashSpecification &at, const Sample &low, const Sample &high);
    bool closeInside(const FlashSpecification &at, Sample &low, Sample &high);
    bool closeEnd(const FlashSpecification &at, Sample &low, Sample &high);
    bool accept(const Sample &sample);
    bool acceptEnd(const Sample &inside, const Sample &outside);
    bool continueToEnd(const FlashSpecification &at, const Sample &inside);
    bool differ(const CompoundArray &one, const CompoundArray &other) const;
    bool polish(const FlashResult &outside, Root root, CompoundArray &x) const;
};

} // namespace reference
