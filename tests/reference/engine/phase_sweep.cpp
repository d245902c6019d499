#include "tests/reference/engine/phase_sweep.h"

#include "reference/engine/equilibrium/flash_tp.h"
#include "reference/engine/phase/phase_evaluation.h"
#include "tests/reference/engine/phase_judge.h"

#include <cmath>
#include <sstream>

namespace reference {

namespace {

constexpr double noticeable = 1e-9; // difference of Gibbs energies over R T

struct Part {
    const char *name;
    double amount;
    const CompoundArray *x;
    PhaseState state;
};

std::vector<Part> partsOf(const FeedCase &feed, const FlashResult &result)
{
    std::vector<Part> parts;
    const Isotherm isotherm(*feed.model, feed.temperature);
    const auto take = [&](bool present, const char *name, double amount, const CompoundArray &x, Root root) {
        if (!present)
            return;
        parts.push_back({name, amount, &x, {}});
        evaluatePhase(*feed.model, isotherm, feed.pressure, x.data(), root, parts.back().state);
    };
    take(result.vaporPresent, "vapor", result.vaporFraction, result.vapor, Root::vapor);
    take(result.liquidPresent, "liquid", result.liquidFraction, result.liquid, Root::liquid);
    take(result.liquid2Present, "liquid2", result.liquid2Fraction, result.liquid2, Root::liquid);
    return parts;
}

double gibbsOf(const FeedCase &feed, const std::vector<Part> &parts)
{
    double sum = 0.0;
    for (const Part &part : parts)
        for (int i = 0; i < feed.model->size; ++i)
            if (const double x = (*part.x)[i]; x > 0.0)
                sum += part.amount * x * (std::log(x) + part.state.lnPhi[i]);
    return sum;
}

// What is wrong with phases that claim to be in equilibrium; empty for nothing.
std::string inexactness(const FeedCase &feed, const std::vector<Part> &parts)
{
    std::ostringstream text;
    double amounts = 0.0;
    std::vector<double> balance = feed.z;
    for (const Part &part : parts) {
        amounts += part.amount;
        double sum = 0.0;
        for (int i = 0; i < feed.model->size; ++i) {
            sum += (*part.x)[i];
            balance[static_cast<std::size_t>(i)] -= part.amount * (*part.x)[i];
        }
        if (!(part.amount >= 0.0 && part.amount <= 1.0))
            text << "amount " << part.amount << "; ";
        if (!(std::fabs(sum - 1.0) < 1e-12))
            text << "fractions miss one by " << sum - 1.0 << "; ";
    }
    if (!(std::fabs(amounts - 1.0) < 1e-14))
        text << "amounts miss one by " << amounts - 1.0 << "; ";
    for (int i = 0; i < feed.model->size; ++i) {
        if (!(std::fabs(balance[static_cast<std::size_t>(i)]) < 1e-12))
            text << "balance of " << i << " by " << balance[static_cast<std::size_t>(i)] << "; ";
        if (feed.z[static_cast<std::size_t>(i)] < 1e-90)
            continue;
        for (const Part &part : parts) {
            const double difference =
                std::log((*part.x)[i]) + part.state.lnPhi[i] - std::log((*parts[0].x)[i]) - parts[0].state.lnPhi[i];
            if (!(std::fabs(difference) < 1e-9))
                text << "fugacity of " << i << " by " << difference << "; ";
        }
    }
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
        const std::vector<Part> parts = partsOf(feed, result);
        ++sweep.count.byPhases[parts.size()];
        const double excess = gibbsOf(feed, parts) - judged.gibbs;
        std::ostringstream text;
        for (const Part &part : parts)
            text << part.name << ' ' << part.amount << ", ";
        if (!(excess < noticeable))
            note(sweep.count.worse, text.str() + "worse by " + std::to_string(1e9 * excess) + "e-9", judged);
        if (excess < -noticeable)
            note(sweep.count.judgeWorse, text.str() + "the judge worse by " + std::to_string(-1e9 * excess) + "e-9",
                 judged);
        if (const std::string fault = inexactness(feed, parts); !fault.empty())
            note(sweep.count.inexact, text.str() + fault, judged);
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
