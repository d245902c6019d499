#include "reference/engine/flash/quality_line.h"

#include "reference/engine/flash/fraction_trace.h"
#include "reference/engine/flash/line_sample.h"
#include "reference/engine/flash/quality_estimate.h"
#include "reference/engine/flash/quality_newton.h"
#include "reference/engine/flash/quality_search.h"
#include "reference/engine/flash/quality_value.h"

#include <algorithm>
#include <cmath>

namespace reference {

namespace {

constexpr int mostSteps = 600;

// What a variable misses its value by.
double deviation(const TwoPhasePoint &point, int size, const FlashSpecification &given)
{
    return (point.value(size, given.variable) - given.value) / scaleOf(given, point.totals.temperature);
}

// A point of the line, and how everything changes along it.
struct LinePoint {
    TwoPhasePoint point;
    double deviation;     // of the other variable from its value
    double deviationRate; // by the parameter
    UnknownArray tangent; // of the unknowns, by the parameter
    UnknownArray bend;    // half of their second derivatives, as far as known
};

class Line {
public:
    Line(const Feed &whole, const FlashSpecification &vaporFraction, const FlashSpecification &otherVariable,
         SolutionType wanted, FlashResult &answer)
        : feed(whole), n(whole.size()), fraction(vaporFraction), other(otherVariable), type(wanted), result(answer)
    {
    }

    LineStatus find()
    {
        LinePoint start;
        bool started = isCondition(other.variable) && startAt(other, start.point);
        if (started && offer(start.point))
            return LineStatus::solved;
        FlashConditions guess;
        if (n > 1 && isCondition(other.variable) &&
            (started || estimateConditions(feed, fraction.value, other, guess)) &&
            offerNear(started ? placeOf(start.point) : guess))
            return LineStatus::solved;
        for (const double pressure : {1e5, 1e3, 1e6, 1e1, 1e7})
            started = started || startAt({FlashVariable::pressure, pressure}, start.point);
        for (const double temperature : {300.0, 200.0, 120.0, 450.0, 80.0, 40.0})
            started = started || startAt({FlashVariable::temperature, temperature}, start.point);
        if (started && walkBoth(start))
            return LineStatus::solved;
        if (!haveSecondChoice && n > 1 && !isCondition(other.variable) && findWithMoreLiquids())
            return LineStatus::solved;
        if (!haveSecondChoice && lookAround(started))
            return LineStatus::solved;
        // Of two phases, which those of a dew point always are, all states are on the lines that have been followed,
        // and of three on the trace, unless there is so little of one that states beside it have fewer. Where two
        // liquids are seen there can be three phases, too.
        constexpr double little = 1e-3;
        const bool canBeThree = (sawUnstable || sawTwoLiquids) && fraction.value < 1.0;
        const bool isNearEnd = std::min(fraction.value, 1.0 - fraction.value) < little;
        if (!haveSecondChoice && ((canBeThree && isNearEnd) || !started) && n > 1 && !isCondition(other.variable) &&
            findByQuality(feed, fraction, other, result))
            return LineStatus::solved;
        if (!haveSecondChoice && n > 1 && sawBoiling && isCondition(other.variable) && comeFromBeside())
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
    int parameter = 0; // the unknown along which a line is followed
    bool haveSecondChoice = false;
    bool sawOtherType = false;
    bool sawUnstable = false;
    FlashConditions unstable; // of the last one seen
    bool sawBoiling = false;
    bool sawTwoLiquids = false;
    struct Place {
        double lnT, lnP;
    };
    static constexpr int mostPlaces = 2 * mostSteps;
    std::array<Place, mostPlaces> trace; // where lines have been followed
    int traceCount = 0;
    TwoPhaseEquations equations;
    Elimination elimination;

    bool startAt(const FlashSpecification &at, TwoPhasePoint &point) const
    {
        if (!estimatePoint(feed, fraction.value, at, point))
            return false;
        return solvePoint(feed, point, Closing::of(fraction), Closing::of(at)) && areVaporAndLiquid(feed, point) &&
               isWithinLimits(point.totals);
    }

    // A feed can have several lines of one vapor fraction: those of two liquids do not meet the one of boiling, and
    // a gas that dissolves can leave a gap in that one. Looks for starts on all of them by flashes at given conditions.
    bool lookAround(bool &started)
    {
        if (isCondition(other.variable))
            return lookAlong(other, 150, true, started);
        constexpr int pressures = 12;
        constexpr int temperatures = 40;
        for (int i = 0; i <= pressures; ++i) {
            const double pressure = lowestSearchPressure * std::pow(highestFlashPressure / lowestSearchPressure,
                                                                    static_cast<double>(i) / pressures);
            if (lookAlong({FlashVariable::pressure, pressure}, temperatures, false, started))
                return true;
        }
        return false;
    }

    // The same at one temperature or pressure. `isAnswer` says that this is the one of the solution.
    bool lookAlong(const FlashSpecification &at, int intervals, bool isAnswer, bool &started)
    {
        const bool atTemperature = at.variable == FlashVariable::temperature;
        const double low = atTemperature ? lowestSearchPressure
                           : isAnswer    ? lowestFlashTemperature
                                         : coldestWithPhases(feed);
        const double high = atTemperature ? highestFlashPressure : highestFlashTemperature;
        const LineSampler sampler(feed, fraction);
        QualitySearch quality(feed, fraction);
        LineSample last;
        for (int i = 0; i <= intervals; ++i) {
            LineSample now;
            now.take(feed, at, low * std::pow(high / low, static_cast<double>(i) / intervals));
            sawBoiling |= now.known && now.isTwo();
            sawTwoLiquids |= now.known && now.state.liquid2Present;
            LinePoint start;
            if (i > 0 && sampler.startBetween(last, now, at, start.point)) {
                started = true;
                if (isAnswer ? offer(start.point) : !isTraced(start.point) && walkBoth(start))
                    return true;
            } else if (i > 0 && isAnswer && n > 1 && last.known && now.known &&
                       quality.between(at, last.state, now.state) && offerState(quality.found(), quality.foundType()))
                return true;
            last = now;
        }
        return false;
    }

    // Next to a critical point flashes find no digits of the amounts: follows the line from further off.
    bool comeFromBeside()
    {
        const bool atTemperature = other.variable == FlashVariable::temperature;
        QualitySearch quality(feed, fraction);
        for (const double ratio : {0.99, 1.01, 0.96, 1.04}) {
            const FlashSpecification beside{other.variable, other.value * ratio};
            if (!(atTemperature ? quality.scan(beside, lowestSearchPressure, highestFlashPressure, 40)
                                : quality.scan(beside, lowestFlashTemperature, highestFlashTemperature, 40)) ||
                quality.found().liquid2Present || !quality.found().liquidPresent)
                continue;
            LinePoint start;
            start.point.setPhases(n, quality.found());
            start.point.setAmounts(n, quality.found().vaporFraction, quality.found().liquidFraction);
            if (solvePoint(feed, start.point, Closing::of(fraction), Closing::of(beside)) && walkBoth(start))
                return true;
        }
        return false;
    }

    // Where a liquid would split further, the state is mostly near, and otherwise near one that is estimated.
    bool findWithMoreLiquids()
    {
        SolutionType anyType = SolutionType::normal;
        if (sawUnstable && findFractionNear(feed, fraction, other, unstable, result, anyType))
            return true;
        for (const double pressure : {1e5, 1e6, 1e7, 1e4}) {
            FlashConditions guess;
            if (estimateConditions(feed, fraction.value, {FlashVariable::pressure, pressure}, guess) &&
                findFractionNear(feed, fraction, other, guess, result, anyType))
                return true;
        }
        return fraction.value > 0.0 && fraction.value < 1.0 && findOnFractionTrace(feed, fraction, other, result);
    }

    // Looks for a state with any number of liquids near a guess.
    bool offerNear(const FlashConditions &guess)
    {
        FlashResult state;
        SolutionType found = SolutionType::normal;
        if (findFractionNear(feed, fraction, other, guess, state, found) && offerState(state, found))
            return true;
        QualitySearch quality(feed, fraction);
        return quality.beside(other, otherConditionOf(guess, other.variable), type) &&
               offerState(quality.found(), quality.foundType());
    }

    bool offerState(const FlashResult &state, SolutionType found)
    {
        if (!flashLimitsOf(FlashVariable::temperature).contain(state.temperature) ||
            !flashLimitsOf(FlashVariable::pressure).contain(state.pressure))
            return false;
        const Choice choice = choose(found);
        if (choice != Choice::none)
            result = state;
        return choice == Choice::last;
    }

    static FlashConditions placeOf(const TwoPhasePoint &point)
    {
        return {point.totals.temperature, point.totals.pressure};
    }

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

    // Whether a solution is of the type that is wanted, and no phase of it would split off another. True when the
    // search is over.
    bool offer(const TwoPhasePoint &point)
    {
        if (!isWithinLimits(point.totals) || !areVaporAndLiquid(feed, point))
            return false;
        if (!isStable(feed, point)) {
            sawUnstable = true;
            unstable = placeOf(point);
            return false;
        }
        const Choice choice = choose(typeOf(point));
        if (choice == Choice::none)
            return false;
        giveResult(feed, point, result);
        if (fraction.value == 0.0 || fraction.value == 1.0) { // exactly
            result.vaporFraction = fraction.value;
            result.liquidFraction = 1.0 - fraction.value;
        }
        return choice == Choice::last;
    }

    enum class Choice { none, second, last };

    // What becomes of a solution of some type: the second choice is kept while the search goes on.
    Choice choose(SolutionType found)
    {
        const bool wanted = type == found || (type == SolutionType::unspecified && found == SolutionType::normal);
        if (!wanted && type != SolutionType::unspecified) {
            sawOtherType = true;
            return Choice::none;
        }
        if (!wanted && haveSecondChoice)
            return Choice::none;
        haveSecondChoice = true;
        return wanted ? Choice::last : Choice::second;
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
        at.deviation = deviation(at.point, n, other);
        UnknownArray gradient;
        for (int j = 0; j < n + 3; ++j) {
            gradient[j] = equations.slopes.at(n + 2, j);
            equations.slopes.at(n + 2, j) = j == parameter ? 1.0 : 0.0;
        }
        if (!elimination.factor(equations.slopes))
            return false;
        at.tangent = {};
        at.tangent[n + 2] = 1.0;
        elimination.solve(at.tangent);
        at.deviationRate = 0.0;
        for (int j = 0; j < n + 3; ++j)
            at.deviationRate += gradient[j] * at.tangent[j];
        return std::isfinite(at.deviationRate);
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
        const double lnK = at.point.largestLnK(n);
        const double longestOfLnK = std::min(std::max(1.0, 0.1 * lnK), 0.5 * lnK);
        if (n > 1)
            for (int i = 0; i < n; ++i)
                step = std::min(step, longestOfLnK / std::max(1e-10, std::fabs(at.tangent[i])));
        return step;
    }

    bool solveAt(double value, LinePoint &next)
    {
        return solvePoint(feed, next.point, Closing::of(fraction), Closing::ofUnknown(parameter, value)) &&
               areVaporAndLiquid(feed, next.point) && differentiate(next);
    }

    void note(const TwoPhasePoint &point)
    {
        if (traceCount < mostPlaces)
            trace[traceCount++] = {point.unknowns[n + 1], point.unknowns[n + 2]};
    }

    // Follows the line to its end. True when a solution ends the search.
    bool walk(const LinePoint &start, double direction)
    {
        LinePoint last = start;
        LinePoint next;
        parameter = TwoPhasePoint::pressureAt(n);
        if (!last.point.evaluate(feed) || !differentiate(last))
            return false;
        last.bend = {};
        double sign = direction; // of the steps in the parameter
        double size = 0.5;       // of the longest step
        for (int step = 0; step < mostSteps; ++step) {
            note(last.point);
            const int chosen = fastest(last.tangent);
            if (chosen != parameter) {
                sign = std::copysign(sign, sign * last.tangent[chosen]);
                parameter = chosen;
                last.bend = {};
                if (!differentiate(last))
                    return false;
            }
            if (!advance(last, sign, size, next))
                return false; // the line ends: at a critical point, mostly
            if (search(last, next))
                return true;
            if (!isWithinLimits(next.point.totals) || leadsAway(last, next))
                return false;
            last = next;
        }
        return false;
    }

    // Whether a line that leads away from the temperature or pressure of the solution will not come back: where the
    // vapor is an ideal gas and the volume of the liquid nothing to it, both fall together all the way (Clausius,
    // Clapeyron).
    bool leadsAway(const LinePoint &last, const LinePoint &next) const
    {
        if (!isCondition(other.variable) || !(std::fabs(next.deviation) > std::fabs(last.deviation)))
            return false;
        const auto falls = [&](int unknown) { return next.point.unknowns[unknown] < last.point.unknowns[unknown]; };
        return falls(TwoPhasePoint::temperatureAt(n)) && falls(TwoPhasePoint::pressureAt(n)) &&
               std::fabs(next.point.vapor.state.Z - 1.0) < 0.01 && next.point.liquid.state.Z < 0.01;
    }

    bool advance(const LinePoint &last, double sign, double &size, LinePoint &next)
    {
        constexpr double critical = 1e-5; // ln K so near to a critical point that there are no digits to go there with
        constexpr double shortest = 1e-5;
        const double longest = longestStep(last);
        const double before = last.point.largestLnK(n);
        for (int halving = 0; halving < 12 && size > shortest; ++halving, size *= 0.5) {
            const double length = sign * size * longest;
            next.point.countsLiquid = last.point.countsLiquid;
            for (int j = 0; j < n + 3; ++j)
                next.point.unknowns[j] = last.point.unknowns[j] + length * (last.tangent[j] + length * last.bend[j]);
            const double predicted = next.point.largestLnK(n);
            if (n > 1 && before < critical && predicted < before)
                return false;
            const double target = next.point.unknowns[parameter];
            if (!solveAt(target, next))
                continue;
            const double lnK = next.point.largestLnK(n);
            if (n > 1 && (lnK < 0.5 * std::min(predicted, before) || lnK > 2.0 * std::max(predicted, before)))
                continue;
            size = std::min(1.0, 1.5 * size);
            for (int j = 0; j < n + 3; ++j)
                next.bend[j] = 0.5 * (next.tangent[j] - last.tangent[j]) / (target - last.point.unknowns[parameter]);
            return true;
        }
        return false;
    }

    // Looks for solutions between two neighbors.
    bool search(const LinePoint &first, const LinePoint &second)
    {
        if (first.deviation == 0.0 || first.deviation * second.deviation < 0.0)
            return refine(first, second);
        const double length = second.point.unknowns[parameter] - first.point.unknowns[parameter];
        const bool approaches = first.deviation * first.deviationRate * length < 0.0;
        const bool leaves = second.deviation * second.deviationRate * length > 0.0;
        if (!approaches || !leaves)
            return false;
        // There is an extremum between.
        LinePoint low = first;
        LinePoint high = second;
        LinePoint middle;
        for (int halving = 0; halving < 12; ++halving) {
            if (!between(low, high, 0.5, middle))
                return false;
            if (middle.deviation * low.deviation < 0.0)
                return refine(low, middle) || refine(middle, high);
            (middle.deviationRate * low.deviationRate > 0.0 ? low : high) = middle;
        }
        return false;
    }

    bool between(const LinePoint &low, const LinePoint &high, double part, LinePoint &middle)
    {
        middle.point.countsLiquid = low.point.countsLiquid;
        for (int j = 0; j < n + 3; ++j)
            middle.point.unknowns[j] = (1.0 - part) * low.point.unknowns[j] + part * high.point.unknowns[j];
        const double target = middle.point.unknowns[parameter];
        return solveAt(target, middle);
    }

    bool refine(const LinePoint &first, const LinePoint &second)
    {
        LinePoint low = first;
        LinePoint high = second;
        LinePoint middle;
        for (int halving = 0; halving < 40; ++halving) {
            const double part = low.deviation / (low.deviation - high.deviation);
            TwoPhasePoint point;
            point.countsLiquid = low.point.countsLiquid;
            for (int j = 0; j < n + 3; ++j)
                point.unknowns[j] = (1.0 - part) * low.point.unknowns[j] + part * high.point.unknowns[j];
            if (solvePoint(feed, point, Closing::of(fraction), Closing::of(other)) && isBetween(low, high, point))
                return offer(point);
            if (!between(low, high, 0.5, middle))
                return false;
            (middle.deviation * low.deviation > 0.0 ? low : high) = middle;
        }
        return false;
    }

    bool isBetween(const LinePoint &low, const LinePoint &high, const TwoPhasePoint &point) const
    {
        const double from = low.point.unknowns[parameter];
        const double to = high.point.unknowns[parameter];
        const double slack = 0.01 * std::fabs(to - from) + 1e-12;
        return point.unknowns[parameter] > std::min(from, to) - slack &&
               point.unknowns[parameter] < std::max(from, to) + slack;
    }
};

} // namespace

LineStatus findOnQualityLine(const Feed &feed, const FlashSpecification &fraction, const FlashSpecification &other,
                             SolutionType type, FlashResult &result)
{
    return Line(feed, fraction, other, type, result).find();
}

} // namespace reference
