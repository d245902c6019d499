// Calls that the library makes of the operating system, COM, the C++ runtime and MATLAB.
#include "tests/mex/failures/campaign.h"

using namespace support;

namespace {

class EachLibraryCall : public Campaign, public testing::WithParamInterface<CommandRow> {};

} // namespace

TEST_P(EachLibraryCall, Fails)
{
    for (const WayToFail &way : WaysToFail()) {
        Failing failing = ofTheLibrary(way);
        if (GetParam().scans && way.name == "memory") { // classes that a scan missed stay missed
            failing.effect = Effect::shortens;
            failEach(GetParam(), failing);
            failing.effect = way.effect;
            failing.isAfterScan = true;
        }
        failEach(GetParam(), failing);
    }
}

INSTANTIATE_TEST_SUITE_P(OfCommand, EachLibraryCall, testing::ValuesIn(CommandRows()), NameOfRow);
