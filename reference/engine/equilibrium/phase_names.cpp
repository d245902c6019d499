#include "reference/engine/equilibrium/phase_names.h"

#include <utility>

namespace reference {

namespace {

// But for what is the same for all phases.
double massDensity(const MixtureModel &model, const CompoundArray &x, const PhaseState &state)
{
    return model.molecularWeight(x.data()) / state.Z;
}

// The phase that is the vapor, if any is.
int vaporOf(const FlashProblem &problem, const PhaseSplit &split, FlashPhases allowed)
{
    if (!allowsVapor(allowed))
        return -1;
    int vapor = -1;
    for (int k = 0; k < split.count; ++k) {
        const PhaseState &state = split.phases[k].state;
        if (!state.liquidRoot)
            return k;
        if (state.vaporRoot &&
            (vapor < 0 || relativeVolume(problem, state) > relativeVolume(problem, split.phases[vapor].state)))
            vapor = k;
    }
    if (vapor < 0)
        return vapor;
    const bool needed = split.count == (allowsSecondLiquid(allowed) ? 3 : 2);
    return needed || !problem.looksLiquid(split.phases[vapor].state) ? vapor : -1;
}

void give(const PresentCompounds &present, const SplitPhase &phase, bool &there, double &amount,
          CompoundArray &fractions)
{
    there = true;
    amount = phase.amount;
    fractions = phase.x;
    present.spread(fractions);
}

} // namespace

bool isSecondLiquid(const MixtureModel &model, const CompoundArray &x, const PhaseState &state,
                    const CompoundArray &otherX, const PhaseState &otherState)
{
    for (int i = 0; i < model.size; ++i)
        if (model.compounds[i].data->id == "water" && x[i] != otherX[i])
            return x[i] > otherX[i];
    return massDensity(model, x, state) > massDensity(model, otherX, otherState);
}

double relativeVolume(const FlashProblem &problem, const PhaseState &state)
{
    if (!problem.model.isCubic())
        return state.vaporRoot ? 1.0 : 0.0;
    return state.Z / state.B;
}

bool namePhases(const FlashProblem &problem, const PhaseSplit &split, FlashPhases allowed,
                const PresentCompounds &present, FlashResult &result)
{
    const int vapor = vaporOf(problem, split, allowed);
    std::array<int, maximumPhases> liquids{};
    int liquidCount = 0;
    for (int k = 0; k < split.count; ++k) {
        const PhaseState &state = split.phases[k].state;
        if (k == vapor ? !state.vaporRoot : !state.liquidRoot)
            return false;
        if (!allowsVapor(allowed) && split.count > 1 && !problem.looksLiquid(state))
            return false; // a vapor by another name
        if (k != vapor)
            liquids[liquidCount++] = k;
    }
    if (liquidCount > (allowsSecondLiquid(allowed) ? 2 : 1))
        return false;
    const SplitPhase &first = split.phases[liquids[0]];
    const SplitPhase &second = split.phases[liquids[1]];
    if (liquidCount == 2 && isSecondLiquid(problem.model, first.x, first.state, second.x, second.state))
        std::swap(liquids[0], liquids[1]);
    result.clear();
    if (vapor >= 0)
        give(present, split.phases[vapor], result.vaporPresent, result.vaporFraction, result.vapor);
    if (liquidCount > 0)
        give(present, split.phases[liquids[0]], result.liquidPresent, result.liquidFraction, result.liquid);
    if (liquidCount > 1)
        give(present, split.phases[liquids[1]], result.liquid2Present, result.liquid2Fraction, result.liquid2);
    return true;
}

} // namespace reference
