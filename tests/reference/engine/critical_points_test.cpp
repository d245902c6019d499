#include "reference/engine/equilibrium/flash_tp.h"
#include "reference/engine/flash/flash.h"
#include "reference/engine/flash/flash_reason.h"
#include "tests/reference/engine/campaign.h"
#include "tests/reference/engine/critical_sweep.h"
#include "tests/reference/engine/flash_check.h"
#include "tests/reference/engine/mixtures.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace reference;
using Variable = FlashVariable;

namespace {

class CriticalGas {
public:
    const MixtureModel model =
        modelOf({"methane", "hydrogen sulfide", "n-butane", "ethane", "nitrogen", "n-pentane", "propane"});
    std::vector<double> z = {0.382902, 0.015515, 0.143772, 0.09026, 0.316981, 0.017114, 0.033455};
    CriticalPoint critical{};

    CriticalGas()
    {
        double sum = 0.0;
        for (const double fraction : z)
            sum += fraction;
        for (double &fraction : z)
            fraction /= sum;
        critical = criticalPointOf(model, z).value();
    }

    // The highest pressure with two phases, by flashes alone.
    double edge(double temperature) const
    {
        double two = 15e6;
        double one = 30e6;
        FlashResult state;
        for (int halving = 0; halving < 50; ++halving) {
            const double middle = 0.5 * (two + one);
            EXPECT_EQ(flashTP(model, temperature, middle, z, FlashPhases::vaporAndTwoLiquids, state),
                      FlashStatus::solved);
            (state.phaseCount() == 2 ? two : one) = middle;
        }
        return two;
    }
};

double largestLnK(const FlashResult &result, int size)
{
    double largest = 0.0;
    for (int i = 0; i < size; ++i)
        largest = std::max(largest, std::fabs(std::log(result.vapor[i] / result.liquid[i])));
    return largest;
}

} // namespace

TEST(BubbleAndDewPoints, AreFoundNextToTheCriticalPoint)
{
    const CriticalGas gas;
    for (const double distance : {10.0, 3.0, 1.0, 0.3, 0.1, 0.03, 0.01, 0.003})
        for (const bool bubble : {true, false}) {
            const double temperature = gas.critical.temperature + (bubble ? -distance : distance);
            // A dew point that vanishes with lower pressure, too, is a retrograde one.
            const FlashRequest request{{Variable::temperature, temperature},
                                       {Variable::vaporFraction, bubble ? 0.0 : 1.0},
                                       bubble ? SolutionType::normal : SolutionType::retrograde};
            FlashResult result{};
            FlashReason reason{};
            ASSERT_EQ(flash(gas.model, request, gas.z, result, reason), FlashStatus::solved)
                << temperature << ' ' << reason.data();
            EXPECT_EQ(faultOf({gas.model, gas.z, request}, result), "") << temperature;
            EXPECT_NEAR(result.pressure, gas.edge(temperature), 1e-5 * result.pressure) << temperature;
        }
}

// The phases become one in proportion to the distance, and at the critical point.
TEST(BubbleAndDewPoints, HavePhasesThatBecomeOneAtTheCriticalPoint)
{
    const CriticalGas gas;
    const FeedCase feed{std::make_shared<const MixtureModel>(gas.model), gas.z, 0.0, 0.0};
    for (const double side : {-1.0, 1.0}) {
        FlashResult further;
        FlashResult nearer;
        ASSERT_EQ(findPointBeside(feed, gas.critical, side * 0.1, further), "");
        ASSERT_EQ(findPointBeside(feed, gas.critical, side * 0.01, nearer), "");
        EXPECT_NEAR(largestLnK(nearer, gas.model.size), 0.1 * largestLnK(further, gas.model.size),
                    0.01 * largestLnK(further, gas.model.size));
        EXPECT_NEAR(nearer.pressure - gas.critical.pressure, 0.1 * (further.pressure - gas.critical.pressure),
                    0.01 * std::fabs(further.pressure - gas.critical.pressure));
    }
}

// bench/critical_points.cpp asks for hundreds.
TEST(BubbleAndDewPoints, AreFoundToAHundredthOfAKelvinFromRandomCriticalPoints)
{
    constexpr int feedsOfAQuarter = 1;
    constexpr std::uint64_t first = firstFeedOfCriticalSweeps + std::uint64_t{firstQuarter} * feedsOfAQuarter;
    for (const FeedFamily &family : familiesOfGases()) {
        const CriticalSweep sweep = sweepCriticalPoints(family, first, quarters * feedsOfAQuarter, 0.01);
        for (const std::string &fault : sweep.faults)
            ADD_FAILURE() << family.name << ": " << fault;
        EXPECT_GE(sweep.points, quarters * feedsOfAQuarter) << family.name;
    }
}
