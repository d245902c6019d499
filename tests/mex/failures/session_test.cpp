// A failure anywhere in a session: the command is called once more, and the rest goes on as if nothing had happened.
#include "tests/mex/failures/campaign.h"

using namespace support;

namespace {

class FailureInASession : public Campaign {
protected:
    void SetUp() override
    {
        Campaign::SetUp();
        for (const char *name :
             {"ListManagers", "ListPackages", "Create", "ListHandles", "CompoundIds", "PhaseLabels", "ConstantTexts",
              "Flash", "SinglePhaseProperty", "TwoPhaseProperty", "PDependentProperty", "Release"})
            rows.push_back(RowOf(name));
        whole = wholeAnswers(rows);
    }

    void failEachOfAll(const Failing &failing)
    {
        for (int n = 1; failOnce(rows, whole, failing, n) && !HasFailure(); ++n)
            ++strikes;
    }

    std::vector<CommandRow> rows;
    std::vector<std::string> whole;
    int strikes = 0; // so far
};

} // namespace

TEST_F(FailureInASession, OfTheLibraryIsForgotten)
{
    for (const WayToFail &way : WaysToFail())
        if (way.effect == Effect::ends) {
            Failing failing = ofTheLibrary(way);
            failing.isWarm = true;
            failEachOfAll(failing);
        }
    EXPECT_GT(strikes, 100);
}

TEST_F(FailureInASession, OfAComponentIsForgotten)
{
    failEachOfAll(ofTheComponents(computationFailed, Description("so it is"), "a failure with a description"));
    failEachOfAll(ofTheComponents(E_OUTOFMEMORY, {}, "no memory"));
    failEachOfAll(ofQueryInterface(E_NOINTERFACE));
    failEachOfAll(ofQueryInterface(S_OK));
    EXPECT_GT(strikes, 50);
}
