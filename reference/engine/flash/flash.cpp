#include "reference/engine/flash/flash.h"

#include "reference/engine/equilibrium/flash_tp.h"
#include "reference/engine/equilibrium/present_compounds.h"
#include "reference/engine/flash/quality_line.h"
#include "reference/engine/flash/state_search.h"
#include "reference/engine/phase/phase_evaluation.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace reference {

namespace {

constexpr double roundOff = 1e-12; // by which a vapor fraction may be outside of its range

// Whether a value is possible for itself; the reason if it is not.
bool isPossible(const FlashSpecification &given, FlashReason &reason)
{
    const auto refuse = [&](const char *demand) {
        giveReason(reason, "The %s %.6g must be %s", flashVariableName(given.variable), given.value, demand);
        return false;
    };
    if (!std::isfinite(given.value))
        return refuse("a finite number");
    if (isCondition(given.variable) && !flashLimitsOf(given.variable).contain(given.value))
        return refuse(LimitsText(given.variable).text.data());
    if (isFraction(given.variable) && !(given.value >= -roundOff && given.value <= 1.0 + roundOff))
        return refuse("from 0 to 1");
    if (given.variable == FlashVariable::volume && !(given.value > 0.0))
        return refuse("above zero");
    return true;
}

// Two specifications in the order of their variables, in words.
struct PairText {
    SpecificationText first;
    SpecificationText second;

    PairText(const FlashSpecification &one, const FlashSpecification &other) : first(one), second(other) {}
};

FlashStatus explainLine(LineStatus status, const FlashSpecification &fraction, const FlashSpecification &other,
                        FlashReason &reason)
{
    const PairText text(fraction, other);
    switch (status) {
    case LineStatus::otherType:
        giveReason(reason, "The solution for %s and %s is of the other type, normal or retrograde",
                   text.first.text.data(), text.second.text.data());
        return FlashStatus::noSolution;
    case LineStatus::unstable:
        giveReason(reason, "Where %s and %s meet, the phases found are not stable", text.first.text.data(),
                   text.second.text.data());
        return FlashStatus::noSolution;
    case LineStatus::notOnLine:
        giveReason(reason, "No state with %s and %s was found", text.first.text.data(), text.second.text.data());
        return FlashStatus::noSolution;
    default:
        giveReason(reason, "No two phases with %s were found for %s", text.first.text.data(), text.second.text.data());
        return FlashStatus::noSolution;
    }
}

FlashStatus explainSearch(const SearchFindings &findings, const FlashSpecification &first,
                          const FlashSpecification &second, FlashReason &reason)
{
    const PairText text(first, second);
    if (findings.jumped) {
        giveReason(reason,
                   "The phases allowed cannot have %s and %s: at %.6g K and %.6g Pa the %s jumps from %.6g to "
                   "%.6g %s",
                   text.first.text.data(), text.second.text.data(), findings.temperature, findings.pressure,
                   flashVariableName(findings.jumping), findings.from, findings.to,
                   flashVariableUnit(findings.jumping));
        return FlashStatus::noSolution;
    }
    if (findings.phasesNotFound) {
        giveReason(reason, "The phases at some of the conditions tried for %s and %s were not found",
                   text.first.text.data(), text.second.text.data());
        return FlashStatus::notConverged;
    }
    giveReason(reason, "No state with %s and %s was found %s and %s", text.first.text.data(), text.second.text.data(),
               LimitsText(FlashVariable::temperature).text.data(), LimitsText(FlashVariable::pressure).text.data());
    return FlashStatus::noSolution;
}

FlashStatus explainBudget(const FlashBudget &budget, const FlashSpecification &first, const FlashSpecification &second,
                          FlashReason &reason)
{
    const PairText text(first, second);
    giveReason(reason, "No state with %s and %s was found by %d flashes at temperatures and pressures",
               text.first.text.data(), text.second.text.data(), budget.flashes());
    return FlashStatus::notConverged;
}

// A pure compound's vapor and liquid of the same Gibbs energy.
bool boils(const Feed &feed, const FlashResult &result)
{
    if (feed.size() != 1 || !allowsBoiling(feed.phases))
        return false;
    const Isotherm isotherm(feed.model, result.temperature);
    PhaseState vapor;
    PhaseState liquid;
    evaluatePhase(feed.model, isotherm, result.pressure, feed.z, Root::vapor, vapor);
    evaluatePhase(feed.model, isotherm, result.pressure, feed.z, Root::liquid, liquid);
    return vapor.severalRoots && std::fabs(vapor.lnPhi[0] - liquid.lnPhi[0]) < 1e-9;
}

// Whether a variable has the same value at any pressure: the volume of a liquid that does not yield, and with it the
// Helmholtz energy, of models with activity coefficients.
bool leavesPressureOpen(const FoundState &state, const FlashSpecification &given)
{
    const Totals &totals = state.equilibrium.totals;
    constexpr double roundOff = 1e-12;
    return !state.equilibrium.phases.vaporPresent && std::fabs(totals.pressure * totals.byPressure(given.variable)) <
                                                         roundOff * scaleOf(given, totals.temperature);
}

FlashStatus explainOpenPressure(const FlashSpecification &first, const FlashSpecification &second, FlashReason &reason)
{
    const PairText text(first, second);
    giveReason(reason, "The liquid has %s and %s at any pressure: its volume does not depend on it",
               text.first.text.data(), text.second.text.data());
    return FlashStatus::undetermined;
}

// With all compounds present and the variables in the order of their table.
FlashStatus flashPresent(const Feed &feed, const FlashSpecification &first, const FlashSpecification &second,
                         SolutionType type, FlashResult &result, FlashReason &reason)
{
    const bool firstIsFraction = isFraction(first.variable);
    if (firstIsFraction || isFraction(second.variable)) {
        const FlashSpecification &fraction = firstIsFraction ? first : second;
        const FlashSpecification &other = firstIsFraction ? second : first;
        const LineStatus status = findOnQualityLine(feed, fraction, other, type, result);
        return status == LineStatus::solved ? FlashStatus::solved : explainLine(status, fraction, other, reason);
    }

    FoundState state;
    SearchFindings findings;
    if (isCondition(first.variable) && isCondition(second.variable)) {
        const FlashStatus status =
            flashTP(feed.model, first.value, second.value, feed.fractions(), feed.phases, result);
        if (status == FlashStatus::otherPhases)
            giveReason(reason, "At %.6g K and %.6g Pa other phases are stable than the ones that the flash may use",
                       first.value, second.value);
        else if (status != FlashStatus::solved)
            giveReason(reason, "The phases at %.6g K and %.6g Pa were not found", first.value, second.value);
        return status;
    }
    if (isCondition(first.variable)) {
        const double start = first.variable == FlashVariable::temperature ? 1e5 : 300.0;
        if (solveAtCondition(feed, first, second, start, true, state, findings) != SearchStatus::found)
            return explainSearch(findings, first, second, reason);
        if (first.variable == FlashVariable::temperature && leavesPressureOpen(state, second))
            return explainOpenPressure(first, second, reason);
        result = state.equilibrium.phases;
        if (second.variable == FlashVariable::gibbsEnergy && boils(feed, result)) {
            const PairText text(first, second);
            giveReason(reason, "A pure compound that boils has %s with %s whatever the amounts of vapor and liquid",
                       text.second.text.data(), text.first.text.data());
            return FlashStatus::undetermined;
        }
        return FlashStatus::solved;
    }
    if (solveWithoutCondition(feed, first, second, state, findings) != SearchStatus::found)
        return explainSearch(findings, first, second, reason);
    if (leavesPressureOpen(state, first) && leavesPressureOpen(state, second))
        return explainOpenPressure(first, second, reason);
    result = state.equilibrium.phases;
    return FlashStatus::solved;
}

} // namespace

const char *refusalOf(FlashVariable first, FlashVariable second)
{
    if (first == second)
        return "The two flash specifications are the same";
    if (isFraction(first) && isFraction(second))
        return "A vapor fraction and a vapor mass fraction do not determine a temperature";
    return nullptr;
}

FlashStatus flash(const MixtureModel &model, const FlashRequest &request, std::span<const double> z,
                  FlashResult &result, FlashReason &reason)
{
    FlashSpecification first = request.first;
    FlashSpecification second = request.second;
    if (const char *refusal = refusalOf(first.variable, second.variable)) {
        giveReason(reason, "%s", refusal);
        return FlashStatus::undetermined;
    }
    for (const FlashSpecification &given : {first, second}) {
        if (!isPossible(given, reason))
            return FlashStatus::badValue;
        if (isFraction(given.variable) && !allowsBoiling(request.phases)) {
            giveReason(reason, "A %s needs both a vapor and a liquid to be allowed", flashVariableName(given.variable));
            return FlashStatus::undetermined;
        }
    }
    for (FlashSpecification *given : {&first, &second})
        if (isFraction(given->variable))
            given->value = std::clamp(given->value, 0.0, 1.0);
    if (second.variable < first.variable)
        std::swap(first, second);

    const PresentCompounds present(z.first(model.size), negligibleFraction);
    const bool hasFraction = isFraction(first.variable) || isFraction(second.variable);
    FlashBudget budget(present.count, hasFraction ? FlashBudget::Search::fraction : FlashBudget::Search::values);
    const auto solve = [&](const MixtureModel &few) {
        return flashPresent({few, present.amounts.data(), request.phases, &budget}, first, second, request.solution,
                            result, reason);
    };
    const FlashStatus status = present.isAll() ? solve(model) : solve(model.subset(present.members()));
    if (status != FlashStatus::solved && budget.isSpent())
        return explainBudget(budget, first, second, reason);
    if (status == FlashStatus::solved && result.vaporPresent)
        present.spread(result.vapor);
    if (status == FlashStatus::solved && result.liquidPresent)
        present.spread(result.liquid);
    if (status == FlashStatus::solved && result.liquid2Present)
        present.spread(result.liquid2);
    for (const FlashSpecification &given : {first, second}) {
        if (given.variable == FlashVariable::temperature)
            result.temperature = given.value;
        if (given.variable == FlashVariable::pressure)
            result.pressure = given.value;
    }
    return status;
}

} // namespace reference
