#include "reference/engine/flash.h"

#include "reference/engine/two_phase_split.h"

#include <algorithm>

namespace reference {

namespace {

constexpr double absent = 1e-100;

bool isLiquid(const FlashProblem &problem)
{
    const PhaseState &feed = problem.feed;
    if (feed.severalRoots)
        return feed.liquidRoot;
    const CubicConstants &equation = cubicConstants(problem.model.equation);
    const bool loop = feed.B < equation.criticalThermal() * feed.A; // B / A = R T b / a
    return loop && feed.Z < equation.criticalVolume * feed.B;
}

// Mole fractions of the present compounds back to all of them.
void spread(std::span<const int> present, const CompoundArray &fractions, int size, CompoundArray &all)
{
    std::fill_n(all.begin(), size, 0.0);
    for (std::size_t i = 0; i < present.size(); ++i)
        all[present[i]] = fractions[i];
}

void givePhases(const TwoPhases &phases, std::span<const int> present, int size, FlashResult &result)
{
    // Phases that stand at their only root could bear either name: the denser one, measured by its
    // own covolume, is the liquid.
    const bool swap = !phases.vapor.severalRoots && !phases.liquid.severalRoots &&
                      phases.vapor.Z / phases.vapor.B < phases.liquid.Z / phases.liquid.B;
    result.vaporPresent = true;
    result.liquidPresent = true;
    result.vaporFraction = swap ? phases.amounts.liquid : phases.amounts.vapor;
    result.liquidFraction = swap ? phases.amounts.vapor : phases.amounts.liquid;
    spread(present, swap ? phases.x : phases.y, size, result.vapor);
    spread(present, swap ? phases.y : phases.x, size, result.liquid);
}

void giveOnePhase(const FlashProblem &problem, std::span<const double> z, FlashResult &result)
{
    result.liquidPresent = isLiquid(problem);
    result.vaporPresent = !result.liquidPresent;
    result.vaporFraction = result.vaporPresent ? 1.0 : 0.0;
    result.liquidFraction = result.liquidPresent ? 1.0 : 0.0;
    std::ranges::copy(z, (result.vaporPresent ? result.vapor : result.liquid).begin());
}

// Looks for what the feed splits into: first as Wilson suggests, which mostly succeeds where there
// are two phases, then from the tangent plane.
SplitStatus split(const FlashProblem &problem, TwoPhases &phases)
{
    if (splitFromWilson(problem, phases) == SplitStatus::solved)
        return SplitStatus::solved;

    // A feed that is the stable one of two roots can only split off the other kind.
    bool unfinished = false;
    for (const Root root : {Root::vapor, Root::liquid}) {
        if (problem.feed.severalRoots && (root == Root::vapor) == problem.feed.vaporRoot)
            continue;
        CompoundArray lnW;
        if (!splitsOff(problem, root, lnW))
            continue;
        const SplitStatus status = splitFromTrial(problem, root, lnW, phases);
        if (status == SplitStatus::solved)
            return status;
        unfinished |= status == SplitStatus::notConverged;
    }
    return unfinished ? SplitStatus::notConverged : SplitStatus::collapsed;
}

FlashStatus flashPresent(const MixtureModel &model, double temperature, double pressure, const double *z,
                         std::span<const int> present, std::span<const double> feed, FlashResult &result)
{
    result.temperature = temperature;
    result.pressure = pressure;
    const FlashProblem problem(model, temperature, pressure, z);
    if (model.size > 1) {
        TwoPhases phases;
        const SplitStatus status = split(problem, phases);
        if (status == SplitStatus::notConverged)
            return FlashStatus::notConverged;
        if (status == SplitStatus::solved) {
            givePhases(phases, present, static_cast<int>(feed.size()), result);
            return FlashStatus::solved;
        }
    }
    giveOnePhase(problem, feed, result);
    return FlashStatus::solved;
}

} // namespace

FlashStatus flashTP(const MixtureModel &model, double temperature, double pressure, std::span<const double> z,
                    FlashResult &result)
{
    std::array<int, maximumCompounds> members;
    CompoundArray amounts;
    int count = 0;
    for (int i = 0; i < model.size; ++i) {
        if (z[i] <= absent)
            continue;
        members[count] = i;
        amounts[count++] = z[i];
    }
    const std::span<const int> present(members.data(), count);
    if (count == model.size)
        return flashPresent(model, temperature, pressure, amounts.data(), present, z, result);
    return flashPresent(model.subset(present), temperature, pressure, amounts.data(), present, z, result);
}

} // namespace reference
