// What the commands that take a handle have in common: the handle itself, and the result for `ans`.
#include "tests/support/package_test.h"

using namespace support;

namespace {

class CommandWithHandle : public PackageTest, public testing::WithParamInterface<int> {
protected:
    void SetUp() override
    {
        PackageTest::SetUp();
        package.constants = AnswerValues(ArrayOfVariants({RealVariant(1), RealVariant(2)}));
        package.temperatureDependent = AnswerValues(NumberArray({1, 2}));
        package.pressureDependent = AnswerValues(NumberArray({1, 2}));
        package.calcSinglePhase = StoreSinglePhase({{"volume", "mole", {0.025}}});
        package.calcTwoPhase = StoreTwoPhase({{"surfaceTension", "", {0.07}}});
        package.calcEquilibrium = StoreEquilibrium({{"Liquid", 1, {0.5, 0.5}}}, 300, 1e5);
    }

    int results() const { return GetParam() == 4 ? 0 : GetParam() == 24 ? 5 : 1; }

    // Of a call that works when `first` is the handle.
    std::vector<Array> arguments(const Array &first) const
    {
        switch (GetParam()) {
        case 9:
            return {Scalar(9), first, Text("Vapor")};
        case 16:
            return {Scalar(16), first, Text("criticalPressure")};
        case 20:
            return {Scalar(20), Scalar(1), first, Text("vaporPressure"), Scalar(300)};
        case 21:
            return {Scalar(21), Scalar(1), first, Text("boilingPointTemperature"), Scalar(1e5)};
        case 22:
            return with(first, 2, singlePhase());
        case 23:
            return with(first, 2, twoPhase());
        case 24:
            return with(first, 1, flash());
        case 25:
            return with(first, 1, batch());
        default:
            return {Scalar(GetParam()), first};
        }
    }

private:
    static std::vector<Array> with(const Array &first, std::size_t position, std::vector<Array> all)
    {
        all[position] = first;
        return all;
    }
};

// Those that give a result whether it is asked for or not.
class CommandWithAnswer : public CommandWithHandle {};

} // namespace

TEST_P(CommandWithHandle, TakesTheInt32ScalarOfAnOpenPackageAlone)
{
    world.log.clear();
    for (const Array &wrong : WrongHandles(handle))
        EXPECT_EQ(refusal(results(), arguments(wrong)), "Invalid property package handle");
    EXPECT_EQ(world.log, CallLog());
    mustReturn(results(), arguments(handle));
}

TEST_P(CommandWithHandle, RefusesThatOfAClosedPackage)
{
    mustReturn(0, {Scalar(4), handle});
    EXPECT_EQ(refusal(results(), arguments(handle)), "Invalid property package handle");
    open("Alone");
    EXPECT_EQ(package.objectsMade(), 2);
}

TEST_P(CommandWithAnswer, GivesItAlsoWhenNoneIsAskedFor) { EXPECT_TRUE(mustReturn(0, arguments(handle))[0]); }

INSTANTIATE_TEST_SUITE_P(OfCode, CommandWithHandle,
                         testing::Values(4, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 20, 21, 22, 23, 24, 25),
                         testing::PrintToStringParamName());
INSTANTIATE_TEST_SUITE_P(OfCode, CommandWithAnswer,
                         testing::Values(6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 20, 21, 22, 23),
                         testing::PrintToStringParamName());
