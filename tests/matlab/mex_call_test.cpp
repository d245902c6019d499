// Each test's MEX function is a lambda without captures; what it has to tell lies in `seen`.
#include "platform/matlab/standin.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <stdexcept>
#include <string>

namespace {

struct Seen {
    int destroyed = 0;
    int reached = 0;
    mxArray *array = nullptr;
} seen;

struct CountsItsDestruction {
    ~CountsItsDestruction() { ++seen.destroyed; }
};

mxArray *number(double value)
{
    mxArray *array = mxCreateDoubleMatrix_730(1, 1, mxREAL);
    *mxGetPr(array) = value;
    return array;
}

mxArray *cellOf(mxArray *element)
{
    const mwSize dimensions[] = {1, 1};
    mxArray *cell = mxCreateCellArray_730(2, dimensions);
    mxSetCell_730(cell, 0, element);
    return cell;
}

class MexCall : public testing::TestWithParam<MexLeave> {
protected:
    void SetUp() override { seen = {}; }
    void TearDown() override
    {
        mxStandInFailCreation(0);
        EXPECT_EQ(mxStandInLiveArrays(), 0u);
    }
    bool call(MexFunction function, int nlhs = 0, int nrhs = 0, const mxArray *prhs[] = nullptr)
    {
        return mexStandInCall(function, nlhs, outputs, nrhs, prhs, GetParam());
    }

    mxArray *outputs[3] = {};
};

INSTANTIATE_TEST_SUITE_P(Leaving, MexCall, testing::Values(mexLEAVE_UNWIND, mexLEAVE_JUMP),
                         [](const auto &info) { return info.param == mexLEAVE_UNWIND ? "Unwind" : "Jump"; });

} // namespace

TEST_P(MexCall, HandsOverArgumentsAndResult)
{
    mxArray *argument = number(4);
    const mxArray *arguments[] = {argument};
    ASSERT_TRUE(call([](int nlhs, mxArray *plhs[], int nrhs,
                        const mxArray *prhs[]) { plhs[0] = number(mxGetScalar(prhs[0]) + 10 * nlhs + 100 * nrhs); },
                     1, 1, arguments));
    EXPECT_STREQ(mexStandInError(), "");
    EXPECT_EQ(mxGetScalar(outputs[0]), 114.0);
    mxDestroyArray(outputs[0]);
    EXPECT_EQ(mxGetScalar(argument), 4.0);
    mxDestroyArray(argument);
}

TEST_P(MexCall, KeepsTheFirstOutputThatNobodyAskedFor)
{
    ASSERT_TRUE(call([](int, mxArray *plhs[], int, const mxArray *[]) {
        plhs[0] = number(1);
        plhs[1] = number(2);
    }));
    EXPECT_EQ(mxGetScalar(outputs[0]), 1.0);
    EXPECT_EQ(outputs[1], nullptr);
    EXPECT_EQ(mxStandInLiveArrays(), 1u);
    mxDestroyArray(outputs[0]);
}

TEST_P(MexCall, AnErrorDoesNotReturnToItsCaller)
{
    EXPECT_FALSE(call([](int, mxArray *[], int, const mxArray *[]) {
        seen.reached = 1;
        mexErrMsgTxt("no");
        seen.reached = 2;
    }));
    EXPECT_EQ(seen.reached, 1);
    EXPECT_STREQ(mexStandInError(), "no");
}

TEST_P(MexCall, LeavesTheFramesInTheChosenWay)
{
    EXPECT_FALSE(call([](int, mxArray *[], int, const mxArray *[]) {
        CountsItsDestruction local;
        mexErrMsgTxt("no");
    }));
    EXPECT_EQ(seen.destroyed, GetParam() == mexLEAVE_UNWIND ? 1 : 0);
}

TEST_P(MexCall, TheTextOfAnErrorIsNoFormat)
{
    EXPECT_FALSE(call([](int, mxArray *[], int, const mxArray *[]) { mexErrMsgTxt("100%s \\n %d\\path \xC3\xA9"); }));
    EXPECT_STREQ(mexStandInError(), "100%s \\n %d\\path \xC3\xA9");
}

TEST_P(MexCall, TheTextOfAnErrorIsKeptWhenItsStorageIsGone)
{
    EXPECT_FALSE(call([](int, mxArray *[], int, const mxArray *[]) {
        char text[] = "a local text";
        mexErrMsgTxt(text);
    }));
    EXPECT_STREQ(mexStandInError(), "a local text");
}

TEST_P(MexCall, AfterAnErrorTheNextCallWorks)
{
    const MexFunction fails = [](int, mxArray *[], int, const mxArray *[]) { mexErrMsgTxt("no"); };
    EXPECT_FALSE(call(fails));
    EXPECT_FALSE(call(fails));
    EXPECT_TRUE(call([](int, mxArray *plhs[], int, const mxArray *[]) { plhs[0] = number(3); }, 1));
    EXPECT_STREQ(mexStandInError(), "");
    EXPECT_EQ(mxGetScalar(outputs[0]), 3.0);
    mxDestroyArray(outputs[0]);
}

TEST_P(MexCall, AFailedCallLeavesNoArraysBehind)
{
    outputs[0] = outputs[1] = reinterpret_cast<mxArray *>(1);
    EXPECT_FALSE(call(
        [](int, mxArray *plhs[], int, const mxArray *[]) {
            plhs[0] = number(1);
            plhs[1] = cellOf(cellOf(number(2)));
            mexErrMsgTxt("no");
        },
        2));
    EXPECT_EQ(outputs[0], nullptr);
    EXPECT_EQ(outputs[1], nullptr);
    EXPECT_EQ(mxStandInLiveArrays(), 0u);
}

TEST_P(MexCall, ArraysThatAreNotReturnedAreDestroyed)
{
    EXPECT_TRUE(call(
        [](int, mxArray *plhs[], int, const mxArray *[]) {
            number(1);
            cellOf(number(2));
            plhs[0] = cellOf(number(3));
            plhs[1] = number(4);
        },
        1));
    EXPECT_EQ(mxStandInLiveArrays(), 2u);
    EXPECT_EQ(mxGetScalar(mxGetCell_730(outputs[0], 0)), 3.0);
    mxDestroyArray(outputs[0]);
}

TEST_P(MexCall, AnElementTakenOutOfACellIsDestroyedAfterTheCall)
{
    EXPECT_TRUE(call([](int, mxArray *plhs[], int, const mxArray *[]) {
        plhs[0] = cellOf(number(1));
        mxSetCell_730(plhs[0], 0, nullptr);
    }));
    EXPECT_EQ(mxStandInLiveArrays(), 1u);
    mxDestroyArray(outputs[0]);
}

TEST_P(MexCall, AnArgumentThatIsReturnedComesBackAsACopy)
{
    mxArray *complex = mxCreateDoubleMatrix_730(1, 1, mxCOMPLEX);
    *mxGetPr(complex) = 5;
    *mxGetPi(complex) = 6;
    mxArray *argument = cellOf(complex);
    const mxArray *arguments[] = {argument};
    ASSERT_TRUE(call([](int, mxArray *plhs[], int, const mxArray *prhs[]) { plhs[0] = const_cast<mxArray *>(prhs[0]); },
                     1, 1, arguments));
    EXPECT_NE(outputs[0], argument);
    mxDestroyArray(argument);
    mxArray *element = mxGetCell_730(outputs[0], 0);
    EXPECT_EQ(*mxGetPr(element), 5.0);
    EXPECT_EQ(*mxGetPi(element), 6.0);
    mxDestroyArray(outputs[0]);
}

TEST_P(MexCall, OneArrayReturnedTwiceGivesTwoArrays)
{
    ASSERT_TRUE(call([](int, mxArray *plhs[], int, const mxArray *[]) { plhs[0] = plhs[1] = number(8); }, 2));
    EXPECT_NE(outputs[0], outputs[1]);
    mxDestroyArray(outputs[0]);
    EXPECT_EQ(mxGetScalar(outputs[1]), 8.0);
    mxDestroyArray(outputs[1]);
}

TEST_P(MexCall, ACreationThatFailsEndsTheCall)
{
    mxStandInFailCreation(2);
    EXPECT_FALSE(call([](int, mxArray *[], int, const mxArray *[]) {
        number(1);
        seen.reached = 1;
        number(2);
        seen.reached = 2;
    }));
    EXPECT_EQ(seen.reached, 1);
    EXPECT_STREQ(mexStandInError(), "Out of memory.");
}

TEST_P(MexCall, ASizeThatCannotBeAddressedEndsTheCall)
{
    EXPECT_FALSE(call([](int, mxArray *[], int, const mxArray *[]) {
        mxCreateDoubleMatrix_730(SIZE_MAX, 3, mxREAL);
        seen.reached = 1;
    }));
    EXPECT_EQ(seen.reached, 0);
    EXPECT_STREQ(mexStandInError(), "Out of memory.");
}

TEST_P(MexCall, AForeignExceptionCountsAsAnError)
{
    EXPECT_FALSE(call([](int, mxArray *[], int, const mxArray *[]) {
        number(1);
        throw std::out_of_range("beyond the end");
    }));
    EXPECT_STREQ(mexStandInError(), "Unexpected exception: beyond the end");
    EXPECT_FALSE(call([](int, mxArray *[], int, const mxArray *[]) { throw 1; }));
    EXPECT_STREQ(mexStandInError(), "Unexpected exception: unknown");
}

TEST_P(MexCall, ACallInsideACallEndsOnItsOwn)
{
    ASSERT_TRUE(call(
        [](int, mxArray *plhs[], int, const mxArray *[]) {
            mxArray *mine = number(1);
            mxArray *result = nullptr;
            mexStandInCall(
                [](int, mxArray *inner[], int, const mxArray *[]) {
                    number(2);
                    inner[0] = number(3);
                },
                1, &result, 0, nullptr, GetParam());
            seen.reached = mexStandInCall([](int, mxArray *[], int, const mxArray *[]) { mexErrMsgTxt("inner"); }, 0,
                                          &seen.array, 0, nullptr, GetParam())
                               ? 1
                               : 2;
            plhs[0] = number(mxGetScalar(mine) + mxGetScalar(result));
        },
        1));
    EXPECT_EQ(seen.reached, 2);
    EXPECT_EQ(mxGetScalar(outputs[0]), 4.0);
    EXPECT_EQ(mxStandInLiveArrays(), 1u);
    mxDestroyArray(outputs[0]);
}

TEST_P(MexCall, WarningsAreKeptInOrderAndDoNotEndTheCall)
{
    mexStandInClearWarnings();
    EXPECT_TRUE(call([](int, mxArray *[], int, const mxArray *[]) {
        mexWarnMsgTxt("first %d");
        mexWarnMsgTxt("second");
    }));
    ASSERT_EQ(mexStandInWarningCount(), 2u);
    EXPECT_STREQ(mexStandInWarning(0), "first %d");
    EXPECT_STREQ(mexStandInWarning(1), "second");
    mexStandInClearWarnings();
    EXPECT_EQ(mexStandInWarningCount(), 0u);
}

TEST_P(MexCall, TheExitRoutineRunsOnce)
{
    EXPECT_FALSE(mexStandInRunExit());
    EXPECT_TRUE(
        call([](int, mxArray *[], int, const mxArray *[]) { seen.reached = mexAtExit([] { seen.reached += 10; }); }));
    EXPECT_EQ(seen.reached, 0);
    EXPECT_TRUE(mexStandInRunExit());
    EXPECT_EQ(seen.reached, 10);
    EXPECT_FALSE(mexStandInRunExit());
    EXPECT_EQ(seen.reached, 10);
}

TEST_P(MexCall, TheExitRoutineMayWarnAndCall)
{
    mexStandInClearWarnings();
    mexAtExit([] {
        mexWarnMsgTxt("closing");
        mxDestroyArray(number(1));
        seen.reached = mexStandInCall([](int, mxArray *[], int, const mxArray *[]) { mexErrMsgTxt("late"); }, 0,
                                      &seen.array, 0, nullptr, GetParam())
                           ? 1
                           : 2;
    });
    EXPECT_TRUE(mexStandInRunExit());
    EXPECT_EQ(seen.reached, 2);
    EXPECT_STREQ(mexStandInError(), "late");
    ASSERT_EQ(mexStandInWarningCount(), 1u);
    EXPECT_STREQ(mexStandInWarning(0), "closing");
    mexStandInClearWarnings();
}

TEST(MexCallDeath, AnErrorOutsideOfACallPrintsAndEnds)
{
    EXPECT_DEATH(mexErrMsgTxt("lost %s"), "MATLAB stand-in: error outside of a call: lost %s");
}
