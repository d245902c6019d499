#include "reference/engine/equilibrium/flash_tp.h"

#include "reference/engine/equilibrium/present_compounds.h"
#include "reference/engine/equilibrium/two_phase_split.h"

#include <algorithm>

namespace reference {

namespace {

bool isLiquid(const FlashProblem &problem)
{
    const PhaseState &feed = problem.feed;
    if (feed.severalRoots)
        return feed.liquidRoot;
    const CubicConstants &equation = cubicConstants(problem.model.equation);
    const bool loop = feed.B < equation.criticalThermal() * feed.A; // B / A = R T b / a
    return loop && feed.Z < equation.criticalVolume * feed.B;
}

void givePhases(const TwoPhases &phases, const PresentCompounds &present, FlashResult &result)
{
    // Phases that stand at their only root could bear either name: the denser one, measured by its
    // own covolume, is the liquid.
    const bool swap = !phases.vapor.severalRoots && !phases.liquid.severalRoots &&
                      phases.vapor.Z / phases.vapor.B < phases.liquid.Z / phases.liquid.B;
    result.vaporPresent = true;
    result.liquidPresent = true;
    result.vaporFraction = swap ? phases.amounts.liquid : phases.amounts.vapor;
    result.liquidFraction = swap ? phases.amounts.vapor : phases.amounts.liquid;
    result.vapor = swap ? phases.x : phases.y;
    result.liquid = swap ? phases.y : phases.x;
    present.spread(result.vapor);
    present.spread(result.liquid);
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

// `model` is that of the present compounds.
FlashStatus flashPresent(const MixtureModel &model, double temperature, double pressure,
                         const PresentCompounds &present, std::span<const double> z, FlashResult &result)
{
    result.temperature = temperature;
    result.pressure = pressure;
    const FlashProblem problem(model, temperature, pressure, present.amounts.data());
    if (model.size > 1) {
        TwoPhases phases;
        const SplitStatus status = split(problem, phases);
        if (status == SplitStatus::notConverged)
            return FlashStatus::notConverged;
        if (status == SplitStatus::solved) {
            givePhases(phases, present, result);
            return FlashStatus::solved;
        }
    }
    giveOnePhase(problem, z, result);
    return FlashStatus::solved;
}

} // namespace

FlashStatus flashTP(const MixtureModel &model, double temperature, double pressure, std::span<const double> z,
                    FlashResult &result)
{
    const PresentCompounds present(z.first(model.size), negligibleFraction);
    if (present.isAll()) // and no copy of the model
        return flashPresent(model, temperature, pressure, present, z, result);
    return flashPresent(model.subset(present.members()), temperature, pressure, present, z, result);
}

} // namespace reference
