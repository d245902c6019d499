// Commands 5 to 9 and what commands 6 to 16 have in common: the handle, and the result for `ans`.
#include "tests/mex/command_test.h"

using namespace support;

namespace {

class InformationCommands : public CommandTest {
protected:
    PackageScript &package = world.addPackage("Alone");

    void SetUp() override
    {
        CommandTest::SetUp();
        handle = open("Alone");
    }
    WideString stateOf(const Array &phase) { return mustReturn(1, {Scalar(9), handle, phase})[0].text(); }
};

class HandleArgument : public InformationCommands, public testing::WithParamInterface<int> {
protected:
    std::vector<Array> arguments(const Array &first) const
    {
        std::vector<Array> all = {Scalar(GetParam()), first};
        if (GetParam() == 9)
            all.push_back(Text("Vapor"));
        if (GetParam() == 16)
            all.push_back(Text("criticalPressure"));
        return all;
    }
};

} // namespace

TEST_P(HandleArgument, IsTheInt32ScalarOfAnOpenPackage)
{
    world.log.clear();
    for (const Array &noHandle : NoHandles(handle))
        EXPECT_EQ(refusal(arguments(noHandle)), "Invalid property package handle");
    EXPECT_EQ(world.log, CallLog());
    package.constants = AnswerValues(ArrayOfVariants({RealVariant(1), RealVariant(2)}));
    mustReturn(1, arguments(handle));
}

TEST_P(HandleArgument, OfAClosedPackageIsRefused)
{
    mustReturn(0, {Scalar(4), handle});
    EXPECT_EQ(refusal(arguments(handle)), "Invalid property package handle");
    open("Alone");
    EXPECT_EQ(package.objectsMade(), 2);
}

TEST_P(HandleArgument, GivesAResultAlsoWhenNoneIsAskedFor)
{
    package.constants = AnswerValues(ArrayOfVariants({RealVariant(1), RealVariant(2)}));
    EXPECT_TRUE(mustReturn(0, arguments(handle))[0]);
}

INSTANTIATE_TEST_SUITE_P(OfCommand, HandleArgument, testing::Values(6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16),
                         testing::PrintToStringParamName());

TEST_F(InformationCommands, ResultsStayWithTheScriptWhenThePackageGoes)
{
    const Array compounds = mustReturn(1, {Scalar(7), handle})[0];
    const Array name = mustReturn(1, {Scalar(6), handle})[0];
    mustReturn(0, {Scalar(4), handle});
    EXPECT_EQ(compounds.texts(), Names({"A", "B"}));
    EXPECT_EQ(name.text(), Wide("Alone"));
}

TEST_F(InformationCommands, FindThePhaseWhateverItsCase)
{
    package.phaseLabels = TextArray({"Gas", "Vapeur Éthérée"});
    package.statesOfAggregation = TextArray({"Vapor", "Unknown"});
    EXPECT_EQ(stateOf(Text("gAS")), Wide("Vapor"));
    EXPECT_EQ(stateOf(Text("VAPEUR éTHÉRéE")), Wide("Unknown"));
    EXPECT_EQ(stateOf(Texts({"Gas"})), Wide("Vapor"));
}

TEST_F(InformationCommands, TakeTheFirstOfPhasesThatDifferInCaseOnly)
{
    package.phaseLabels = TextArray({"liquid", "LIQUID"});
    package.statesOfAggregation = TextArray({"first", "second"});
    EXPECT_EQ(stateOf(Text("LIQUID")), Wide("first"));
}

TEST_F(InformationCommands, GiveAStateAsThePackageWroteIt)
{
    package.statesOfAggregation = TextArray({"", "half-liquid 100%"});
    EXPECT_EQ(stateOf(Text("Vapor")), WideString());
    EXPECT_EQ(stateOf(Text("Liquid")), Wide("half-liquid 100%"));
}

TEST_F(InformationCommands, RefuseAPhaseThatThePackageDoesNotHave)
{
    for (const char *phase : {"Solid", "Vapo", "Vapor ", "Overall"})
        EXPECT_EQ(refusal({Scalar(9), handle, Text(phase)}), "Undefined phase");
    EXPECT_EQ(refusal({Scalar(9), handle, EmptyText()}), "Undefined phase");
    EXPECT_EQ(package.calls("GetPhaseList"), 1);
    EXPECT_EQ(stateOf(Text("Vapor")), Wide("Vapor"));
}

TEST_F(InformationCommands, RefuseAPhaseThatIsNoStringBeforeThePackageIsAsked)
{
    package.answer("GetPhaseList", CapeFailure(0x0B));
    for (const Array &phase : NoStrings())
        EXPECT_EQ(refusal({Scalar(9), handle, phase}), "Expected string value for phase ID");
    EXPECT_EQ(package.calls("GetPhaseList"), 0);
    EXPECT_EQ(refusal({Scalar(9), handle, Text("Vapor")}),
              "Failed to get list of phases from property package: computation error");
}

TEST_F(InformationCommands, LookAtTheHandleBeforeAnythingElse)
{
    for (const int code : {9, 16})
        EXPECT_EQ(refusal({Scalar(code), Scalar(1), Scalar(1)}), "Invalid property package handle");
}
