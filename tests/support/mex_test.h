// The fixture of tests that go through mexFunction.
#pragma once

#include "tests/support/component_world.h"
#include "tests/support/mex_host.h"

#include <gtest/gtest.h>

namespace support {

// At the end of each test the library is cleared as MATLAB does it; then every component must
// have been released and every array destroyed.
class MexTest : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    CallResult call(int nlhs, const std::vector<Array> &arguments) { return matlab.call(nlhs, arguments); }

    // Calls that are expected to return: the test fails with the text when they raise.
    CallResult mustReturn(int nlhs, const std::vector<Array> &arguments);

    // Command 3 with the handle as its result, which is an empty array when it raised.
    Array open(AnyText manager, AnyText package = "");

    ComponentWorld world;
    MexHost matlab;

private:
    std::size_t arraysBefore = 0;
};

} // namespace support
