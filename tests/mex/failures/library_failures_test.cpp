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
        if (way.name == "memory" && (GetParam().is(scans) || GetParam().is(scansFirst))) {
            failing.effect = Effect::shortens; // classes that a scan missed stay missed
            if (GetParam().is(scansFirst))
                failEach(GetParam(), failing);
            failing.effect = way.effect;
            failing.isWarm = true;
        }
        failEach(GetParam(), failing);
    }
}

INSTANTIATE_TEST_SUITE_P(OfCommand, EachLibraryCall, testing::ValuesIn(CommandRows()), NameOfRow);
