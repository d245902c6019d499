// Bubble and dew points next to the critical points of random gases.
#pragma once

#include "reference/engine/equilibrium/flash_types.h"
#include "tests/reference/engine/critical_point.h"
#include "tests/reference/engine/feed_families.h"

#include <string>
#include <vector>

namespace reference {

// Asks at a temperature so many kelvin from that of a critical point for the bubble or dew point that is beside it.
// Empty if it is there, and otherwise what is wrong with it or was told instead.
std::string findPointBeside(const FeedCase &feed, const CriticalPoint &critical, double distance, FlashResult &result);

struct CriticalSweep {
    int points = 0; // asked for
    std::vector<std::string> faults;
};

// On both sides of the critical points of so many feeds, where a vapor and a liquid become one.
CriticalSweep sweepCriticalPoints(const FeedFamily &family, std::uint64_t first, int feeds, double distance);

inline constexpr std::uint64_t firstFeedOfCriticalSweeps = 7000000;

// Those that have such points.
std::vector<FeedFamily> familiesOfGases();

} // namespace reference
