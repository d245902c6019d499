#include "reference/engine/flash/fraction_trace.h"

#include "reference/engine/flash/fraction_place.h"
#include "reference/engine/flash/quality_estimate.h"
#include "reference/engine/flash/quality_newton.h"
#include "reference/engine/flash/quality_search.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace reference {

namespace {

// Lengths are those in a plane of ln P and this multiple of ln T, where such lines run at about 45 degrees.
constexpr double stretch = 10.0;
constexpr double longestStep = 1.0;
constexpr double firstStep = 0.3;
constexpr double shortestStep = 2e-3;
constexpr int mostSteps = 120;
constexpr double onTheLine = 1e-5; // of a vapor fraction

struct Vector {
    double alongT;
    double alongP;

    double length() const { return std::hypot(alongT, alongP); }
    double with(const Vector &other) const { return alongT * other.alongT + alongP * other.alongP; }
};

class Trace {
public:
    Trace(const Feed &whole, const FlashSpecification &vaporFraction, const FlashSpecification &value,
          FlashResult &answer)
        : feed(whole), fraction(vaporFraction), other(value), result(answer)
    {
    }

    bool find()
    {
        for (const double pressure : {1e5, 1e6, 1e7, 1e4, 1e3, 3e7})
            if (findFrom({FlashVariable::pressure, pressure}))
                return true;
        for (const double temperature : {400.0, 250.0, 150.0, 110.0, 80.0})
            if (temperature > coldestWithPhases(feed) && findFrom({FlashVariable::temperature, temperature}))
                return true;
        // That of dense phases can run at nearly one temperature between a gap and a jump, from 2 to 9 bar.
        for (const double pressure : {5e5, 1e6, 1e7})
            if (findFromAll({FlashVariable::pressure, pressure}))
                return true;
        return false;
    }

private:
    const Feed &feed;
    const FlashSpecification &fraction;
    const FlashSpecification &other;
    FlashResult &result;
    struct Point {
        double lnT, lnP;
    };
    static constexpr int mostPoints = 4 * mostSteps;
    std::array<Point, mostPoints> traced;
    int tracedCount = 0;

    bool evaluate(FractionPlace &place) const { return place.evaluate(feed, fraction, other); }

    bool findFrom(const FlashSpecification &at)
    {
        FractionPlace start;
        return startAt(at, start) && findAlong(start);
    }

    // There can be a line of dense phases below the one of boiling.
    bool findFromAll(const FlashSpecification &pressure)
    {
        QualitySearch quality(feed, fraction);
        FractionPlace start;
        for (int interval = 0; scanDownward(quality, pressure, &interval);)
            if (startWith(quality.found(), start) && findAlong(start))
                return true;
        return false;
    }

    bool scanDownward(QualitySearch &quality, const FlashSpecification &pressure, int *from = nullptr) const
    {
        return quality.scan(pressure, highestFlashTemperature, coldestWithPhases(feed), 48, from);
    }

    bool findAlong(const FractionPlace &start)
    {
        return !isTraced(start) && (follow(start, 1.0) || follow(start, -1.0));
    }

    bool startWith(const FlashResult &state, FractionPlace &start) const
    {
        start.lnT = std::log(state.temperature);
        start.lnP = std::log(state.pressure);
        return evaluate(start) && settle(start);
    }

    bool startAt(const FlashSpecification &at, FractionPlace &start) const
    {
        FlashResult state;
        SolutionType type = SolutionType::normal;
        FlashConditions guess;
        if (estimateConditions(feed, fraction.value, at, guess) &&
            findFractionNear(feed, fraction, at, guess, state, type))
            return startWith(state, start);
        QualitySearch quality(feed, fraction);
        const bool found = at.variable == FlashVariable::pressure
                               ? scanDownward(quality, at)
                               : quality.scan(at, highestFlashPressure, lowestSearchPressure, 20);
        return found && startWith(quality.found(), start);
    }

    bool isTraced(const FractionPlace &place) const
    {
        return std::any_of(traced.begin(), traced.begin() + tracedCount, [&](const Point &point) {
            return Vector{stretch * (point.lnT - place.lnT), point.lnP - place.lnP}.length() < 0.5 * longestStep;
        });
    }

    void note(const FractionPlace &place)
    {
        if (tracedCount < mostPoints)
            traced[tracedCount++] = {place.lnT, place.lnP};
    }

    static Vector gradient(const FractionPlace &place, int of) { return {place.byT[of] / stretch, place.byP[of]}; }

    // Along the line, with more of the pressure first.
    static Vector tangent(const FractionPlace &place)
    {
        const Vector steepest = gradient(place, 0);
        const double length = std::copysign(steepest.length(), -steepest.alongT);
        return {steepest.alongP / length, -steepest.alongT / length};
    }

    static void move(const FractionPlace &from, const Vector &by, FractionPlace &to)
    {
        to.lnT = from.lnT + by.alongT / stretch;
        to.lnP = from.lnP + by.alongP;
    }

    // Moves an evaluated place straight to the line, by Newton's method.
    bool settle(FractionPlace &place) const
    {
        for (int step = 0; step < 8; ++step) {
            if (std::fabs(place.residual[0]) < onTheLine)
                return true;
            const Vector steepest = gradient(place, 0);
            double length = -place.residual[0] / steepest.with(steepest);
            if (!std::isfinite(length))
                return false;
            length *= std::min(1.0, 0.5 * longestStep / std::fabs(length * steepest.length()));
            FractionPlace next;
            bool good = false;
            for (int halving = 0; halving < 3 && !good; ++halving, length *= 0.5) {
                move(place, {length * steepest.alongT, length * steepest.alongP}, next);
                good = evaluate(next) && std::fabs(next.residual[0]) < std::fabs(place.residual[0]);
            }
            if (!good)
                return false;
            place = next;
        }
        return false;
    }

    // The place beside another one by a step, if the line goes on there.
    bool beside(const FractionPlace &from, const Vector &step, FractionPlace &next) const
    {
        move(from, step, next);
        if (!evaluate(next) || !settle(next))
            return false;
        const Vector went{stretch * (next.lnT - from.lnT), next.lnP - from.lnP};
        return went.with(step) > 0.2 * step.with(step) && went.length() < 2.0 * step.length();
    }

    bool follow(const FractionPlace &start, double direction)
    {
        FractionPlace last = start;
        FractionPlace next;
        Vector heading = tangent(last);
        heading = {direction * heading.alongT, direction * heading.alongP};
        double size = firstStep;
        note(last);
        for (int step = 0; step < mostSteps && size > shortestStep; ++step) {
            if (!std::isfinite(heading.length()))
                return false;
            if (!beside(last, {size * heading.alongT, size * heading.alongP}, next)) {
                size *= 0.4;
                continue;
            }
            Vector onward = tangent(next);
            if (onward.with(heading) < 0.0)
                onward = {-onward.alongT, -onward.alongP};
            if (search(last, heading, next, onward))
                return true;
            note(next);
            size = std::min(longestStep, 1.5 * size);
            last = next;
            heading = onward;
        }
        return false;
    }

    // Looks for a solution between two neighbors.
    bool search(const FractionPlace &first, const Vector &heading, const FractionPlace &second, const Vector &onward)
    {
        if ((first.residual[1] < 0.0) != (second.residual[1] < 0.0))
            return close(first, second);
        const bool approaches = first.residual[1] * gradient(first, 1).with(heading) < 0.0;
        const bool leaves = second.residual[1] * gradient(second, 1).with(onward) > 0.0;
        if (!approaches || !leaves)
            return false;
        // There is an extremum between.
        FractionPlace low = first;
        FractionPlace high = second;
        FractionPlace middle;
        for (int halving = 0; halving < 10; ++halving) {
            if (!between(low, high, 0.5, middle))
                return false;
            if ((middle.residual[1] < 0.0) != (low.residual[1] < 0.0))
                return close(low, middle) || close(middle, high);
            (middle.residual[1] * gradient(middle, 1).with(heading) < 0.0 ? low : high) = middle;
        }
        return false;
    }

    bool between(const FractionPlace &low, const FractionPlace &high, double part, FractionPlace &middle) const
    {
        middle.lnT = (1.0 - part) * low.lnT + part * high.lnT;
        middle.lnP = (1.0 - part) * low.lnP + part * high.lnP;
        return evaluate(middle) && settle(middle);
    }

    // Between places on two sides of the value.
    bool close(const FractionPlace &first, const FractionPlace &second)
    {
        FractionPlace low = first;
        FractionPlace high = second;
        FractionPlace middle;
        for (int step = 0; step < 12; ++step) {
            const double part = low.residual[1] / (low.residual[1] - high.residual[1]);
            const FlashConditions start{std::exp((1.0 - part) * low.lnT + part * high.lnT),
                                        std::exp((1.0 - part) * low.lnP + part * high.lnP)};
            SolutionType type = SolutionType::normal;
            if (findFractionNear(feed, fraction, other, start, result, type))
                return true;
            if (!between(low, high, 0.5, middle))
                return false;
            ((middle.residual[1] < 0.0) == (low.residual[1] < 0.0) ? low : high) = middle;
        }
        return false;
    }
};

} // namespace

bool findOnFractionTrace(const Feed &feed, const FlashSpecification &fraction, const FlashSpecification &other,
                         FlashResult &result)
{
    return Trace(feed, fraction, other, result).find();
}

} // namespace reference
