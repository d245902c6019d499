#include "tests/reference/engine/flash_sweep.h"

#include <gtest/gtest.h>

using namespace reference;

// bench/flash_sweep.cpp runs a hundred thousand.
TEST(Flash, SolvesOrRightlyRefusesTwoThousandRandomProblems)
{
    const Sweep sweep = sweepFlashes(1, 2000);
    for (const std::string &fault : sweep.faults)
        ADD_FAILURE() << fault;
    const SweepCount total = sweep.total();
    EXPECT_EQ(total.problems, 2000);
    EXPECT_EQ(total.solved + total.refused, total.problems);
    EXPECT_GT(total.solved, 1500);
}
