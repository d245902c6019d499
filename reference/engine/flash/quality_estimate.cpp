#include "reference/engine/flash/quality_estimate.h"

#include "reference/engine/equilibrium/flash_problem.h"

#include <cmath>

namespace reference {

namespace {

// Sum over z_i (K_i - 1) / (liquid + vapor K_i) or, for a fraction of 0 or 1, a logarithm with the same sign, which is
// fit for large ratios.
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
                        // Of ln K with 1 / T, after Wilson.
                        point.unknowns[i] =
                            lnK[i] + (oldLnP - lnP) + wilsonFall(compound) * (1.0 / oldT - 1.0 / std::exp(lnT));
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
        const double rising = fixedTemperature ? -1.0 : 1.0; // more vapor when warmer or less compressed
        set(low);
        if (rising * balance(feed, point.unknowns, amount) > 0.0)
            return false;
        set(high);
        if (rising * balance(feed, point.unknowns, amount) < 0.0)
            return false;
        constexpr double near = 1e-4; // it is an estimate
        while (high - low > near) {
            const double middle = 0.5 * (low + high);
            set(middle);
            (rising * balance(feed, point.unknowns, amount) > 0.0 ? high : low) = middle;
        }
        return true;
    }
};

} // namespace

bool estimatePoint(const Feed &feed, double vapor, const FlashSpecification &at, TwoPhasePoint &point)
{
    return Estimate(feed, vapor, at, point).make();
}

bool estimateConditions(const Feed &feed, double vapor, const FlashSpecification &at, FlashConditions &conditions)
{
    TwoPhasePoint point;
    if (!estimatePoint(feed, vapor, at, point))
        return false;
    const int n = feed.size();
    conditions = {std::exp(point.unknowns[TwoPhasePoint::temperatureAt(n)]),
                  std::exp(point.unknowns[TwoPhasePoint::pressureAt(n)])};
    return true;
}

} // namespace reference
