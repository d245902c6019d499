// Flashes at given temperature and pressure over feeds of many kinds, each held against a slow search for the stable
// state. Ends with 1 if any answer is not the stable state, any feed was refused that has one, or no family
// has the name that is asked for.
#include "tests/reference/engine/phase_sweep.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string_view>

using namespace reference;

// flash_sweep [FEEDS [FIRST [FAMILY]]]: so many of each family; each follows from its number alone.
int main(int count, char **arguments)
{
    const int feeds = count > 1 ? std::atoi(arguments[1]) : 100000 / static_cast<int>(feedFamilies().size());
    const std::uint64_t first = count > 2 ? std::strtoull(arguments[2], nullptr, 10) : 1000000;
    const std::string_view only = count > 3 ? arguments[3] : "";
    PhaseSweepCount all;
    const auto print = [](const char *name, const PhaseSweepCount &sum, double milliseconds) {
        std::printf("%-12s %7d %7d %7d %7d %7d %7d %7d %7d %7d %9.2f\n", name, sum.feeds, sum.byPhases[1],
                    sum.byPhases[2], sum.byPhases[3], sum.byPhases[0], sum.worse, sum.refused, sum.inexact,
                    sum.judgeWorse, milliseconds);
        std::fflush(stdout);
    };
    std::printf("%-12s %7s %7s %7s %7s %7s %7s %7s %7s %7s %9s\n", "", "feeds", "one", "two", "three", "none", "worse",
                "refused", "inexact", "judge", "ms each");
    for (const FeedFamily &family : feedFamilies()) {
        if (!only.empty() && only != family.name)
            continue;
        PhaseSweepCount sum;
        const auto start = std::chrono::steady_clock::now();
        for (int i = 0; i < feeds; ++i) {
            const PhaseSweep one = sweepPhases(family, first + static_cast<std::uint64_t>(i), 1);
            sum.add(one.count);
            for (const std::string &fault : one.faults)
                std::printf("%s %llu: %s\n", family.name, static_cast<unsigned long long>(first) + i, fault.c_str());
        }
        const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
        print(family.name, sum, 1e3 * seconds.count() / feeds);
        all.add(sum);
    }
    print("all", all, 0.0);
    return all.feeds > 0 && all.faults() == 0 ? 0 : 1;
}
