#include "tests/support/mex_test.h"

namespace support {

void MexTest::SetUp()
{
    arraysBefore = mxStandInLiveArrays();
    ASSERT_TRUE(matlab.loaded()) << "the library was not found beside the test program";
}

void MexTest::TearDown()
{
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

Array MexTest::open(AnyText manager, AnyText package)
{
    return mustReturn(1, {Scalar(3), Text(manager), Text(package)})[0];
}

} // namespace support
