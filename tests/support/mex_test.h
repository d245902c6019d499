// The fixture of tests that go through mexFunction.
#pragma once

#include "tests/support/component_world.h"
#include "tests/support/failures.h"
#include "tests/support/mex_host.h"
#include "tests/support/wrong_arguments.h"

#include <gtest/gtest.h>

#include <limits>

namespace support {

using Rows = std::vector<std::vector<double>>;

// The two forms of a value that is not there: NaN, and CAPE-OPEN 1.1's UNDEFINED.
inline constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
inline constexpr double undefinedNumber = -1.7976931348623157e308;

// At the end of each test the library is cleared as MATLAB does it; then every component must
// have been released and every array destroyed.
class MexTest : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    CallResult call(int nlhs, const std::vector<Array> &arguments) { return matlab.call(nlhs, arguments); }

    // Calls that are expected to return: the test fails with the text when they raise.
    CallResult mustReturn(int nlhs, const std::vector<Array> &arguments);

    // The text that a call raises. It warns of nothing, and the library answers the next call.
    std::string refusal(int nlhs, const std::vector<Array> &arguments);

    // The good call returns. Each wrong argument is refused with its words, of two wrong ones the
    // one that is first in the list. After all that the good call returns again.
    void expectCheckedInOrder(int nlhs, const std::vector<Array> &good, const std::vector<WrongArgument> &inOrder);

    // Command 3 with the handle as its result, which is an empty array when it raised.
    Array open(AnyText manager, AnyText package = "");

    void showWarnings(bool shown);    // command 17
    void useBasis(const char *basis); // command 18

    ComponentWorld world;
    MexHost matlab;
    Array handle; // of the package that a test is about; given up before arrays are counted

private:
    std::size_t arraysBefore = 0;
};

// The references on an object at this moment.
int ReferencesOn(IUnknown *object);

// Equal but for the rounding of a conversion.
void ExpectNear(const Rows &actual, const Rows &expected);

} // namespace support
