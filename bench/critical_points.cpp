// Bubble and dew points at some distances from the critical points of random gases, in kelvin: how many were asked for,
// and found. Ends with 1 if one was not found at a hundredth of a kelvin.
#include "tests/reference/engine/critical_sweep.h"

#include <cstdio>
#include <cstdlib>

using namespace reference;

// critical_points [FEEDS]: of each family.
int main(int count, char **arguments)
{
    const int feeds = count > 1 ? std::atoi(arguments[1]) : 100;
    bool good = true;
    std::printf("%-20s %9s %9s %9s\n", "", "K", "points", "found");
    for (const FeedFamily &family : familiesOfGases())
        for (const double distance : {0.1, 0.03, 0.01, 0.003}) {
            const CriticalSweep sweep = sweepCriticalPoints(family, firstFeedOfCriticalSweeps, feeds, distance);
            std::printf("%-20s %9.3f %9d %9d\n", family.name, distance, sweep.points,
                        sweep.points - static_cast<int>(sweep.faults.size()));
            for (const std::string &fault : sweep.faults)
                std::printf("    %s\n", fault.c_str());
            good &= distance != 0.01 || sweep.faults.empty();
        }
    return good ? 0 : 1;
}
