#include "reference/engine/flash/state_search.h"

#include "reference/engine/eos/gas_constant.h"
#include "reference/engine/equilibrium/lever_rule.h"
#include "reference/engine/flash/quick_state.h"
#include "reference/engine/flash/vapor_liquid_point.h"
#include "reference/engine/phase/phase_evaluation.h"

#include <algorithm>
#include <cmath>

namespace reference {

namespace {

FlashSpecification conditionOf(FlashVariable variable, double logarithm) { return {variable, std::exp(logarithm)}; }

double lowestOf(FlashVariable condition) { return std::log(flashLimitsOf(condition).lowest); }
double lowestWithPhases(const Feed &feed, FlashVariable condition)
{
    return condition == FlashVariable::temperature ? std::log(coldestWithPhases(feed)) : lowestOf(condition);
}
double highestOf(FlashVariable condition) { return std::log(flashLimitsOf(condition).highest); }

// Whether a variable rises or falls all the way (but for small jumps where the model has two liquids) along a line of
// constant temperature or pressure, as stability asks: the heat capacity is positive, the volume falls with the
// pressure.
bool isMonotone(FlashVariable fixed, FlashVariable wanted)
{
    if (fixed == FlashVariable::pressure)
        return wanted == FlashVariable::enthalpy || wanted == FlashVariable::entropy;
    return wanted == FlashVariable::volume || wanted == FlashVariable::gibbsEnergy ||
           wanted == FlashVariable::helmholtzEnergy;
}

// What a variable misses its value by along the line of constant temperature or pressure, by the logarithm of the
// other one.
class ConditionLine {
public:
    ConditionLine(const Feed &whole, const FlashSpecification &condition, const FlashSpecification &value,
                  FoundState &found, SearchFindings &report)
        : feed(whole), fixed(condition), wanted(value), state(found), findings(report)
    {
    }

    Probe probe(double at)
    {
        Probe result;
        result.at = at;
        const auto [temperature, pressure] = bothConditions(fixed, std::exp(at));
        Equilibrium &now = state.equilibrium;
        if (now.find(feed, temperature, pressure) != FlashStatus::solved) {
            findings.phasesNotFound = true;
            return result;
        }
        state.slopesKnown = true;
        result.residual = residualOf(now.totals, wanted);
        result.known = std::isfinite(result.residual);
        result.slope = unitOf(now.totals, wanted) * now.totals.byOther(fixed.variable, wanted.variable);
        result.met = std::fabs(result.residual) < aimedResidual;
        return result;
    }

    // Two phases between: a pure compound that boils, or a mixture that does so within less than the search can
    // tell apart.
    bool cross(const Probe &a, const Probe &b)
    {
        if (allowsBoiling(feed.phases) && crossTwoPhases(a, b))
            return true;
        if (std::fabs(a.at - b.at) < 1e-9 && crossBetweenStates(a, b))
            return true;
        const Probe &better = std::fabs(a.residual) < std::fabs(b.residual) ? a : b;
        if (std::fabs(better.residual) < acceptedResidual && std::fabs(a.at - b.at) < 1e-9) {
            probe(better.at);
            return true;
        }
        noteJump(a, b);
        return false;
    }

private:
    const Feed &feed;
    const FlashSpecification &fixed;
    const FlashSpecification &wanted;
    FoundState &state;
    SearchFindings &findings;

    void noteJump(const Probe &a, const Probe &b)
    {
        if (std::fabs(a.at - b.at) > 1e-9)
            return;
        findings.jumped = true;
        findings.jumping = wanted.variable;
        probe(a.at);
        findings.from = state.equilibrium.totals.value(wanted.variable);
        probe(b.at);
        findings.to = state.equilibrium.totals.value(wanted.variable);
        findings.temperature = state.equilibrium.totals.temperature;
        findings.pressure = state.equilibrium.totals.pressure;
    }

    // Anything between two states that are in equilibrium with each other.
    bool crossBetweenStates(const Probe &a, const Probe &b)
    {
        Equilibrium &now = state.equilibrium;
        probe(a.at);
        const FlashResult first = now.phases;
        const double firstValue = now.totals.value(wanted.variable);
        probe(b.at);
        const FlashResult second = now.phases;
        const double part = (wanted.value - firstValue) / (now.totals.value(wanted.variable) - firstValue);
        if (!mixStates(feed, first, second, part, now.phases))
            return false;
        now.findTotals(feed);
        state.slopesKnown = false;
        return std::fabs(residualOf(now.totals, wanted)) < acceptedResidual;
    }

    bool crossTwoPhases(const Probe &a, const Probe &b)
    {
        const int n = feed.size();
        Equilibrium &now = state.equilibrium;
        probe(a.at);
        const bool vaporAtA = now.phases.vaporPresent;
        const bool liquidAtA = now.phases.liquidPresent;
        const bool secondIsVapor = vaporAtA && !liquidAtA;
        probe(b.at);
        if (vaporAtA == now.phases.vaporPresent && liquidAtA == now.phases.liquidPresent)
            return false;

        TwoPhasePoint point;
        const Totals &totals = now.totals;
        const double part = a.residual / (a.residual - b.residual);
        point.unknowns[TwoPhasePoint::temperatureAt(n)] = std::log(totals.temperature);
        point.unknowns[TwoPhasePoint::pressureAt(n)] = std::log(totals.pressure);
        const bool atTemperature = fixed.variable == FlashVariable::temperature;
        point.unknowns[atTemperature ? TwoPhasePoint::pressureAt(n) : TwoPhasePoint::temperatureAt(n)] =
            0.5 * (a.at + b.at);
        if (secondIsVapor)
            point.setAmounts(n, 1.0 - part, part);
        else
            point.setAmounts(n, part, 1.0 - part);
        const Isotherm isotherm(feed.model, std::exp(point.unknowns[TwoPhasePoint::temperatureAt(n)]));
        const double pressure = std::exp(point.unknowns[TwoPhasePoint::pressureAt(n)]);
        PhaseState vapor;
        PhaseState liquid;
        evaluatePhase(feed.model, isotherm, pressure, feed.z, Root::vapor, vapor);
        evaluatePhase(feed.model, isotherm, pressure, feed.z, Root::liquid, liquid);
        for (int i = 0; i < n; ++i)
            point.unknowns[i] = n == 1 ? 0.0 : liquid.lnPhi[i] - vapor.lnPhi[i];
        if (!solvePoint(feed, point, Closing::of(fixed), Closing::of(wanted)))
            return false;
        const double amount = point.vaporAmount(n);
        const double at =
            point.unknowns[atTemperature ? TwoPhasePoint::pressureAt(n) : TwoPhasePoint::temperatureAt(n)];
        const double slack = 1e-7;
        if (!(amount >= 0.0 && amount <= 1.0) || !areVaporAndLiquid(feed, point) || at < std::min(a.at, b.at) - slack ||
            at > std::max(a.at, b.at) + slack)
            return false;
        if (!isStable(feed, point))
            return false;
        giveResult(feed, point, now.phases);
        now.totals = point.totals;
        state.slopesKnown = false;
        return true;
    }
};

// What the second variable misses its value by along the line where the first has its own, by the logarithm of the
// temperature or pressure.
class ValueLine {
public:
    ValueLine(const Feed &whole, FlashVariable along, const FlashSpecification &inner, const FlashSpecification &outer,
              FoundState &found, SearchFindings &report)
        : feed(whole), condition(along), kept(inner), wanted(outer), state(found), findings(report),
          start(along == FlashVariable::temperature ? 1e5 : 300.0)
    {
    }

    Probe probe(double at)
    {
        Probe result;
        result.at = at;
        const FlashSpecification fixed = conditionOf(condition, at);
        if (solveAtCondition(feed, fixed, kept, start, false, state, findings) != SearchStatus::found)
            return result;
        const Totals &totals = state.equilibrium.totals;
        const bool alongTemperature = condition == FlashVariable::temperature;
        start = otherConditionOf(totals, condition);
        result.residual = residualOf(totals, wanted);
        result.known = std::isfinite(result.residual);
        result.met = std::fabs(result.residual) < 10.0 * aimedResidual;
        if (state.slopesKnown) {
            const double byT = totals.byTemperature(wanted.variable);
            const double byP = totals.byPressure(wanted.variable);
            const double keptByT = totals.byTemperature(kept.variable);
            const double keptByP = totals.byPressure(kept.variable);
            result.slope = fixed.value * unitOf(totals, wanted) *
                           (alongTemperature ? byT - byP * keptByT / keptByP : byP - byT * keptByP / keptByT);
        }
        return result;
    }

    bool cross(const Probe &a, const Probe &b)
    {
        const Probe &better = std::fabs(a.residual) < std::fabs(b.residual) ? a : b;
        if (!(std::fabs(better.residual) < acceptedResidual))
            return false;
        const Probe again = probe(better.at); // from another start
        return again.known && std::fabs(again.residual) < acceptedResidual;
    }

private:
    const Feed &feed;
    const FlashVariable condition;
    const FlashSpecification &kept;
    const FlashSpecification &wanted;
    FoundState &state;
    SearchFindings &findings;
    double start;
};

} // namespace

SearchStatus solveAtCondition(const Feed &feed, const FlashSpecification &fixed, const FlashSpecification &wanted,
                              double start, bool thorough, FoundState &state, SearchFindings &findings)
{
    const FlashVariable free = otherCondition(fixed.variable);
    // Where there is but one state, any way leads to it. A search that asks for many of them goes on from its last one,
    // which is as quick.
    if (thorough && isMonotone(fixed.variable, wanted.variable) &&
        findQuickly(feed, fixed, wanted, std::log(start), state))
        return SearchStatus::found;
    ConditionLine line(feed, fixed, wanted, state, findings);
    RootSearch near(line, lowestOf(free), highestOf(free));
    const double longestStep = free == FlashVariable::temperature ? 0.4 : 3.0;
    const SearchStatus status = near.from(std::log(start), longestStep);
    if (status == SearchStatus::found || (near.endedFarOff() && isMonotone(fixed.variable, wanted.variable)))
        return status;
    RootSearch search(line, lowestWithPhases(feed, free), highestOf(free));
    const SearchStatus scanned = search.scan(free == FlashVariable::temperature ? 30 : 40);
    if (scanned == SearchStatus::found || !thorough || search.isHopeless())
        return scanned;
    return search.scan(200);
}

SearchStatus solveWithoutCondition(const Feed &feed, const FlashSpecification &first, const FlashSpecification &second,
                                   FoundState &state, SearchFindings &findings)
{
    // One variable is kept at its value by a search of its own along the other of these. The first ways are those
    // where that search is for a variable that rises or falls all the way; the others are for liquids, where the
    // first ones can be so steep that nothing is hit.
    constexpr struct {
        FlashVariable kept;
        FlashVariable along;
        bool wide; // states with the kept value, where there are any, stretch far along
    } ways[] = {{FlashVariable::volume, FlashVariable::temperature, true},
                {FlashVariable::entropy, FlashVariable::pressure, true},
                {FlashVariable::enthalpy, FlashVariable::pressure, true},
                {FlashVariable::helmholtzEnergy, FlashVariable::temperature, false},
                {FlashVariable::internalEnergy, FlashVariable::pressure, true},
                {FlashVariable::gibbsEnergy, FlashVariable::temperature, true},
                {FlashVariable::helmholtzEnergy, FlashVariable::pressure, false},
                {FlashVariable::volume, FlashVariable::pressure, false},
                {FlashVariable::gibbsEnergy, FlashVariable::pressure, false}};
    for (const int intervals : {0, 24, 120}) {
        bool hopeless = true;
        for (const auto &way : ways) {
            const bool keepFirst = way.kept == first.variable;
            if (!keepFirst && way.kept != second.variable)
                continue;
            ValueLine line(feed, way.along, keepFirst ? first : second, keepFirst ? second : first, state, findings);
            RootSearch search(line, intervals == 0 ? lowestOf(way.along) : lowestWithPhases(feed, way.along),
                              highestOf(way.along));
            const bool alongTemperature = way.along == FlashVariable::temperature;
            const SearchStatus status =
                intervals == 0 ? search.from(std::log(alongTemperature ? 300.0 : 1e6), alongTemperature ? 0.4 : 3.0)
                               : search.scan(intervals);
            if (status == SearchStatus::found)
                return status;
            if (intervals > 0 && way.wide && !search.sawValue())
                return status; // no state at all has the kept value
            hopeless = hopeless && search.isHopeless();
        }
        if (intervals > 0 && hopeless)
            break;
    }
    return SearchStatus::notReached;
}

} // namespace reference
