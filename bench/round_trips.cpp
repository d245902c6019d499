// From states of two and of three phases to the values of each two variables, and by a flash back to a state that has
// them: how many were found, and what time they took. Ends with 1 if any answer is wrong, or more than one of a
// thousand of a pair are refused.
#include "reference/engine/equilibrium/flash_tp.h"
#include "tests/reference/engine/feed_families.h"
#include "tests/reference/engine/flash_check.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace {

using namespace reference;

struct State {
    FeedCase feed;
    FlashResult phases;
};

// Of all kinds of feeds in turn, one half with three phases.
std::vector<State> statesOf(int count, std::uint64_t seed)
{
    std::vector<State> states;
    int wanted[4] = {0, 0, count - count / 2, count / 2}; // by number of phases
    for (std::size_t turn = 0; static_cast<int>(states.size()) < count; ++turn) {
        const FeedFamily &family = feedFamilies()[turn % feedFamilies().size()];
        State state{family.make(seed + turn), {}};
        const FeedCase &feed = state.feed;
        if (flashTP(*feed.model, feed.temperature, feed.pressure, feed.z, FlashPhases::vaporAndTwoLiquids,
                    state.phases) != FlashStatus::solved)
            continue;
        // A vapor fraction needs both.
        if (!state.phases.vaporPresent || wanted[state.phases.phaseCount()] == 0)
            continue;
        --wanted[state.phases.phaseCount()];
        states.push_back(state);
    }
    return states;
}

struct PairCount {
    int refused = 0;
    int wrong = 0;
    double seconds = 0.0;
};

void goRound(const State &state, FlashVariable first, FlashVariable second, PairCount &count)
{
    const auto specificationOf = [&](FlashVariable variable) {
        return FlashSpecification{variable, valueOf(*state.feed.model, state.feed.z, state.phases, variable)};
    };
    const FlashCase problem{*state.feed.model, state.feed.z, {specificationOf(first), specificationOf(second)}};
    FlashResult result;
    FlashReason reason{};
    const auto start = std::chrono::steady_clock::now();
    const FlashStatus status = flash(problem.model, problem.request, problem.z, result, reason);
    count.seconds += std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    const std::string what = status == FlashStatus::solved ? faultOf(problem, result) : reason.data();
    if (what.empty())
        return;
    ++(status == FlashStatus::solved ? count.wrong : count.refused);
    std::printf("%d phases at %.17g K, %.17g Pa: %s | %s\n", state.phases.phaseCount(), state.feed.temperature,
                state.feed.pressure, what.c_str(), describe(problem).c_str());
}

} // namespace

// round_trips [STATES [FIRST [FROM]]]: all follow from the number of the first state; pairs begin with the variable
// FROM, 0 being the temperature. Those with a vapor fraction and an energy take a tenth of a second each, those from 4
// on, of two energies or a volume, some milliseconds.
int main(int count, char **arguments)
{
    const int trips = count > 1 ? std::atoi(arguments[1]) : 200;
    const std::uint64_t first = count > 2 ? std::strtoull(arguments[2], nullptr, 10) : 1000000;
    const int from = count > 3 ? std::atoi(arguments[3]) : 0;
    const std::vector<State> states = statesOf(trips, first);
    bool good = true;
    std::printf("%-20s %-20s %9s %9s %9s %9s\n", "", "", "trips", "refused", "wrong", "us each");
    for (int one = from; one < flashVariableCount; ++one)
        for (int other = one + 1; other < flashVariableCount; ++other) {
            const auto a = static_cast<FlashVariable>(one);
            const auto b = static_cast<FlashVariable>(other);
            if (refusalOf(a, b))
                continue;
            PairCount sum;
            for (const State &state : states)
                goRound(state, a, b, sum);
            std::printf("%-20s %-20s %9d %9d %9d %9.1f\n", flashVariableName(a), flashVariableName(b), trips,
                        sum.refused, sum.wrong, 1e6 * sum.seconds / trips);
            std::fflush(stdout);
            good = good && sum.wrong == 0 && sum.refused <= trips / 1000;
        }
    return good ? 0 : 1;
}
