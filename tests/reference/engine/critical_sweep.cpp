#include "tests/reference/engine/critical_sweep.h"

#include "reference/engine/equilibrium/flash_tp.h"
#include "reference/engine/flash/flash.h"
#include "reference/engine/flash/flash_reason.h"
#include "tests/reference/engine/flash_check.h"

#include <algorithm>
#include <cmath>

namespace reference {

std::string findPointBeside(const FeedCase &feed, const CriticalPoint &critical, double distance, FlashResult &result)
{
    const double nearby = 0.2 * std::fabs(distance); // of the pressure: more than any line changes
    const FlashSpecification temperature{FlashVariable::temperature, critical.temperature + distance};
    struct Point {
        double fraction;
        SolutionType type;
    };
    // Mostly a bubble point on the colder side, and a retrograde dew point on the other.
    constexpr Point points[] = {{0.0, SolutionType::normal},
                                {1.0, SolutionType::retrograde},
                                {0.0, SolutionType::retrograde},
                                {1.0, SolutionType::normal}};
    std::string reasons;
    for (const Point &point : points) {
        const FlashRequest request{temperature, {FlashVariable::vaporFraction, point.fraction}, point.type};
        FlashReason reason{};
        const bool isSolved = flash(*feed.model, request, feed.z, result, reason) == FlashStatus::solved;
        if (isSolved && std::fabs(result.pressure / critical.pressure - 1.0) < nearby)
            return faultOf({*feed.model, feed.z, request}, result);
        reasons += isSolved ? "one elsewhere; " : std::string(reason.data()) + "; ";
    }
    return reasons;
}

namespace {

// Whether it is a vapor and a liquid that become one, rather than two liquids or two of three phases.
bool areVaporAndLiquidBeside(const FeedCase &feed, const CriticalPoint &critical)
{
    FlashResult state;
    const auto isSolved = [&](double pressureRatio) {
        return flashTP(*feed.model, critical.temperature, pressureRatio * critical.pressure, feed.z,
                       FlashPhases::vaporAndTwoLiquids, state) == FlashStatus::solved;
    };
    if (!isSolved(1.0001) || state.phaseCount() != 1)
        return false;
    return isSolved(0.9999) && state.vaporPresent && state.liquidPresent && !state.liquid2Present;
}

// Whether there are two phases at any pressure near a critical one: the highest temperature that has them can be as
// near.
bool areTwoAt(const FeedCase &feed, const CriticalPoint &critical, double temperature)
{
    FlashResult state;
    for (double part = 1e-5; part < 0.1; part *= 1.5)
        for (const double ratio : {1.0 - part, 1.0 + part})
            if (flashTP(*feed.model, temperature, ratio * critical.pressure, feed.z, FlashPhases::vaporAndTwoLiquids,
                        state) == FlashStatus::solved &&
                state.phaseCount() > 1)
                return true;
    return false;
}

} // namespace

CriticalSweep sweepCriticalPoints(const FeedFamily &family, std::uint64_t first, int feeds, double distance)
{
    CriticalSweep sweep;
    for (std::uint64_t number = first; number < first + static_cast<std::uint64_t>(feeds); ++number) {
        const FeedCase feed = family.make(number);
        const std::optional<CriticalPoint> critical = criticalPointOf(*feed.model, feed.z);
        if (!critical || !areVaporAndLiquidBeside(feed, *critical))
            continue;
        for (const double side : {-distance, distance}) {
            if (!areTwoAt(feed, *critical, critical->temperature + side))
                continue;
            ++sweep.points;
            FlashResult result;
            if (const std::string fault = findPointBeside(feed, *critical, side, result); !fault.empty())
                sweep.faults.push_back(std::to_string(side) + " K from " + std::to_string(critical->temperature) +
                                       " K, " + std::to_string(critical->pressure) + " Pa: " + fault + " | " +
                                       feed.describe());
        }
    }
    return sweep;
}

std::vector<FeedFamily> familiesOfGases()
{
    std::vector<FeedFamily> result;
    std::ranges::copy_if(feedFamilies(), std::back_inserter(result), [](const FeedFamily &family) {
        const std::string name = family.name;
        return name == "natural gas" || name == "refinery" || name == "critical";
    });
    return result;
}

} // namespace reference
