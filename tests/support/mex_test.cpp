#include "tests/support/mex_test.h"

#include <cmath>

namespace support {

void MexTest::SetUp()
{
    arraysBefore = mxStandInLiveArrays();
    ASSERT_TRUE(matlab.loaded()) << "the library was not found beside the test program";
}

void MexTest::TearDown()
{
    handle = Array();
    mxStandInFailCreation(0);
    matlab.clear();
    world.expectAllReleased();
    EXPECT_EQ(mxStandInLiveArrays(), arraysBefore) << "arrays are left";
}

CallResult MexTest::mustReturn(int nlhs, const std::vector<Array> &arguments)
{
    CallResult result = matlab.call(nlhs, arguments);
    EXPECT_TRUE(result.returned) << result.error;
    return result;
}

std::string MexTest::refusal(int nlhs, const std::vector<Array> &arguments)
{
    const CallResult result = call(nlhs, arguments);
    EXPECT_FALSE(result.returned);
    EXPECT_EQ(result.warnings, std::vector<std::string>());
    mustReturn(1, {Scalar(5)});
    return result.error;
}

void MexTest::expectCheckedInOrder(int nlhs, const std::vector<Array> &good, const std::vector<WrongArgument> &inOrder)
{
    mustReturn(nlhs, good);
    for (std::size_t i = 0; i < inOrder.size(); ++i) {
        std::vector<Array> wrong = good;
        wrong[inOrder[i].position] = inOrder[i].value;
        EXPECT_EQ(refusal(nlhs, wrong), inOrder[i].message);
        for (std::size_t j = i + 1; j < inOrder.size(); ++j) {
            if (inOrder[j].position == inOrder[i].position)
                continue;
            SCOPED_TRACE("and argument " + std::to_string(inOrder[j].position) + " wrong, too");
            std::vector<Array> bothWrong = wrong;
            bothWrong[inOrder[j].position] = inOrder[j].value;
            EXPECT_EQ(refusal(nlhs, bothWrong), inOrder[i].message);
        }
    }
    mustReturn(nlhs, good);
}

Array MexTest::open(AnyText manager, AnyText package)
{
    return mustReturn(1, {Scalar(3), Text(manager), Text(package)})[0];
}

void MexTest::showWarnings(bool shown) { mustReturn(0, {Scalar(17), Logical(shown)}); }

void MexTest::useBasis(const char *basis) { mustReturn(0, {Scalar(18), Text(basis)}); }

int ReferencesOn(IUnknown *object)
{
    object->AddRef();
    return static_cast<int>(object->Release());
}

void ExpectNear(const Rows &actual, const Rows &expected)
{
    ASSERT_EQ(actual.size(), expected.size());
    for (std::size_t r = 0; r < actual.size(); ++r) {
        ASSERT_EQ(actual[r].size(), expected[r].size());
        for (std::size_t k = 0; k < actual[r].size(); ++k)
            EXPECT_NEAR(actual[r][k], expected[r][k], 1e-12 * std::abs(expected[r][k])) << "row " << r << ", " << k;
    }
}

} // namespace support
