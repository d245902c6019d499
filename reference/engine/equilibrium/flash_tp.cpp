#include "reference/engine/equilibrium/flash_tp.h"

#include "reference/engine/equilibrium/phase_names.h"
#include "reference/engine/equilibrium/phase_search.h"
#include "reference/engine/phase/phase_evaluation.h"

#include <algorithm>

namespace reference {

namespace {

// `model` is that of the present compounds.
FlashStatus flashPresent(const MixtureModel &model, double temperature, double pressure,
                         const PresentCompounds &present, std::span<const double> z, FlashPhases phases,
                         FlashResult &result)
{
    result.temperature = temperature;
    result.pressure = pressure;
    if (allowsOneOnly(phases)) {
        result.setOnePhase(phases == FlashPhases::vaporOnly, z);
        return FlashStatus::solved;
    }
    const FlashProblem problem(model, temperature, pressure, present.amounts.data(), allowsVapor(phases));
    PhaseSplit split;
    const PhaseSearchStatus status = findStablePhases(problem, split);
    if (status == PhaseSearchStatus::notConverged)
        return FlashStatus::notConverged;
    if (status == PhaseSearchStatus::stable && namePhases(problem, split, phases, present, result))
        return FlashStatus::solved;
    if (phases == FlashPhases::vaporAndTwoLiquids)
        return FlashStatus::otherPhases;
    findTwoPhases(problem, split);
    if (!problem.vaporAllowed && split.count == 1)
        return FlashStatus::otherPhases; // a liquid alone is not what it becomes
    return namePhases(problem, split, phases, present, result) ? FlashStatus::solved : FlashStatus::otherPhases;
}

} // namespace

FlashStatus flashTP(const MixtureModel &model, double temperature, double pressure, std::span<const double> z,
                    FlashPhases phases, FlashResult &result)
{
    const PresentCompounds present(z.first(model.size), negligibleFraction);
    if (present.isAll()) // and no copy of the model
        return flashPresent(model, temperature, pressure, present, z, phases, result);
    return flashPresent(model.subset(present.members()), temperature, pressure, present, z, phases, result);
}

bool nameStablePair(const MixtureModel &model, const FlashResult &pair, std::span<const double> z, FlashPhases phases,
                    FlashResult &result)
{
    if (model.size == 1)
        return false; // any amounts of the two are as good
    const FlashProblem problem(model, pair.temperature, pair.pressure, z.data());
    PhaseSplit split;
    const auto add = [&](Root root, double amount, const CompoundArray &x) {
        SplitPhase &phase = split.phases[static_cast<std::size_t>(split.count++)];
        phase.root = root;
        phase.amount = amount;
        std::copy_n(x.begin(), model.size, phase.x.begin());
        evaluatePhase(model, problem.isotherm, problem.pressure, x.data(), root, phase.state);
    };
    add(Root::liquid, pair.liquidFraction, pair.liquid);
    add(Root::vapor, pair.vaporFraction, pair.vapor);
    if (!areStable(problem, split))
        return false;
    result.temperature = pair.temperature;
    result.pressure = pair.pressure;
    return namePhases(problem, split, phases, PresentCompounds(z.first(model.size)), result);
}

} // namespace reference
