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
        int n = 1;
        while (failOnce(rows, whole, failing, n) && !HasFailure())
            ++n;
        EXPECT_GT(n, 1) << failing.what << " struck nothing";
    }

    std::vector<CommandRow> rows;
    std::vector<std::string> whole;
};

} // namespace

TEST_F(FailureInASession, OfTheLibraryIsForgotten)
{
    for (const WayToFail &way : WaysToFail())
        if (way.effect == Effect::ends) {
            Failing failing = ofTheLibrary(way);
            failing.isAfterScan = true;
            failEachOfAll(failing);
        }
}

TEST_F(FailureInASession, OfAComponentIsForgotten)
{
    failEachOfAll(ofTheComponents(computationFailed, Description("so it is"), "a failure with a description"));
    failEachOfAll(ofTheComponents(E_OUTOFMEMORY, {}, "no memory"));
    failEachOfAll(ofQueryInterface(E_NOINTERFACE));
    failEachOfAll(ofQueryInterface(S_OK));
}
