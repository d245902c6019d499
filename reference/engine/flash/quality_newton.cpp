#include "reference/engine/flash/quality_newton.h"

#include "reference/engine/flash/quality_search.h"

#include <algorithm>
#include <cmath>

namespace reference {

namespace {

constexpr int mostSteps = 25;
constexpr int mostHalvings = 6;
constexpr double longestInT = 0.05; // of logarithms
constexpr double longestInP = 0.5;

// A place with what both variables miss their values by, and the slopes with the logarithms of both conditions.
struct Place {
    double lnT, lnP;
    Equilibrium equilibrium;
    double residual[2];
    double byT[2], byP[2];
    double largest; // residual
};

class Newton {
public:
    Newton(const Feed &whole, const FlashSpecification &vaporFraction, const FlashSpecification &value)
        : feed(whole), fraction(vaporFraction), other(value)
    {
    }

    bool find(Place &now) const
    {
        if (!evaluate(now))
            return false;
        Place next;
        for (int step = 0; step < mostSteps && now.largest > aimedResidual; ++step) {
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
                falls = evaluate(next) && next.largest < now.largest * (1.0 - 0.1 * length);
            }
            if (!falls)
                break;
            now = next;
        }
        return now.largest < acceptedResidual;
    }

private:
    const Feed &feed;
    const FlashSpecification &fraction;
    const FlashSpecification &other;

    // False where no phases are found, or no vapor beside a liquid.
    bool evaluate(Place &place) const
    {
        const double temperature = std::exp(place.lnT);
        const double pressure = std::exp(place.lnP);
        Equilibrium &state = place.equilibrium;
        if (!flashLimitsOf(FlashVariable::temperature).contain(temperature) ||
            !flashLimitsOf(FlashVariable::pressure).contain(pressure) ||
            state.find(feed, temperature, pressure) != FlashStatus::solved || !state.phases.vaporPresent ||
            state.phases.phaseCount() < 2)
            return false;
        const Equilibrium::Growth &growth =
            fraction.variable == FlashVariable::vaporMassFraction ? state.vaporMass : state.vaporMoles;
        place.residual[0] = vaporPart(feed.model, state.phases, fraction.variable) - fraction.value;
        place.byT[0] = temperature * growth.byT;
        place.byP[0] = pressure * growth.byP;
        place.residual[1] = residualOf(state.totals, other);
        const double unit = unitOf(state.totals, other);
        place.byT[1] = unit * temperature * state.totals.byTemperature(other.variable);
        place.byP[1] = unit * pressure * state.totals.byPressure(other.variable);
        place.largest = std::max(std::fabs(place.residual[0]), std::fabs(place.residual[1]));
        return std::isfinite(place.largest);
    }
};

} // namespace

bool findFractionNear(const Feed &feed, const FlashSpecification &fraction, const FlashSpecification &other,
                      const FlashConditions &start, FlashResult &result, SolutionType &type)
{
    if (fraction.value == 0.0 || fraction.value == 1.0)
        return false;
    Place place;
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
