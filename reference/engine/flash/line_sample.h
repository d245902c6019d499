// Points of a given vapor fraction, found from flashes at given temperature and pressure beside them.
#pragma once

#include "reference/engine/flash/vapor_liquid_point.h"

namespace reference {

// What a flash at a temperature or pressure (`at`) and another condition tells.
struct LineSample {
    bool known = false;
    bool isNamed = false; // one phase, which another name is given on the other side
    double free = 0.0;    // the other condition
    FlashResult state;

    void take(const Feed &feed, const FlashSpecification &at, double other);
    bool isTwo() const { return state.vaporPresent && state.liquidPresent; }
};

class LineSampler {
public:
    LineSampler(const Feed &whole, const FlashSpecification &vaporFraction)
        : feed(whole), n(whole.size()), fraction(vaporFraction)
    {
    }

    // Finds a stable point with the fraction between two samples at the same temperature or pressure; false when they
    // show no sign of one.
    bool startBetween(LineSample first, LineSample second, const FlashSpecification &at, TwoPhasePoint &point) const;

private:
    const Feed &feed;
    const int n;
    const FlashSpecification &fraction; // of moles or mass

    double fractionOf(const FlashResult &state) const;
    double surplus(const LineSample &sample, const LineSample &neighbor) const;
    bool solveBetween(const LineSample &first, const LineSample &second, const FlashSpecification &at,
                      TwoPhasePoint &point) const;
};

} // namespace reference
