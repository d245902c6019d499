#include "reference/engine/flash/quick_state.h"

#include "reference/engine/equilibrium/flash_problem.h"
#include "reference/engine/equilibrium/flash_tp.h"
#include "reference/engine/equilibrium/rachford_rice.h"
#include "reference/engine/flash/vapor_liquid_point.h"

#include <algorithm>
#include <cmath>

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
          limits(flashLimitsOf(atTemperature ? FlashVariable::pressure : FlashVariable::temperature)), at(from)
    {
    }

    double place() const { return at; }

    bool find(bool withSlopes)
    {
        const double longest = atTemperature ? 3.0 : 0.4;
        double low = std::log(limits.lowest);
        double high = std::log(limits.highest);
        for (int step = 0; step < mostProbes; ++step) {
            if (estimatePair() && solvePair(withSlopes))
                return true;
            const Totals one = onePhase();
            const double residual = residualOf(one, wanted);
            const double slope = (atTemperature ? pressure() * one.byPressure(wanted.variable)
                                                : temperature() * one.byTemperature(wanted.variable)) *
                                 unitOf(one, wanted);
            if (std::fabs(residual) < nearlyMet)
                return confirmOnePhase();
            // What the mixture has of the variable is between that of its vapor and its liquid.
            (residual * slope < 0.0 ? low : high) = at;
            double next = at + std::clamp(-residual / slope, -longest, longest);
            if (!(next > low && next < high))
                next = 0.5 * (low + high);
            if (!std::isfinite(next) || next == at)
                return confirmOnePhase();
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
    double at; // logarithm of the other condition
    TwoPhasePoint point;

    double temperature() const { return atTemperature ? fixed.value : std::exp(at); }
    double pressure() const { return atTemperature ? std::exp(at) : fixed.value; }

    // The feed as one phase.
    Totals onePhase() const
    {
        PhaseProperties phase;
        evaluateProperties(feed.model, Isotherm(feed.model, temperature()), pressure(), feed.z, Root::stable, phase);
        return Totals::of(phase);
    }

    bool confirmOnePhase()
    {
        Equilibrium &now = state.equilibrium;
        if (now.find(feed, temperature(), pressure()) != FlashStatus::solved)
            return false;
        state.slopesKnown = true;
        return std::fabs(residualOf(now.totals, wanted)) < aimedResidual;
    }

    // Two phases by Wilson's ratios, if these make any.
    bool estimatePair()
    {
        const int n = feed.size();
        CompoundArray K;
        for (int i = 0; i < n; ++i) {
            point.unknowns[i] = wilsonLogRatio(feed.model.compounds[i], temperature(), pressure());
            K[i] = std::exp(point.unknowns[i]);
        }
        PhaseAmounts amounts;
        if (!solveRachfordRice(n, feed.z, K.data(), amounts))
            return false;
        point.setAmounts(n, amounts.vapor, amounts.liquid);
        point.unknowns[TwoPhasePoint::temperatureAt(n)] = std::log(temperature());
        point.unknowns[TwoPhasePoint::pressureAt(n)] = std::log(pressure());
        return true;
    }

    // From the estimate to the solution, if that is one of two stable phases.
    bool solvePair(bool withSlopes)
    {
        const int n = feed.size();
        if (!solvePoint(feed, point, Closing::of(fixed), Closing::of(wanted)) || !areVaporAndLiquid(feed, point))
            return false;
        const double free = atTemperature ? point.totals.pressure : point.totals.temperature;
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
        state.slopesKnown = withSlopes;
        if (withSlopes)
            now.findTotals(feed);
        return true;
    }
};

} // namespace

bool findQuickly(const Feed &feed, const FlashSpecification &fixed, const FlashSpecification &wanted, bool withSlopes,
                 double &logarithm, FoundState &state)
{
    if (feed.size() == 1 || !allowsBoiling(feed.phases))
        return false;
    if (!feed.model.isCubic() && fixed.variable == FlashVariable::temperature)
        return false; // the pressure is next to nothing for such a liquid
    QuickSearch search(feed, fixed, wanted, logarithm, state);
    const bool found = search.find(withSlopes);
    if (!found && std::isfinite(search.place()))
        logarithm = search.place();
    return found;
}

} // namespace reference
