// States of a given vapor fraction with any number of liquids, found by flashes at given temperature and pressure
// alone.
#pragma once

#include "reference/engine/equilibrium/equilibrium.h"

namespace reference {

// The part of a mixture that is vapor: moles, or mass for vaporMassFraction.
double vaporPart(const MixtureModel &model, const FlashResult &state, FlashVariable variable);

class QualitySearch {
public:
    QualitySearch(const Feed &whole, const FlashSpecification &vaporFraction) : feed(whole), fraction(vaporFraction) {}

    // Looks at one temperature or pressure (`at`), from a guess of the other condition outward. `normal` is whether the
    // state found is of the normal type; the one wanted is taken, if there is any.
    bool near(const FlashSpecification &at, double guess, SolutionType type);

    // Looks between two values of the other condition: false when both have too much vapor, or too little.
    bool between(const FlashSpecification &at, double first, double second);

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
    void take(const FlashSpecification &at, double free, Sample &sample) const;
    bool close(const FlashSpecification &at, Sample &low, Sample &high);
    bool accept(const Sample &sample);
};

} // namespace reference
