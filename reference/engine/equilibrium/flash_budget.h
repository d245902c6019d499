// How much one flash at two given values may cost.
#pragma once

#include "reference/engine/equilibrium/flash_types.h"

namespace reference {

// Counts the flashes at temperature and pressure that a search makes. When its share is spent the search finds no more
// phases, and so ends. A count, unlike a clock, gives the same answer each time.
class FlashBudget {
public:
    // For a mixture of so many compounds: a flash takes about as long as the square of their number. All together take
    // some tenths of a second, and more where two values are searched for that are no vapor fraction: what leads there
    // is a search within a search.
    enum class Search { fraction, values };
    explicit FlashBudget(int compounds, Search search = Search::fraction);

    bool isSpent() const { return spent >= most; }
    int flashes() const { return count; } // made so far
    void charge(FlashStatus status);

    double coldest = 0.0; // what coldestWithPhases has found, K; 0 before

private:
    const int most; // in flashes that find phases
    int spent = 0;
    int count = 0;
};

} // namespace reference
