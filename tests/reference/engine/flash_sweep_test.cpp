#include "tests/reference/engine/campaign.h"
#include "tests/reference/engine/flash_sweep.h"

#include <gtest/gtest.h>

using namespace reference;

namespace {

// Five hundred problems each; bench/pair_sweep.cpp runs a hundred thousand.
class FlashSweep : public testing::TestWithParam<int> {};

} // namespace

TEST_P(FlashSweep, SolvesOrRightlyRefusesRandomProblems)
{
    const Sweep sweep = sweepFlashes(1 + 500 * static_cast<std::uint64_t>(GetParam()), 500);
    const SweepCount total = sweep.total();
    EXPECT_EQ(total.problems, 500);
    EXPECT_EQ(total.wrong, 0);
    // A sliver of states next to where a fourth phase appears, or an end of vapor that has no digits, can be missed:
    // such are refused.
    EXPECT_LE(total.missed, 2);
    if (HasFailure())
        for (const std::string &fault : sweep.faults)
            ADD_FAILURE() << fault;
    EXPECT_GT(total.solved, 350);
}

INSTANTIATE_TEST_SUITE_P(Random, FlashSweep, testing::Range(firstQuarter, endOfQuarters));
