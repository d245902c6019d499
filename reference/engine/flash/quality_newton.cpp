#include "reference/engine/flash/quality_newton.h"

#include "reference/engine/flash/fraction_place.h"

#include <algorithm>
#include <cmath>

namespace reference {

namespace {

constexpr int mostSteps = 25;
constexpr int mostHalvings = 6;
constexpr double longestInT = 0.05; // of logarithms
constexpr double longestInP = 0.5;

class Newton {
public:
    Newton(const Feed &whole, const FlashSpecification &vaporFraction, const FlashSpecification &value)
        : feed(whole), fraction(vaporFraction), other(value)
    {
    }

    bool find(FractionPlace &now) const
    {
        if (!now.evaluate(feed, fraction, other))
            return false;
        FractionPlace next;
        for (int step = 0; step < mostSteps && now.largest() > aimedResidual; ++step) {
            const double determinant = now.byT[0] * now.byP[1] - now.byP[0] * now.byT[1];
            const double changeT = -(now.residual[0] * now.byP[1] - now.byP[0] * now.residual[1]) / determinant;
            const double changeP = -(now.byT[0] * now.residual[1] - now.residual[0] * now.byT[1]) / determinant;
            if (!std::isfinite(changeT) || !std::isfinite(changeP))
                return false;
            double length = 1.0 / std::max({1.0, std::fabs(changeT) / longestInT, std::fabs(changeP) / longestInP});
            bool falls = false;
            for (int halving = 0; halving < mostHalvings && !falls; ++halving, length *= 0.5) {
                next.lnT = now.lnT + length * changeT;
                next.lnP = now.lnP + length * changeP;
                falls = next.evaluate(feed, fraction, other) && next.largest() < now.largest() * (1.0 - 0.1 * length);
            }
            if (!falls)
                break;
            now = next;
        }
        return now.largest() < acceptedResidual;
    }

private:
    const Feed &feed;
    const FlashSpecification &fraction;
    const FlashSpecification &other;
};

} // namespace

bool findFractionNear(const Feed &feed, const FlashSpecification &fraction, const FlashSpecification &other,
                      const FlashConditions &start, FlashResult &result, SolutionType &type)
{
    if (fraction.value == 0.0 || fraction.value == 1.0)
        return false;
    FractionPlace place;
    place.lnT = std::log(start.temperature);
    place.lnP = std::log(start.pressure);
    if (!Newton(feed, fraction, other).find(place))
        return false;
    result = place.equilibrium.phases;
    const Equilibrium::Growth &growth = place.equilibrium.vaporMoles;
    const bool isNormal = other.variable == FlashVariable::pressure ? growth.byT >= 0.0 : growth.byP <= 0.0;
    type = isNormal ? SolutionType::normal : SolutionType::retrograde;
    return true;
}

} // namespace reference
