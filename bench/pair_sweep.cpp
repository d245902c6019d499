// A hundred thousand random flash problems of all pairs of specifications: how many of each were solved, how
// many refused for a reason that is true, and what time they took. Ends with 1 if any answer is wrong, or if more than
// one of a thousand were refused that have a solution.
#include "reference/engine/flash/flash_reason.h"
#include "tests/reference/engine/flash_sweep.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace {

using namespace reference;

struct PairTotal {
    SweepCount count;
    double seconds = 0.0;
};

} // namespace

// pair_sweep [PROBLEMS [FIRST]]: each problem follows from its number alone.
int main(int count, char **arguments)
{
    const int problems = count > 1 ? std::atoi(arguments[1]) : 100000;
    const std::uint64_t first = count > 2 ? std::strtoull(arguments[2], nullptr, 10) : 1000000;
    static PairTotal pairs[flashVariableCount][flashVariableCount];
    SweepCount all;
    for (std::uint64_t number = first; number < first + static_cast<std::uint64_t>(problems); ++number) {
        const auto start = std::chrono::steady_clock::now();
        const Sweep one = sweepFlashes(number, 1);
        const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        for (int i = 0; i < flashVariableCount; ++i)
            for (int j = i; j < flashVariableCount; ++j) {
                if (one.counts[i][j].problems == 0)
                    continue;
                pairs[i][j].count.add(one.counts[i][j]);
                pairs[i][j].seconds += seconds;
            }
        all.add(one.total());
        for (const std::string &fault : one.faults)
            std::printf("problem %llu: %s\n", static_cast<unsigned long long>(number), fault.c_str());
    }

    std::printf("%-20s %-20s %9s %9s %9s %9s %9s %9s\n", "", "", "problems", "solved", "refused", "missed", "wrong",
                "ms each");
    double seconds = 0.0;
    for (int i = 0; i < flashVariableCount; ++i)
        for (int j = i + 1; j < flashVariableCount; ++j) {
            const SweepCount &pair = pairs[i][j].count;
            seconds += pairs[i][j].seconds;
            std::printf("%-20s %-20s %9d %9d %9d %9d %9d %9.2f\n", flashVariableName(static_cast<FlashVariable>(i)),
                        flashVariableName(static_cast<FlashVariable>(j)), pair.problems, pair.solved, pair.refused,
                        pair.missed, pair.wrong, pair.problems ? 1e3 * pairs[i][j].seconds / pair.problems : 0.0);
        }
    std::printf("%-41s %9d %9d %9d %9d %9d %9.2f\n", "all", all.problems, all.solved, all.refused, all.missed,
                all.wrong, 1e3 * seconds / problems);
    return all.wrong == 0 && all.missed <= problems / 1000 ? 0 : 1;
}
