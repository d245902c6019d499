// Suites that end in every way in which a suite can: test_run_suite.py runs them.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <thread>

TEST(Sound, Passes) {}
TEST(Sound, PassesToo) {}

TEST(Failing, Passes) {}
TEST(Failing, Fails) { FAIL() << "on purpose"; }

TEST(Skipping, Passes) {}
TEST(Skipping, Skips) { GTEST_SKIP(); }

TEST(Crashing, Passes) {}
TEST(Crashing, Traps) { __builtin_trap(); }
TEST(Crashing, PassesToo) {}

TEST(Leaving, Passes) {}
TEST(Leaving, EndsTheProgramAsIfAllWereWell) { std::_Exit(0); }
TEST(Leaving, PassesToo) {}

TEST(Hanging, Hangs) { std::this_thread::sleep_for(std::chrono::minutes(10)); }

// Each passes by itself.
static bool anotherWasHere = false;
static void quarrel()
{
    if (anotherWasHere)
        __builtin_trap();
    anotherWasHere = true;
}
TEST(Quarrelling, First) { quarrel(); }
TEST(Quarrelling, Second) { quarrel(); }

namespace {
class OfEach : public testing::TestWithParam<int> {};
} // namespace
TEST_P(OfEach, IsLessThanTwo) { EXPECT_LT(GetParam(), 2); }
INSTANTIATE_TEST_SUITE_P(Numbers, OfEach, testing::Range(0, 3));
