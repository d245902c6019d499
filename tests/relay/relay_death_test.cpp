// The relay's process dies while the library uses packages in it. Each test wants a session of its own: Wine keeps the
// dead process on its list.
#include "tests/relay/through_relay_test.h"

#include <chrono>
#include <cmath>
#include <thread>

using namespace support;

namespace {

class RelayDeath : public ThroughRelay {
protected:
    // The session has the registry as it was last written down, maybe from before the tests registered these.
    static void SetUpTestSuite()
    {
        using installation::fileHere;
        const WideString libraries =
            L"\"" + fileHere(L"CapeOpen11.tlb") + L"\" \"" + fileHere(L"Verdanth.mexw64") + L"\"";
        EXPECT_EQ(installation::run(fileHere(L"register_type_libraries.exe"), libraries), 0u);
    }
    void SetUp() override
    {
        ThroughRelay::SetUp();
        handle = openAlone(standAloneName)[0];
    }
    void TearDown() override
    {
        mexStandInOnWarning(nullptr);
        ThroughRelay::TearDown();
    }

    std::string flashAt(double temperature)
    {
        const CallResult result = call(5, {Scalar(24), handle, Row(gas()), Text("Temperature"), Scalar(temperature),
                                           Text("Pressure"), Scalar(40e5), Text("Unspecified")});
        EXPECT_EQ(result.returned, result.error.empty());
        return result.error;
    }

    // The process lives on, and so does the library: it answers, closes the package, and can be cleared.
    void expectLife()
    {
        EXPECT_EQ(mustReturn(1, {Scalar(1)})[0].texts(), Names({standAloneName, managerName}));
        mustReturn(0, {Scalar(4), handle});
        EXPECT_EQ(mustReturn(1, {Scalar(5)})[0].count(), 0u);
    }

    installation::RegisteredRelay relay;
    installation::RegisteredPackage32 packages;
};

} // namespace

TEST_F(RelayDeath, InABatchLeavesRowsWithoutValues)
{
    // The package refuses the second temperature, and its warning is the moment of death.
    mexStandInOnWarning(installation::killRelays);
    const CallResult result = vaporFractions(handle, {220, 10, 230, 240}, {40e5, 40e5, 40e5, 40e5});
    mexStandInOnWarning(nullptr);
    const std::vector<double> rows = result[0].element(0).numbers();
    ASSERT_EQ(rows.size(), 4u);
    EXPECT_GT(rows[0], 0);
    EXPECT_LT(rows[0], 1);
    for (std::size_t row = 1; row < 4; ++row)
        EXPECT_TRUE(std::isnan(rows[row])) << row;
    ASSERT_EQ(result.warnings.size(), 3u);
    EXPECT_EQ(result.warnings[0], "CAPE-OPEN: Flash failed at 10, 4e+06: The temperature must be from 20 to 1500 K");
    EXPECT_TRUE(result.warnings[1].starts_with("CAPE-OPEN: Flash failed at 230, 4e+06: ")) << result.warnings[1];
    EXPECT_TRUE(result.warnings[2].starts_with("CAPE-OPEN: Flash failed at 240, 4e+06: ")) << result.warnings[2];
    expectLife();
}

TEST_F(RelayDeath, BetweenCommandsIsAnErrorOfTheNextAndSilentInABatchWithoutWarnings)
{
    const std::vector<Array> density = {Scalar(22),  Scalar(1),   handle,     Text("density"),
                                        Scalar(300), Scalar(1e5), Row(gas()), Text("Vapor")};
    EXPECT_EQ(flashAt(220), "");
    mustReturn(1, density);
    installation::killRelays();
    EXPECT_TRUE(flashAt(220).starts_with("CalcEquilibrium failed: ")) << flashAt(220);
    const CallResult failed = call(1, density);
    EXPECT_FALSE(failed.returned);
    EXPECT_TRUE(failed.error.starts_with("CalcSinglePhaseProp failed")) << failed.error;
    showWarnings(false);
    const CallResult batch = vaporFractions(handle, {220, 230}, {40e5, 40e5});
    for (const double row : batch[0].element(0).numbers())
        EXPECT_TRUE(std::isnan(row));
    EXPECT_EQ(batch.warnings, std::vector<std::string>());
    expectLife();
}

TEST_F(RelayDeath, IsOverForAPackageThatIsOpenedAgain)
{
    EXPECT_EQ(flashAt(220), "");
    installation::killRelays();
    EXPECT_TRUE(flashAt(220).starts_with("CalcEquilibrium failed: ")) << flashAt(220);
    mustReturn(0, {Scalar(4), handle});
    installation::forgetDeadServers();
    const CallResult again = openAlone(standAloneName);
    ASSERT_TRUE(again.returned);
    EXPECT_EQ(again.warnings, RelayWarning(standAloneName));
    handle = again[0];
    EXPECT_EQ(flashAt(220), "");
    std::this_thread::sleep_for(std::chrono::seconds(3)); // longer than a relay stays that nobody holds
    EXPECT_EQ(flashAt(230), "");
    expectLife();
}

TEST_F(RelayDeath, WhileALibraryIsClearedIsNoCrash)
{
    installation::killRelays();
    EXPECT_TRUE(matlab.clear());
    matlab.load();
    EXPECT_EQ(mustReturn(1, {Scalar(1)})[0].texts(), Names({standAloneName, managerName}));
}
