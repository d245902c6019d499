// What discovery asks of the registry, and what it makes of a registry that fails. Only the native
// platform counts and fails registry calls.
#include "platform/native/seam.h"
#include "tests/mex/command_test.h"

using namespace support;

namespace {

class RegistryUse : public CommandTest {
protected:
    void SetUp() override
    {
        CommandTest::SetUp();
        // Class ids that come in front of all others, so that the calls can be counted.
        world.registry().add(PackageClass("first", "{0000A001-3B1C-4D0A-9E55-216B0C5FA810}"));
        world.registry().add(PackageClass("second", "{0000A002-3B1C-4D0A-9E55-216B0C5FA810}"));
        RegisteredClass old = PackageClass("old", "{0000A003-3B1C-4D0A-9E55-216B0C5FA810}");
        old.view = RegistryView::wow64;
        world.registry().add(old);
    }

    void TearDown() override
    {
        seam::registryCalls.failAt(0);
        CommandTest::TearDown();
    }

    std::vector<WideString> listedWithFailureAt(int call)
    {
        seam::registryCalls.failAt(call);
        return mustReturn(1, {Scalar(1)})[0].texts();
    }
};

} // namespace

TEST_F(RegistryUse, EveryKeyIsClosedAgain)
{
    const int openBefore = seam::openRegistryKeys;
    mustReturn(1, {Scalar(1)});
    EXPECT_EQ(seam::openRegistryKeys, openBefore);
}

TEST_F(RegistryUse, TheSecondListingOpensNoKey)
{
    mustReturn(1, {Scalar(1)});
    const int opensBefore = seam::registryOpens;
    mustReturn(1, {Scalar(1)});
    mustReturn(1, {Scalar(2), Text("first")});
    EXPECT_EQ(seam::registryOpens, opensBefore);
}

// The calls before the first class: the root, its first sub-key, the two categories.

TEST_F(RegistryUse, ANativeRootThatCannotBeOpenedLeavesThe32BitView)
{
    EXPECT_EQ(listedWithFailureAt(1), Names({"old"}));
}

TEST_F(RegistryUse, ASubKeyThatCannotBeReadIsSkippedAndTheNextIsTried)
{
    EXPECT_EQ(listedWithFailureAt(2), Names({"second", "old"}));
}

TEST_F(RegistryUse, ACategoryThatCannotBeOpenedIsNoCategory)
{
    // The manager category is missing anyway; the second failure hits the package category.
    EXPECT_EQ(listedWithFailureAt(4), Names({"second", "old"}));
}

TEST_F(RegistryUse, ADescriptionThatCannotBeOpenedLeavesTheClassId)
{
    EXPECT_EQ(listedWithFailureAt(5), Names({"{0000A001-3B1C-4D0A-9E55-216B0C5FA810}", "second", "old"}));
}

TEST_F(RegistryUse, ANameThatCannotBeReadLeavesTheClassId)
{
    EXPECT_EQ(listedWithFailureAt(6), Names({"{0000A001-3B1C-4D0A-9E55-216B0C5FA810}", "second", "old"}));
}

TEST_F(RegistryUse, WhateverCallFailsTheListIsMadeAndEveryKeyIsClosed)
{
    const int openBefore = seam::openRegistryKeys;
    int call = 1;
    do {
        SCOPED_TRACE(call);
        matlab.clear();
        matlab.load();
        EXPECT_LE(listedWithFailureAt(call).size(), 3u);
        EXPECT_EQ(seam::openRegistryKeys, openBefore);
        ASSERT_LT(++call, 100);
    } while (!seam::registryCalls.pending());
}

TEST_F(RegistryUse, AScanThatFailedIsNotRepeated)
{
    EXPECT_EQ(listedWithFailureAt(1), Names({"old"}));
    EXPECT_EQ(mustReturn(1, {Scalar(1)})[0].texts(), Names({"old"}));
}
