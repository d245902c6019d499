// Search for a zero of a function of one variable that may have kinks, jumps, gaps and several zeros.
#pragma once

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace reference {

struct Probe {
    double at = 0.0;
    bool known = false; // the function has a value here
    bool met = false;   // and it is as good as zero
    double residual = 0.0;
    double slope = std::numeric_limits<double>::quiet_NaN(); // where there is one

    bool differsInSign(const Probe &other) const { return (residual < 0.0) != (other.residual < 0.0); }
};

enum class SearchStatus {
    found,      // the last probe has met the zero
    notReached, // the function keeps its sign
    jumps,      // it passes zero in a jump, or without values
};

// `Function` has
//   Probe probe(double at);                          the function and, as its state, whatever belongs to it
//   bool cross(const Probe &a, const Probe &b);      another way to a zero between two probes of different
//                                                    sign, which are near each other or on two sides of a
//                                                    jump; true when it was found
template <class Function> class RootSearch {
public:
    RootSearch(Function &zeroOf, double lowest, double highest) : function(zeroOf), low(lowest), high(highest) {}

    // Newton's method from a start, in steps of limited length, until two probes lie on two sides of a zero.
    SearchStatus from(double start, double longestStep)
    {
        constexpr int mostSteps = 40;
        Probe last = function.probe(start);
        if (!last.known)
            return SearchStatus::notReached;
        if (last.met)
            return SearchStatus::found;
        for (int step = 0; step < mostSteps; ++step) {
            const double change = -last.residual / last.slope;
            if (!std::isfinite(change))
                return SearchStatus::notReached;
            double length = std::clamp(change, -longestStep, longestStep);
            Probe next;
            for (int halving = 0; halving < 4 && !next.known; ++halving, length *= 0.5) {
                const double target = std::clamp(last.at + length, low, high);
                if (target == last.at) {
                    stoppedAt = std::fabs(last.residual);
                    return SearchStatus::notReached;
                }
                next = function.probe(target);
            }
            if (!next.known)
                return SearchStatus::notReached;
            if (next.met)
                return SearchStatus::found;
            if (next.differsInSign(last))
                return between(last, next);
            last = next;
        }
        return SearchStatus::notReached;
    }

    // Whether the last scan leaves no hope for a finer one: no values at all, or all so far from zero that they would
    // have to change much faster than they do.
    bool isHopeless() const { return closest > 3.0 * widestStep; }

    // Whether the last scan met a value at all.
    bool sawValue() const { return std::isfinite(closest); }

    // Whether the last search from a start went to an end of the range, and ended there far from zero.
    bool endedFarOff() const { return stoppedAt > 0.05; }

    // Looks everywhere, from the low end on.
    SearchStatus scan(int intervals)
    {
        bool jumped = false;
        closest = std::numeric_limits<double>::infinity();
        widestStep = 0.0;
        Probe earlier;
        Probe last;
        for (int i = 0; i <= intervals; ++i) {
            Probe next = function.probe(low + (high - low) * i / intervals);
            if (next.known)
                closest = std::min(closest, std::fabs(next.residual));
            if (next.known && last.known)
                widestStep = std::max(widestStep, std::fabs(next.residual - last.residual));
            if (next.met)
                return SearchStatus::found;
            if (i > 0 && (last.known || next.known)) {
                Probe left = last;
                Probe right = next;
                if (!left.known)
                    left = edge(next, last.at);
                else if (!right.known)
                    right = edge(last, next.at);
                if (left.met || right.met)
                    return SearchStatus::found;
                const SearchStatus status = inInterval(left, right);
                if (status == SearchStatus::found)
                    return status;
                jumped |= status == SearchStatus::jumps;
            }
            if (isLocalMinimum(earlier, last, next)) {
                const SearchStatus status = inLocalMinimum(earlier, last, next);
                if (status == SearchStatus::found)
                    return status;
                jumped |= status == SearchStatus::jumps;
            }
            earlier = last;
            last = next;
        }
        return jumped ? SearchStatus::jumps : SearchStatus::notReached;
    }

private:
    Function &function;
    const double low;
    const double high;
    double stoppedAt = 0.0;                                   // residual at the end of the range
    double closest = std::numeric_limits<double>::infinity(); // residual of the last scan
    double widestStep = 0.0;                                  // between neighbors of it

    // The last place with a value between one that has one and one that has not.
    Probe edge(Probe known, double unknown)
    {
        for (int halving = 0; halving < 7; ++halving) {
            const Probe middle = function.probe(0.5 * (known.at + unknown));
            if (!middle.known) {
                unknown = middle.at;
                continue;
            }
            const bool crossed = middle.differsInSign(known);
            known = middle;
            if (middle.met || crossed)
                break;
        }
        return known;
    }

    SearchStatus inInterval(Probe left, Probe right)
    {
        if (left.at > right.at)
            std::swap(left, right);
        if (left.differsInSign(right))
            return between(left, right);
        const bool approaches = left.residual * left.slope < 0.0;
        const bool leaves = right.residual * right.slope > 0.0;
        if (!approaches || !leaves)
            return SearchStatus::notReached;
        // There is an extremum between.
        for (int halving = 0; halving < 30; ++halving) {
            const Probe middle = function.probe(0.5 * (left.at + right.at));
            if (middle.met)
                return SearchStatus::found;
            if (!middle.known)
                return SearchStatus::notReached;
            if (middle.differsInSign(left)) {
                const SearchStatus status = between(left, middle);
                return status == SearchStatus::found ? status : between(middle, right);
            }
            (middle.residual * middle.slope < 0.0 ? left : right) = middle;
        }
        return SearchStatus::notReached;
    }

    // Whether the middle one of three neighbors is the nearest to zero, and there are not the slopes to tell on which
    // side the extremum is.
    static bool isLocalMinimum(const Probe &left, const Probe &middle, const Probe &right)
    {
        if (std::isfinite(left.slope) && std::isfinite(middle.slope) && std::isfinite(right.slope))
            return false;
        return left.known && middle.known && right.known && !left.differsInSign(middle) &&
               !right.differsInSign(middle) && std::fabs(middle.residual) < std::fabs(left.residual) &&
               std::fabs(middle.residual) < std::fabs(right.residual);
    }

    SearchStatus inLocalMinimum(Probe left, Probe middle, Probe right)
    {
        constexpr double golden = 0.381966; // the lesser part of a golden section
        for (int step = 0; step < 40; ++step) {
            const bool toTheRight = right.at - middle.at > middle.at - left.at;
            const Probe &side = toTheRight ? right : left;
            const Probe next = function.probe(middle.at + golden * (side.at - middle.at));
            if (next.met)
                return SearchStatus::found;
            if (!next.known)
                return SearchStatus::notReached;
            if (next.differsInSign(middle)) {
                const SearchStatus status = between(middle, next);
                return status == SearchStatus::found ? status : between(next, side);
            }
            const bool nearer = std::fabs(next.residual) < std::fabs(middle.residual);
            (toTheRight == nearer ? left : right) = nearer ? middle : next;
            if (nearer)
                middle = next;
        }
        return SearchStatus::notReached;
    }

    // Between two probes of different sign.
    SearchStatus between(Probe a, Probe b)
    {
        constexpr int mostSteps = 150;
        double width = std::fabs(b.at - a.at);
        double weightOfA = 1.0; // of the residuals in the method of Illinois, which needs no slopes
        double weightOfB = 1.0;
        for (int step = 0; step < mostSteps; ++step) {
            if (step % 6 == 5 && function.cross(a, b))
                return SearchStatus::found;
            const Probe &better = std::fabs(a.residual) < std::fabs(b.residual) ? a : b;
            const double middle = 0.5 * (a.at + b.at);
            double target = better.at - better.residual / better.slope;
            if (!std::isfinite(better.slope)) {
                const double ofA = weightOfA * a.residual;
                target = a.at + (b.at - a.at) * ofA / (ofA - weightOfB * b.residual);
            }
            const bool inside = target > std::min(a.at, b.at) && target < std::max(a.at, b.at);
            if (step % 3 == 2) {
                const double now = std::fabs(b.at - a.at);
                if (now > 0.3 * width)
                    target = middle; // the steps are too timid, or too bold
                width = now;
            }
            if (!inside)
                target = middle;
            Probe next = function.probe(target);
            for (int other = 1; other < 6 && !next.known; ++other)
                next = function.probe(a.at + (b.at - a.at) * (0.5 + (other % 2 ? -1.0 : 1.0) * 0.07 * other));
            if (next.met)
                return SearchStatus::found;
            if (!next.known)
                break;
            const bool replacesB = next.differsInSign(a);
            weightOfA = replacesB ? 0.5 * weightOfA : 1.0;
            weightOfB = replacesB ? 1.0 : 0.5 * weightOfB;
            (replacesB ? b : a) = next;
            if (std::fabs(b.at - a.at) <= 4e-16 * std::max(std::fabs(a.at), std::fabs(b.at)))
                break;
        }
        return function.cross(a, b) ? SearchStatus::found : SearchStatus::jumps;
    }
};

} // namespace reference
