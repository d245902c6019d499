#include "reference/engine/flash/quick_state.h"

#include "reference/engine/equilibrium/flash_problem.h"
#include "reference/engine/equilibrium/flash_tp.h"
#include "reference/engine/equilibrium/rachford_rice.h"
#include "reference/engine/flash/vapor_liquid_point.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace reference {

namespace {

constexpr int mostProbes = 12;
constexpr double nearlyMet = 1e-13; // residual of one phase that no further step is worth it

class QuickSearch {
public:
    QuickSearch(const Feed &whole, const FlashSpecification &condition, const FlashSpecification &value, double from,
                FoundState &found)
        : feed(whole), fixed(condition), wanted(value), state(found),
          atTemperature(condition.variable == FlashVariable::temperature),
          limits(flashLimitsOf(otherCondition(condition.variable))), at(from), knownAt(from)
    {
        for (int i = 0; i < feed.size(); ++i)
            lnK[i] = wilsonLogRatio(feed.model.compounds[i], conditions().temperature, conditions().pressure);
    }

    bool find()
    {
        const double longest = atTemperature ? 3.0 : 0.4;
        const double nearby = atTemperature ? 1.0 : 0.1;
        double low = std::log(limits.lowest);
        double high = std::log(limits.highest);
        bool pairFailed = false;
        for (int step = 0; step < mostProbes; ++step) {
            const bool two = !pairFailed && estimatePair();
            const Value now = two ? pairValue() : onePhaseValue();
            const double change = -now.residual / now.slope;
            if (!std::isfinite(change))
                return false;
            if (two && std::fabs(change) < nearby) {
                at = std::clamp(at + change, low, high);
                if (estimatePair() && solvePair())
                    return true;
                pairFailed = true;
                continue;
            }
            if (!two && std::fabs(now.residual) < nearlyMet)
                return confirmOnePhase();
            (now.residual * now.slope < 0.0 ? low : high) = at;
            double next = at + std::clamp(change, -longest, longest);
            if (!(next > low && next < high))
                next = 0.5 * (low + high);
            if (next == at)
                return !two && confirmOnePhase();
            at = next;
        }
        return false;
    }

private:
    const Feed &feed;
    const FlashSpecification &fixed;
    const FlashSpecification &wanted;
    FoundState &state;
    const bool atTemperature;
    const FlashLimits limits;
    double at;      // logarithm of the other condition
    double knownAt; // where lnK was found
    CompoundArray lnK;
    TwoPhasePoint point;

    FlashConditions conditions() const { return bothConditions(fixed, std::exp(at)); }

    struct Value {
        double residual;
        double slope; // by the logarithm of the other condition
    };
    Value valueOf(const Totals &totals, double transfer) const
    {
        return {residualOf(totals, wanted),
                unitOf(totals, wanted) * (totals.byOther(fixed.variable, wanted.variable) + transfer)};
    }

    Value onePhaseValue() const
    {
        const auto [temperature, pressure] = conditions();
        PhaseProperties phase;
        evaluateProperties(feed.model, Isotherm(feed.model, temperature), pressure, feed.z, Root::stable, phase);
        return valueOf(Totals::of(phase), 0.0);
    }

    // Of the estimated pair, which becomes a better one for the next place.
    Value pairValue()
    {
        const int n = feed.size();
        constexpr double unknown = std::numeric_limits<double>::quiet_NaN();
        if (!point.evaluate(feed))
            return {unknown, unknown};
        for (int i = 0; i < n; ++i)
            lnK[i] = point.liquid.state.lnPhi[i] - point.vapor.state.lnPhi[i];
        knownAt = at;
        constexpr double apart = 1e-3;
        PhaseAmounts now;
        PhaseAmounts beside;
        double transfer = 0.0; // what the moles that boil add to the slope
        if (divide(at, now) && divide(at + apart, beside))
            transfer =
                (beside.vapor - now.vapor) / apart *
                (Totals::of(point.vapor).value(wanted.variable) - Totals::of(point.liquid).value(wanted.variable));
        return valueOf(point.totals, transfer);
    }

    // The ratios at another place, as they change by Wilson.
    double lnKAt(double place, int i) const
    {
        if (atTemperature)
            return lnK[i] + knownAt - place;
        return lnK[i] + wilsonFall(feed.model.compounds[i]) * (std::exp(-knownAt) - std::exp(-place));
    }

    bool divide(double place, PhaseAmounts &amounts) const
    {
        CompoundArray K;
        for (int i = 0; i < feed.size(); ++i)
            K[i] = std::exp(lnKAt(place, i));
        return solveRachfordRice(feed.size(), feed.z, K.data(), amounts);
    }

    bool confirmOnePhase()
    {
        Equilibrium &now = state.equilibrium;
        const auto [temperature, pressure] = conditions();
        if (now.find(feed, temperature, pressure) != FlashStatus::solved)
            return false;
        state.slopesKnown = true;
        return std::fabs(residualOf(now.totals, wanted)) < aimedResidual;
    }

    // Two phases by the ratios known best, if these make any.
    bool estimatePair()
    {
        const int n = feed.size();
        PhaseAmounts amounts;
        if (!divide(at, amounts))
            return false;
        for (int i = 0; i < n; ++i)
            point.unknowns[i] = lnKAt(at, i);
        point.setAmounts(n, amounts.vapor, amounts.liquid);
        const auto [temperature, pressure] = conditions();
        point.unknowns[TwoPhasePoint::temperatureAt(n)] = std::log(temperature);
        point.unknowns[TwoPhasePoint::pressureAt(n)] = std::log(pressure);
        return true;
    }

    // From the estimate to the solution, if that is one of two stable phases.
    bool solvePair()
    {
        const int n = feed.size();
        if (!solvePoint(feed, point, Closing::of(fixed), Closing::of(wanted)) || !areVaporAndLiquid(feed, point))
            return false;
        const double free = otherConditionOf(point.totals, fixed.variable);
        constexpr double least = 1e-10; // of an amount: at the ends one phase may be the answer
        if (!(point.vaporAmount(n) > least && point.liquidAmount(n) > least) || !limits.contain(free) ||
            !(std::fabs(residualOf(point.totals, wanted)) < aimedResidual))
            return false;
        FlashResult pair;
        giveResult(feed, point, pair);
        Equilibrium &now = state.equilibrium;
        if (!nameStablePair(feed.model, pair, feed.fractions(), feed.phases, now.phases))
            return false;
        now.totals = point.totals;
        state.slopesKnown = false;
        return true;
    }
};

} // namespace

bool findQuickly(const Feed &feed, const FlashSpecification &fixed, const FlashSpecification &wanted, double start,
                 FoundState &state)
{
    if (feed.size() == 1 || !allowsBoiling(feed.phases))
        return false;
    if (!feed.model.isCubic() && fixed.variable == FlashVariable::temperature)
        return false; // the pressure is next to nothing for such a liquid
    return QuickSearch(feed, fixed, wanted, start, state).find();
}

} // namespace reference
