#include "host/value_call.h"

#include <gtest/gtest.h>

using wire::Class;
using wire::Value;

namespace {

constexpr std::size_t scalar[] = {1, 1};

Value numberOf(const double &number, const double *imaginary = nullptr)
{
    return {Class::Double, 2, scalar, &number, imaginary, {}};
}

// Doubles its argument, and says so.
void twice(int, mxArray *plhs[], int, const mxArray *prhs[])
{
    mexWarnMsgTxt("one warning");
    mexWarnMsgTxt("another");
    plhs[0] = mxCreateDoubleMatrix_730(1, 1, mxREAL);
    *mxGetPr(plhs[0]) = 2 * mxGetScalar(prhs[0]);
}

void refuse(int, mxArray *[], int, const mxArray *[])
{
    mexWarnMsgTxt("before the end");
    mexErrMsgTxt("100% refused");
}

class ValueCall : public testing::Test {
protected:
    void TearDown() override
    {
        call.release();
        EXPECT_EQ(mxStandInLiveArrays(), 0u);
    }
    host::ValueCall call;
};

TEST_F(ValueCall, GivesResultsAndWarnings)
{
    ASSERT_TRUE(call.run(twice, 2, {numberOf(21)}));
    ASSERT_EQ(call.results().size(), 2u);
    EXPECT_EQ(*static_cast<const double *>(call.results()[0].real), 42.0);
    EXPECT_EQ(call.results()[1].type, Class::Missing);
    EXPECT_EQ(call.warnings(), (std::vector<std::string>{"one warning", "another"}));
    EXPECT_EQ(call.error(), "");
}

TEST_F(ValueCall, GivesOneResultToWhomAsksForNone)
{
    ASSERT_TRUE(call.run(twice, 0, {numberOf(4)}));
    EXPECT_EQ(call.results().size(), 1u);
}

TEST_F(ValueCall, GivesTheErrorAndWhatWasWarnedBefore)
{
    ASSERT_TRUE(call.run(twice, 1, {numberOf(4)}));
    EXPECT_FALSE(call.run(refuse, 1, {}));
    EXPECT_EQ(call.error(), "100% refused");
    EXPECT_EQ(call.warnings(), std::vector<std::string>{"before the end"});
    EXPECT_TRUE(call.results().empty());
    call.clear();
    EXPECT_EQ(call.error(), "");
    EXPECT_TRUE(call.warnings().empty());
}

TEST_F(ValueCall, SaysThatThereIsNoMemoryForTheArguments)
{
    const double number = 1;
    mxStandInFailCreation(1);
    EXPECT_FALSE(call.run(twice, 1, {numberOf(number, &number)}));
    EXPECT_EQ(call.error(), "Out of memory.");
    EXPECT_TRUE(call.results().empty());
    EXPECT_TRUE(call.warnings().empty());
}

} // namespace
