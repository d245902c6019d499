#include "reference/engine/equilibrium/equilibrium.h"

#include "reference/engine/eos/gas_constant.h"
#include "reference/engine/equilibrium/flash_tp.h"
#include "reference/engine/equilibrium/split_curvature.h"

#include <algorithm>

namespace reference {

namespace {

FlashStatus flashWithinBudget(const Feed &feed, double temperature, double pressure, FlashResult &result)
{
    if (feed.budget && feed.budget->isSpent())
        return FlashStatus::notConverged;
    const FlashStatus status = flashTP(feed.model, temperature, pressure, feed.fractions(), feed.phases, result);
    if (feed.budget)
        feed.budget->charge(status);
    return status;
}

} // namespace

// A phase of a result, with what it holds.
struct Equilibrium::HeldPhase {
    PhaseProperties properties;
    double amount;
};

// What the moles that move between phases add to the slopes. With g the difference of the logarithms of the fugacities
// along each move, v the moles that move and M = dg/dv, the mixture in equilibrium has dv = -M^-1 dg; and the partial
// molar enthalpies and volumes differ by -R T^2 dg/dT and R T dg/dP.
void Equilibrium::addTransfer(const Feed &feed, const Isotherm &isotherm, int count, const HeldPhase *held)
{
    PhaseView views[maximumPhases];
    for (int k = 0; k < count; ++k)
        views[k] = {held[k].amount, &held[k].properties.fractions, &held[k].properties.state};
    SplitCurvature curvature(feed.model, isotherm, count, views);
    MoveArray byT;
    MoveArray byP;
    for (int a = 0; a < curvature.size(); ++a) {
        const SplitCurvature::Move &move = curvature.move(a);
        const PhaseSlopes &to = held[move.to].properties.slopes;
        const PhaseSlopes &from = held[move.from].properties.slopes;
        byT[a] = move.scale * (to.lnPhiByT[move.compound] - from.lnPhiByT[move.compound]);
        byP[a] = move.scale * (to.lnPhiByP[move.compound] - from.lnPhiByP[move.compound]);
    }
    MoveArray movedByT = byT;
    MoveArray movedByP = byP;
    curvature.solve(movedByT);
    curvature.solve(movedByP);
    double TT = 0.0;
    double TP = 0.0;
    double PP = 0.0;
    for (int a = 0; a < curvature.size(); ++a) {
        TT += byT[a] * movedByT[a];
        TP += byT[a] * movedByP[a];
        PP += byP[a] * movedByP[a];
    }
    const double thermal = gasConstant * isotherm.temperature;
    totals.heatCapacity += thermal * isotherm.temperature * TT;
    totals.volumeByT -= thermal * TP;
    totals.volumeByP -= thermal * PP;

    if (!phases.vaporPresent)
        return;
    constexpr int vapor = 0; // the first of the phases
    const double weight = feed.model.molecularWeight(feed.z);
    for (int a = 0; a < curvature.size(); ++a) {
        const SplitCurvature::Move &move = curvature.move(a);
        if (move.to != vapor && move.from != vapor)
            continue;
        const double moles = move.to == vapor ? -move.scale : move.scale;
        const double mass = moles * feed.model.compounds[move.compound].molecularWeight / weight;
        vaporMoles.byT += moles * movedByT[a];
        vaporMoles.byP += moles * movedByP[a];
        vaporMass.byT += mass * movedByT[a];
        vaporMass.byP += mass * movedByP[a];
    }
}

FlashStatus flashAt(const Feed &feed, const FlashSpecification &one, double other, FlashResult &result)
{
    const auto [temperature, pressure] = bothConditions(one, other);
    return flashWithinBudget(feed, temperature, pressure, result);
}

double coldestWithPhases(const Feed &feed)
{
    if (!feed.budget)
        return lowestFlashTemperature;
    double &coldest = feed.budget->coldest;
    if (coldest > 0.0)
        return coldest;
    constexpr double warm = 400.0; // K
    constexpr double ratio = 0.85;
    FlashResult state;
    const auto fails = [&](double temperature) {
        for (const double pressure : {1e5, 1e7})
            if (flashWithinBudget(feed, temperature, pressure, state) != FlashStatus::notConverged)
                return false;
        return true;
    };
    bool failed = false;
    for (double temperature = warm; temperature > lowestFlashTemperature; temperature *= ratio) {
        const bool failsAgain = fails(temperature);
        if (failed && failsAgain)
            return coldest;
        if (!failsAgain)
            coldest = temperature;
        failed = failsAgain;
    }
    return coldest = lowestFlashTemperature;
}

FlashStatus Equilibrium::find(const Feed &feed, double temperature, double pressure)
{
    const FlashStatus status = flashWithinBudget(feed, temperature, pressure, phases);
    if (status == FlashStatus::solved)
        findTotals(feed);
    return status;
}

void Equilibrium::findTotals(const Feed &feed)
{
    const Isotherm isotherm(feed.model, phases.temperature);
    HeldPhase held[maximumPhases];
    int count = 0;
    bool vanishing = false;
    totals = Totals{};
    vaporMoles = vaporMass = {};
    totals.temperature = phases.temperature;
    totals.pressure = phases.pressure;
    const auto take = [&](bool present, double amount, const CompoundArray &fractions, Root root) {
        if (!present)
            return;
        vanishing = vanishing || !(amount > 0.0);
        HeldPhase &phase = held[count++];
        phase.amount = amount;
        evaluateProperties(feed.model, isotherm, phases.pressure, fractions.data(), root, phase.properties);
        addDerivatives(feed.model, isotherm, phase.properties);
        totals.add(amount, Totals::of(phase.properties));
    };
    take(phases.vaporPresent, phases.vaporFraction, phases.vapor, Root::vapor);
    take(phases.liquidPresent, phases.liquidFraction, phases.liquid, Root::liquid);
    take(phases.liquid2Present, phases.liquid2Fraction, phases.liquid2, Root::liquid);
    if (count > 1 && !vanishing) // otherwise there are no slopes
        addTransfer(feed, isotherm, count, held);
}

} // namespace reference
