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

// In parts, each of which CTest runs in a process of its own: on Windows every load of a library that throws keeps an
// index of thread storage, of which a process has 1088.
INSTANTIATE_TEST_SUITE_P(OfDiscovery, EachLibraryCall, testing::ValuesIn(RowsBetween("ListManagers", "Create")),
                         NameOfRow);
INSTANTIATE_TEST_SUITE_P(OfCreation, EachLibraryCall, testing::ValuesIn(RowsBetween("Create", "Release")), NameOfRow);
INSTANTIATE_TEST_SUITE_P(OfReport, EachLibraryCall, testing::ValuesIn(RowsBetween("Release", "SinglePhaseProperty")),
                         NameOfRow);
INSTANTIATE_TEST_SUITE_P(OfProperties, EachLibraryCall, testing::ValuesIn(RowsBetween("SinglePhaseProperty", "Flash")),
                         NameOfRow);
INSTANTIATE_TEST_SUITE_P(OfFlash, EachLibraryCall, testing::ValuesIn(RowsBetween("Flash", "")), NameOfRow);
