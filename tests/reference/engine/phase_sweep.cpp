#include "tests/reference/engine/phase_sweep.h"

#include "reference/engine/equilibrium/flash_tp.h"
#include "tests/reference/engine/flash_check.h"
#include "tests/reference/engine/phase_judge.h"

#include <sstream>

namespace reference {

namespace {

constexpr double noticeable = 1e-9; // difference of Gibbs energies over R T

std::string amountsOf(const FlashResult &result)
{
    std::ostringstream text;
    const auto name = [&](bool present, const char *phase, double amount) {
        if (present)
            text << phase << ' ' << amount << ", ";
    };
    name(result.vaporPresent, "vapor", result.vaporFraction);
    name(result.liquidPresent, "liquid", result.liquidFraction);
    name(result.liquid2Present, "liquid2", result.liquid2Fraction);
    return text.str();
}

class Case {
public:
    Case(const FeedCase &of, PhaseSweep &into) : feed(of), sweep(into) {}

    void run()
    {
        ++sweep.count.feeds;
        const JudgedState judged = judge(*feed.model, feed.temperature, feed.pressure, feed.z);
        FlashResult result;
        if (flashTP(*feed.model, feed.temperature, feed.pressure, feed.z, FlashPhases::vaporAndTwoLiquids, result) !=
            FlashStatus::solved) {
            ++sweep.count.byPhases[0];
            if (judged.canBeNamed())
                note(sweep.count.refused, "refused", judged);
            return;
        }
        ++sweep.count.byPhases[result.phaseCount()];
        const double excess = gibbsOf(*feed.model, result) - judged.gibbs;
        const std::string amounts = amountsOf(result);
        if (!(excess < noticeable))
            note(sweep.count.worse, amounts + "worse by " + std::to_string(1e9 * excess) + "e-9", judged);
        if (excess < -noticeable)
            note(sweep.count.judgeWorse, amounts + "the judge worse by " + std::to_string(-1e9 * excess) + "e-9",
                 judged);
        const FlashRequest request{{FlashVariable::temperature, feed.temperature},
                                   {FlashVariable::pressure, feed.pressure}};
        if (const std::string fault = faultOf({*feed.model, feed.z, request}, result); !fault.empty())
            note(sweep.count.inexact, amounts + fault, judged);
    }

private:
    const FeedCase &feed;
    PhaseSweep &sweep;

    void note(int &count, const std::string &what, const JudgedState &judged)
    {
        ++count;
        std::ostringstream text;
        text << what << " | judged";
        for (const JudgedPhase &phase : judged.phases)
            text << ' ' << phase.amount << (!phase.severalRoots ? "" : phase.vaporRoot ? " V" : " L");
        text << ", distance " << judged.distance << " | " << feed.describe();
        sweep.faults.push_back(text.str());
    }
};

} // namespace

void PhaseSweepCount::add(const PhaseSweepCount &other)
{
    feeds += other.feeds;
    for (int i = 0; i < 4; ++i)
        byPhases[i] += other.byPhases[i];
    worse += other.worse;
    refused += other.refused;
    inexact += other.inexact;
    judgeWorse += other.judgeWorse;
}

PhaseSweep sweepPhases(const FeedFamily &family, std::uint64_t seed, int count)
{
    PhaseSweep sweep;
    for (int i = 0; i < count; ++i)
        Case(family.make(seed + static_cast<std::uint64_t>(i)), sweep).run();
    return sweep;
}

} // namespace reference
