// Many mixed calls in one process: packages opened and closed, calculations, mistakes. When all have been made that a
// first run makes grow, memory, handles and arrays must not grow any more.
#include "tests/reference/com/host.h"
#include "tests/soak/process_size.h"
#include "tests/soak/requests.h"
#include "tests/support/mex_test.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>

using namespace support;

namespace {

std::size_t callsOfThisRun()
{
    const char *calls = std::getenv("SOAK_CALLS");
    return calls ? static_cast<std::size_t>(std::strtoull(calls, nullptr, 10)) : 2000;
}

class Soak : public MexTest {
protected:
    void SetUp() override
    {
        MexTest::SetUp();
        ASSERT_EQ(library.registerServer(), S_OK);
    }
    void TearDown() override
    {
        MexTest::TearDown(); // the library gives up every array
        EXPECT_EQ(library.canUnloadNow(), S_OK) << "an object of the packages is left";
        EXPECT_EQ(library.unregisterServer(), S_OK);
    }

    ::Library library;
};

} // namespace

TEST_F(Soak, LeavesTheProcessAsItIs)
{
    constexpr std::size_t reports = 10;
    const std::size_t total = callsOfThisRun();
    soak::Requests requests(matlab, 20261122);
    const std::size_t arraysBefore = mxStandInLiveArrays();
    ProcessSize warm;
    std::size_t namesWhenWarm = 0;
    const auto start = std::chrono::steady_clock::now();
    for (std::size_t report = 1; report <= reports; ++report) {
        while (requests.calls < total * report / reports)
            requests.makeOne();
        const ProcessSize now = CurrentProcessSize();
        ASSERT_GT(now.memory, 0u);
        ASSERT_GT(now.handles, 0u);
        const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
        std::printf(
            "%9zu calls, %8zu calculated, %8zu refused, %8zu warnings, %6zu opened: %8.1f s, %8.2f MB, %zu handles\n",
            requests.calls, requests.calculated, requests.refused, requests.warned, requests.opened, seconds.count(),
            static_cast<double>(now.memory) / 1e6, now.handles);
        std::fflush(stdout);
        EXPECT_EQ(mxStandInLiveArrays(), arraysBefore);
        if (report == 2) {
            warm = now;
            namesWhenWarm = requests.namesLent;
        }
        if (report <= 2)
            continue;
        // A name that a manager was given is never freed: managers keep the pointer.
        constexpr std::size_t bytesOfALentName = 160;
        constexpr std::size_t allowance = 2'000'000; // of the allocator
        EXPECT_LE(now.memory, warm.memory + allowance + (requests.namesLent - namesWhenWarm) * bytesOfALentName);
        EXPECT_LE(now.handles, warm.handles + 4);
    }
    EXPECT_GT(requests.calculated, total / 4) << "values come back";
    EXPECT_GT(requests.refused, total / 20) << "mistakes are made";
    EXPECT_GT(requests.warned, total / 100) << "rows fail";
}

namespace {

// With scripted packages, of which there can be as many as are asked for.
class SoakWithScripts : public MexTest {};

} // namespace

TEST_F(SoakWithScripts, OpensAsManyPackagesAsThereAreHandles)
{
    constexpr std::size_t handles = 32768;
    const std::size_t count = std::min(handles, callsOfThisRun() / 20);
    PackageScript &package = world.addUnregisteredPackage();
    ManagerScript &manager = world.addManager("Manager");
    for (std::size_t i = 0; i <= count; ++i)
        manager.offer("Package " + std::to_string(i), package);
    for (std::size_t i = 0; i < count; ++i)
        open("Manager", "Package " + std::to_string(i));
    EXPECT_EQ(mustReturn(1, {Scalar(5)})[0].count(), count);
    if (count == handles) {
        EXPECT_EQ(refusal(1, {Scalar(3), Text("Manager"), Text("Package " + std::to_string(count))}),
                  "no more packages can be open at one time");
        mustReturn(0, {Scalar(4), open("Manager", "Package 7")});
        open("Manager", "Package " + std::to_string(count));
    }
}

TEST_F(SoakWithScripts, TakesAsManyLogMessagesInOneCall)
{
    PackageScript &package = world.addPackage("Alone");
    const Array alone = open("Alone");
    static std::size_t heard;
    heard = 0;
    mexStandInOnWarning([] {
        ++heard;
        mexStandInClearWarnings(); // they would fill the memory of the stand-in
    });
    const std::size_t messages = callsOfThisRun();
    ProcessSize early;
    package.onCall = [&](const std::string &method) {
        if (method != "GetConstPropList")
            return;
        for (std::size_t i = 0; i < messages; ++i) {
            if (i == messages / 10)
                early = CurrentProcessSize();
            ASSERT_EQ(LogMessage(package, "still working"), S_OK);
        }
    };
    mustReturn(1, {Scalar(10), alone});
    package.onCall = nullptr;
    mexStandInOnWarning(nullptr);
    EXPECT_EQ(heard, messages);
    EXPECT_LE(CurrentProcessSize().memory, early.memory + 2'000'000);
}
