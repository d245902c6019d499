#include "reference/engine/quality_line.h"

#include "reference/engine/stability.h"

#include <algorithm>
#include <cmath>

namespace reference {

namespace {

constexpr int mostSteps = 600;
constexpr double metastable = 1e-8; // a Gibbs energy over R T too high by this is no round-off

// How a value of a variable is compared: energies and fractions as they are, the others by their logarithms.
double deviation(const TwoPhasePoint &point, int size, const FlashSpecification &given)
{
    return (point.value(size, given.variable) - given.value) / scaleOf(given, point.totals.temperature);
}

// Sum over z_i (K_i - 1) / (liquid + vapor K_i) with K_i times a factor, in a form that is fit for large ratios.
double balance(const Feed &feed, const UnknownArray &lnK, double amount)
{
    double sum = 0.0;
    double vapor = 0.0;
    double liquid = 0.0;
    for (int i = 0; i < feed.size(); ++i) {
        const double K = std::exp(lnK[i]);
        sum += feed.z[i] * (K - 1.0) / (1.0 - amount + amount * K);
        vapor += feed.z[i] * K;
        liquid += feed.z[i] / K;
    }
    if (amount == 0.0)
        return std::log(vapor);
    return amount == 1.0 ? -std::log(liquid) : sum;
}

// A first estimate of a state with this amount of vapour at a temperature or pressure: by Wilson's ratios, then by
// substitution of the coefficients into them.
class Estimate {
public:
    Estimate(const Feed &whole, double vapor, const FlashSpecification &at, TwoPhasePoint &start)
        : feed(whole), amount(vapor), given(at), point(start),
          fixedTemperature(at.variable == FlashVariable::temperature)
    {
    }

    bool make()
    {
        const int n = feed.size();
        point.setAmounts(n, amount, 1.0 - amount);
        double &lnT = point.unknowns[TwoPhasePoint::temperatureAt(n)];
        double &lnP = point.unknowns[TwoPhasePoint::pressureAt(n)];
        lnT = fixedTemperature ? std::log(given.value) : 0.0;
        lnP = fixedTemperature ? 0.0 : std::log(given.value);
        if (!shift([&](double lnValue) {
                (fixedTemperature ? lnP : lnT) = lnValue;
                for (int i = 0; i < n; ++i)
                    point.unknowns[i] = wilsonLogRatio(feed.model.compounds[i], std::exp(lnT), std::exp(lnP));
            }))
            return false;
        for (int round = 0; round < 5; ++round) {
            if (!point.evaluate(feed))
                return false;
            UnknownArray lnK;
            for (int i = 0; i < n; ++i)
                lnK[i] = point.liquid.state.lnPhi[i] - point.vapor.state.lnPhi[i];
            const double oldT = std::exp(lnT);
            const double oldLnP = lnP;
            if (!shift([&](double lnValue) {
                    (fixedTemperature ? lnP : lnT) = lnValue;
                    for (int i = 0; i < n; ++i) {
                        const CompoundTerms &compound = feed.model.compounds[i];
                        const double warming = 5.373 * (1.0 + compound.acentricFactor) * compound.criticalTemperature;
                        point.unknowns[i] = lnK[i] + (oldLnP - lnP) + warming * (1.0 / oldT - 1.0 / std::exp(lnT));
                    }
                }))
                return false;
        }
        return true;
    }

private:
    const Feed &feed;
    double amount;
    const FlashSpecification &given;
    TwoPhasePoint &point;
    bool fixedTemperature;

    // Finds the pressure or temperature at which the ratios that `set` makes for its logarithm are in balance.
    template <class Set> bool shift(Set set) const
    {
        double low = std::log(fixedTemperature ? lowestFlashPressure : lowestFlashTemperature);
        double high = std::log(fixedTemperature ? highestFlashPressure : highestFlashTemperature);
        const double rising = fixedTemperature ? -1.0 : 1.0; // more vapour when warmer or less compressed
        set(low);
        if (rising * balance(feed, point.unknowns, amount) > 0.0)
            return false;
        set(high);
        if (rising * balance(feed, point.unknowns, amount) < 0.0)
            return false;
        for (int i = 0; i < 45; ++i) {
            const double middle = 0.5 * (low + high);
            set(middle);
            (rising * balance(feed, point.unknowns, amount) > 0.0 ? high : low) = middle;
        }
        return true;
    }
};

bool withinLimits(const Totals &totals)
{
    constexpr double slack = 1e-9;
    return totals.temperature > lowestFlashTemperature * (1.0 - slack) &&
           totals.temperature < highestFlashTemperature * (1.0 + slack) &&
           totals.pressure > lowestFlashPressure * (1.0 - slack) &&
           totals.pressure < highestFlashPressure * (1.0 + slack);
}

// A point of the line, and how everything changes along it.
struct LinePoint {
    TwoPhasePoint point;
    double gap;           // of the other variable from its value
    double gapRate;       // by the unknown that counts the steps
    UnknownArray tangent; // of the unknowns, by that unknown
};

class Line {
public:
    Line(const Feed &whole, const FlashSpecification &vaporFraction, const FlashSpecification &otherVariable,
         SolutionType wanted, FlashResult &answer, LineExtent &reached)
        : feed(whole), n(whole.size()), fraction(vaporFraction), other(otherVariable), type(wanted), result(answer),
          extent(reached)
    {
    }

    LineStatus find()
    {
        extent = {highestFlashTemperature, lowestFlashTemperature, highestFlashPressure, lowestFlashPressure};
        LinePoint start;
        const bool conditionGiven =
            other.variable == FlashVariable::temperature || other.variable == FlashVariable::pressure;
        bool started = conditionGiven && startAt(other, start.point);
        if (started && offer(start.point))
            return LineStatus::solved;
        for (const double pressure : {1e5, 1e3, 1e6, 1e1, 1e7})
            started = started || startAt({FlashVariable::pressure, pressure}, start.point);
        for (const double temperature : {300.0, 200.0, 120.0, 450.0, 80.0, 40.0})
            started = started || startAt({FlashVariable::temperature, temperature}, start.point);
        if (started)
            for (const double direction : {1.0, -1.0})
                if (walk(start, direction))
                    return LineStatus::solved;
        if (!haveSecondChoice && lookAround(started))
            return LineStatus::solved;
        if (haveSecondChoice)
            return LineStatus::solved;
        if (!started)
            return LineStatus::noLine;
        return sawOtherType ? LineStatus::otherType : sawUnstable ? LineStatus::unstable : LineStatus::notOnLine;
    }

private:
    const Feed &feed;
    const int n;
    const FlashSpecification &fraction;
    const FlashSpecification &other;
    const SolutionType type;
    FlashResult &result;
    LineExtent &extent;
    int counter = 0; // the unknown that counts the steps
    bool haveSecondChoice = false;
    bool sawOtherType = false;
    bool sawUnstable = false;
    struct Place {
        double lnT, lnP;
    };
    std::array<Place, 2 * mostSteps> trace; // where lines have been followed
    int traceCount = 0;
    TwoPhaseEquations equations;
    Elimination elimination;

    bool startAt(const FlashSpecification &at, TwoPhasePoint &point) const
    {
        if (!Estimate(feed, fraction.value, at, point).make())
            return false;
        return solvePoint(feed, point, Closing::of(fraction), Closing::of(at)) && areVaporAndLiquid(feed, point) &&
               withinLimits(point.totals);
    }

    // A feed can have several lines of one vapour fraction: those of two liquids do not meet the one of boiling, and
    // a gas that dissolves can leave a gap in that one. Looks for starts on all of them by flashes at given conditions.
    bool lookAround(bool &started)
    {
        const bool atTemperature = other.variable == FlashVariable::temperature;
        if (atTemperature || other.variable == FlashVariable::pressure)
            return lookAlong(other, 150, true, started);
        for (const int pressures : {16, 40})
            for (int i = 0; i <= pressures; ++i) {
                const double pressure = 1e2 * std::pow(highestFlashPressure / 1e2, static_cast<double>(i) / pressures);
                if (lookAlong({FlashVariable::pressure, pressure}, 3 * pressures, false, started))
                    return true;
            }
        return false;
    }

    // The same at one temperature or pressure. `isAnswer` says that this is the one of the solution.
    bool lookAlong(const FlashSpecification &at, int intervals, bool isAnswer, bool &started)
    {
        const bool atTemperature = at.variable == FlashVariable::temperature;
        const double low = atTemperature ? 1e2 : lowestFlashTemperature;
        const double high = atTemperature ? highestFlashPressure : highestFlashTemperature;
        Sample last;
        for (int i = 0; i <= intervals; ++i) {
            Sample now;
            now.take(feed, at, low * std::pow(high / low, static_cast<double>(i) / intervals));
            LinePoint start;
            if (i > 0 && startBetween(last, now, at, start.point)) {
                started = true;
                if (isAnswer ? offer(start.point) : !isTraced(start.point) && walkBoth(start))
                    return true;
            }
            last = now;
        }
        return false;
    }

    // What a flash at a temperature or pressure and another condition tells.
    struct Sample {
        bool known = false;
        bool isNamed = false; // one phase, which another name is given on the other side
        double free = 0.0;    // the other condition
        FlashResult state;

        void take(const Feed &feed, const FlashSpecification &at, double other)
        {
            free = other;
            const bool atTemperature = at.variable == FlashVariable::temperature;
            known = flashTP(feed.model, atTemperature ? at.value : other, atTemperature ? other : at.value,
                            feed.fractions(), state) == FlashStatus::solved;
        }
        bool isTwo() const { return state.vaporPresent && state.liquidPresent; }
    };

    bool walkBoth(const LinePoint &start) { return walk(start, 1.0) || walk(start, -1.0); }

    // Whether a start lies on a line that has been followed already; not needed for the answer, only for the time it
    // takes.
    bool isTraced(const TwoPhasePoint &point)
    {
        constexpr double near = 0.02;
        for (int i = 0; i < traceCount; ++i)
            if (std::fabs(trace[i].lnT - point.unknowns[n + 1]) < near &&
                std::fabs(trace[i].lnP - point.unknowns[n + 2]) < 10.0 * near)
                return true;
        return false;
    }

    // The fraction that is given, of two phases.
    double fractionOf(const FlashResult &state) const
    {
        if (fraction.variable == FlashVariable::vaporFraction)
            return state.vaporFraction;
        double vapor = 0.0;
        double liquid = 0.0;
        for (int i = 0; i < n; ++i) {
            vapor += state.vaporFraction * state.vapor[i] * feed.model.compounds[i].molecularWeight;
            liquid += state.liquidFraction * state.liquid[i] * feed.model.compounds[i].molecularWeight;
        }
        return vapor / (vapor + liquid);
    }

    // How much more vapour a sample has than wanted. One phase counts as the one that its neighbour of two phases
    // is about to be, and is on the other side of a fraction of 0 or 1.
    double surplus(const Sample &sample, const Sample &neighbour) const
    {
        if (sample.isTwo())
            return fractionOf(sample.state) - fraction.value;
        const bool nearVapor =
            neighbour.isTwo() && !sample.isNamed ? neighbour.state.vaporFraction > 0.5 : sample.state.vaporPresent;
        const double difference = (nearVapor ? 1.0 : 0.0) - fraction.value;
        return difference != 0.0 ? difference : nearVapor ? 1.0 : -1.0;
    }

    // A point of the line between two samples.
    bool startBetween(Sample first, Sample second, const FlashSpecification &at, TwoPhasePoint &point) const
    {
        if (!first.known || !second.known)
            return false;
        if (!first.isTwo() && !second.isTwo())
            first.isNamed = second.isNamed = true;
        for (int halving = 0; halving < 30; ++halving) {
            const bool two = first.isTwo() || second.isTwo();
            if (two ? surplus(first, second) * surplus(second, first) > 0.0
                    : first.state.vaporPresent == second.state.vaporPresent)
                return false;
            if ((two || (n == 1 && halving > 10)) && halving % 3 == 0 && solveBetween(first, second, at, point))
                return true;
            Sample middle;
            middle.take(feed, at, std::sqrt(first.free * second.free));
            if (!middle.known)
                return false;
            const bool before = two || middle.isTwo() ? surplus(first, middle) * surplus(middle, first) < 0.0
                                                      : middle.state.vaporPresent != first.state.vaporPresent;
            middle.isNamed = first.isNamed && second.isNamed;
            (before ? second : first) = middle;
        }
        return false;
    }

    bool solveBetween(const Sample &first, const Sample &second, const FlashSpecification &at,
                      TwoPhasePoint &point) const
    {
        const bool takeFirst =
            !second.isTwo() || (first.isTwo() && std::fabs(surplus(first, second)) < std::fabs(surplus(second, first)));
        const FlashResult &nearest = takeFirst ? first.state : second.state;
        for (int i = 0; i < n; ++i)
            point.unknowns[i] = n == 1 ? 0.0 : std::log(nearest.vapor[i] / nearest.liquid[i]);
        if (n == 1 || fraction.variable == FlashVariable::vaporFraction)
            point.setAmounts(n, fraction.value, 1.0 - fraction.value);
        else
            point.setAmounts(n, nearest.vaporFraction, nearest.liquidFraction);
        point.unknowns[TwoPhasePoint::temperatureAt(n)] = std::log(nearest.temperature);
        point.unknowns[TwoPhasePoint::pressureAt(n)] = std::log(nearest.pressure);
        if (!solvePoint(feed, point, Closing::of(fraction), Closing::of(at)) || !areVaporAndLiquid(feed, point))
            return false;
        const double free =
            at.variable == FlashVariable::temperature ? point.totals.pressure : point.totals.temperature;
        return free > std::min(first.free, second.free) * (1.0 - 1e-9) &&
               free < std::max(first.free, second.free) * (1.0 + 1e-9) && isStable(point);
    }

    // Whether a solution is of the type that is wanted, and no phase of it would split off another. True when the
    // search is over.
    bool offer(const TwoPhasePoint &point)
    {
        if (!withinLimits(point.totals) || !areVaporAndLiquid(feed, point))
            return false;
        if (!isStable(point)) {
            sawUnstable = true;
            return false;
        }
        const SolutionType found = typeOf(point);
        const bool wanted = type == found || (type == SolutionType::unspecified && found == SolutionType::normal);
        if (!wanted && type != SolutionType::unspecified) {
            sawOtherType = true;
            return false;
        }
        if (!wanted && haveSecondChoice)
            return false;
        giveResult(feed, point, result);
        if (fraction.value == 0.0 || fraction.value == 1.0) { // exactly
            result.vaporFraction = fraction.value;
            result.liquidFraction = 1.0 - fraction.value;
        }
        haveSecondChoice = true;
        return wanted;
    }

    bool isStable(const TwoPhasePoint &point) const
    {
        Equilibrium found;
        if (!found.find(feed, point.totals.temperature, point.totals.pressure))
            return true;
        const double gibbs = point.totals.value(FlashVariable::gibbsEnergy) / (gasConstant * point.totals.temperature);
        return found.gibbs > gibbs - metastable * (1.0 + 1e-3 * std::fabs(gibbs));
    }

    SolutionType typeOf(const TwoPhasePoint &point)
    {
        if (n == 1)
            return SolutionType::normal; // temperature and pressure do not change with the amounts
        const bool atPressure = other.variable == FlashVariable::pressure;
        equations.build(feed, point, Closing::of({FlashVariable::temperature, point.totals.temperature}),
                        Closing::of({FlashVariable::pressure, point.totals.pressure}));
        UnknownArray rate{};
        rate[atPressure ? n + 1 : n + 2] = 1.0;
        if (!elimination.factor(equations.slopes))
            return SolutionType::normal;
        elimination.solve(rate);
        const double amount = point.countsLiquid ? -rate[TwoPhasePoint::amountAt(n)] : rate[TwoPhasePoint::amountAt(n)];
        return (atPressure ? amount >= 0.0 : amount <= 0.0) ? SolutionType::normal : SolutionType::retrograde;
    }

    // Finds out how things change along the line at an evaluated point.
    bool differentiate(LinePoint &at)
    {
        equations.build(feed, at.point, Closing::of(fraction), Closing::of(other));
        at.gap = deviation(at.point, n, other);
        UnknownArray gradient;
        for (int j = 0; j < n + 3; ++j) {
            gradient[j] = equations.slopes.at(n + 2, j);
            equations.slopes.at(n + 2, j) = j == counter ? 1.0 : 0.0;
        }
        if (!elimination.factor(equations.slopes))
            return false;
        at.tangent = {};
        at.tangent[n + 2] = 1.0;
        elimination.solve(at.tangent);
        at.gapRate = 0.0;
        for (int j = 0; j < n + 3; ++j)
            at.gapRate += gradient[j] * at.tangent[j];
        return std::isfinite(at.gapRate);
    }

    double weightOf(int unknown) const { return unknown == TwoPhasePoint::temperatureAt(n) ? 10.0 : 1.0; }

    // The unknown that changes most, and the length of a first step in it.
    int fastest(const UnknownArray &tangent) const
    {
        int chosen = TwoPhasePoint::pressureAt(n);
        for (int j = 0; j < n + 3; ++j)
            if (j != TwoPhasePoint::amountAt(n) &&
                weightOf(j) * std::fabs(tangent[j]) > weightOf(chosen) * std::fabs(tangent[chosen]))
                chosen = j;
        return chosen;
    }

    // The longest step that changes nothing by much.
    double longestStep(const LinePoint &at) const
    {
        double step = 0.7 / std::max(1e-10, std::fabs(at.tangent[TwoPhasePoint::pressureAt(n)]));
        step = std::min(step, 0.07 / std::max(1e-10, std::fabs(at.tangent[TwoPhasePoint::temperatureAt(n)])));
        const double contrast = at.point.contrast(n);
        if (n > 1)
            for (int i = 0; i < n; ++i)
                step = std::min(step, std::min(1.0, 0.5 * contrast) / std::max(1e-10, std::fabs(at.tangent[i])));
        return step;
    }

    bool solveAt(double counterValue, LinePoint &next)
    {
        return solvePoint(feed, next.point, Closing::of(fraction), Closing::ofUnknown(counter, counterValue)) &&
               areVaporAndLiquid(feed, next.point) && differentiate(next);
    }

    void note(const TwoPhasePoint &point)
    {
        const Totals &totals = point.totals;
        if (traceCount < static_cast<int>(trace.size()))
            trace[traceCount++] = {point.unknowns[n + 1], point.unknowns[n + 2]};
        extent.lowestTemperature = std::min(extent.lowestTemperature, totals.temperature);
        extent.highestTemperature = std::max(extent.highestTemperature, totals.temperature);
        extent.lowestPressure = std::min(extent.lowestPressure, totals.pressure);
        extent.highestPressure = std::max(extent.highestPressure, totals.pressure);
    }

    // Follows the line to its end. True when a solution ends the search.
    bool walk(const LinePoint &start, double direction)
    {
        LinePoint last = start;
        LinePoint next;
        counter = TwoPhasePoint::pressureAt(n);
        if (!last.point.evaluate(feed) || !differentiate(last))
            return false;
        double sign = direction; // along the counter
        double size = 0.5;       // of the longest step
        for (int step = 0; step < mostSteps; ++step) {
            note(last.point);
            const int chosen = fastest(last.tangent);
            if (chosen != counter) {
                sign = std::copysign(sign, sign * last.tangent[chosen]);
                counter = chosen;
                if (!differentiate(last))
                    return false;
            }
            if (!advance(last, sign, size, next))
                return false; // the line ends: at a critical point, mostly
            if (search(last, next))
                return true;
            if (!withinLimits(next.point.totals))
                return false;
            last = next;
        }
        return false;
    }

    bool advance(const LinePoint &last, double sign, double &size, LinePoint &next)
    {
        const double longest = longestStep(last);
        const double before = last.point.contrast(n);
        for (int halving = 0; halving < 12; ++halving, size *= 0.5) {
            const double length = sign * size * longest;
            next.point.countsLiquid = last.point.countsLiquid;
            for (int j = 0; j < n + 3; ++j)
                next.point.unknowns[j] = last.point.unknowns[j] + length * last.tangent[j];
            const double foreseen = next.point.contrast(n);
            const double target = next.point.unknowns[counter];
            if (!solveAt(target, next))
                continue;
            const double contrast = next.point.contrast(n);
            if (n > 1 && (contrast < 0.5 * std::min(foreseen, before) || contrast > 2.0 * std::max(foreseen, before)))
                continue;
            size = std::min(1.0, 1.5 * size);
            return true;
        }
        return false;
    }

    // Looks for solutions between two neighbours.
    bool search(const LinePoint &first, const LinePoint &second)
    {
        if (first.gap == 0.0 || first.gap * second.gap < 0.0)
            return refine(first, second);
        const double length = second.point.unknowns[counter] - first.point.unknowns[counter];
        const bool approaches = first.gap * first.gapRate * length < 0.0;
        const bool leaves = second.gap * second.gapRate * length > 0.0;
        if (!approaches || !leaves)
            return false;
        // There is an extremum between.
        LinePoint low = first;
        LinePoint high = second;
        LinePoint middle;
        for (int halving = 0; halving < 12; ++halving) {
            if (!between(low, high, 0.5, middle))
                return false;
            if (middle.gap * low.gap < 0.0)
                return refine(low, middle) || refine(middle, high);
            (middle.gapRate * low.gapRate > 0.0 ? low : high) = middle;
        }
        return false;
    }

    bool between(const LinePoint &low, const LinePoint &high, double part, LinePoint &middle)
    {
        middle.point.countsLiquid = low.point.countsLiquid;
        for (int j = 0; j < n + 3; ++j)
            middle.point.unknowns[j] = (1.0 - part) * low.point.unknowns[j] + part * high.point.unknowns[j];
        const double target = middle.point.unknowns[counter];
        return solveAt(target, middle);
    }

    bool refine(const LinePoint &first, const LinePoint &second)
    {
        LinePoint low = first;
        LinePoint high = second;
        LinePoint middle;
        for (int halving = 0; halving < 40; ++halving) {
            const double part = low.gap / (low.gap - high.gap);
            TwoPhasePoint point;
            point.countsLiquid = low.point.countsLiquid;
            for (int j = 0; j < n + 3; ++j)
                point.unknowns[j] = (1.0 - part) * low.point.unknowns[j] + part * high.point.unknowns[j];
            if (solvePoint(feed, point, Closing::of(fraction), Closing::of(other)) && isBetween(low, high, point))
                return offer(point);
            if (!between(low, high, 0.5, middle))
                return false;
            (middle.gap * low.gap > 0.0 ? low : high) = middle;
        }
        return false;
    }

    bool isBetween(const LinePoint &low, const LinePoint &high, const TwoPhasePoint &point) const
    {
        const double from = low.point.unknowns[counter];
        const double to = high.point.unknowns[counter];
        const double slack = 0.01 * std::fabs(to - from) + 1e-12;
        return point.unknowns[counter] > std::min(from, to) - slack &&
               point.unknowns[counter] < std::max(from, to) + slack;
    }
};

} // namespace

bool areVaporAndLiquid(const Feed &feed, const TwoPhasePoint &point)
{
    if (feed.model.equation == EquationOfState::idealMixture)
        return true; // its phases never become one
    const PhaseState &vapor = point.vapor.state;
    const PhaseState &liquid = point.liquid.state;
    const double ratio = vapor.Z / liquid.Z;
    if (std::fabs(ratio - 1.0) < 1e-4 && (feed.size() == 1 || point.contrast(feed.size()) < 1e-4))
        return false;
    // Beyond a critical point the equations hold with the phases in each other's place, unless one of them stands at
    // one of several roots. A molecule's own volume is the measure of density, as for flashTP.
    if (vapor.severalRoots || liquid.severalRoots)
        return true;
    double vaporCovolume = 0.0;
    double liquidCovolume = 0.0;
    for (int i = 0; i < feed.size(); ++i) {
        vaporCovolume += point.y[i] * feed.model.compounds[i].covolume;
        liquidCovolume += point.x[i] * feed.model.compounds[i].covolume;
    }
    return ratio > vaporCovolume / liquidCovolume;
}

void giveResult(const Feed &feed, const TwoPhasePoint &point, FlashResult &result)
{
    const int n = feed.size();
    result.temperature = point.totals.temperature;
    result.pressure = point.totals.pressure;
    result.vaporPresent = true;
    result.liquidPresent = true;
    result.vaporFraction = point.vaporAmount(n);
    result.liquidFraction = point.liquidAmount(n);
    std::copy_n(point.y.begin(), n, result.vapor.begin());
    std::copy_n(point.x.begin(), n, result.liquid.begin());
}

LineStatus findOnQualityLine(const Feed &feed, const FlashSpecification &fraction, const FlashSpecification &other,
                             SolutionType type, FlashResult &result, LineExtent &extent)
{
    return Line(feed, fraction, other, type, result, extent).find();
}

} // namespace reference
