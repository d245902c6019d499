// Commands 6 to 9.
#include "tests/support/package_test.h"

using namespace support;

namespace {

class InformationCommands : public PackageTest {
protected:
    WideString stateOf(const Array &phase) { return mustReturn(1, {Scalar(9), handle, phase})[0].text(); }
};

} // namespace

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
        EXPECT_EQ(refusal(1, {Scalar(9), handle, Text(phase)}), "Undefined phase");
    EXPECT_EQ(refusal(1, {Scalar(9), handle, EmptyText()}), "Undefined phase");
    EXPECT_EQ(package.calls("GetPhaseList"), 1);
    EXPECT_EQ(stateOf(Text("Vapor")), Wide("Vapor"));
}

TEST_F(InformationCommands, RefuseAPhaseThatIsNoStringBeforeThePackageIsAsked)
{
    package.answer("GetPhaseList", computationFailed);
    for (const Array &phase : WrongStrings())
        EXPECT_EQ(refusal(1, {Scalar(9), handle, phase}), "Expected string value for phase ID");
    EXPECT_EQ(package.calls("GetPhaseList"), 0);
    EXPECT_EQ(refusal(1, {Scalar(9), handle, Text("Vapor")}),
              "Failed to get list of phases from property package: computation error");
}

TEST_F(InformationCommands, LookAtTheHandleBeforeAnythingElse)
{
    for (const int code : {9, 16})
        EXPECT_EQ(refusal(1, {Scalar(code), Scalar(1), Scalar(1)}), "Invalid property package handle");
}
