#include "reference/engine/equilibrium/lever_rule.h"

#include "reference/engine/equilibrium/phase_names.h"
#include "reference/engine/phase/phase_evaluation.h"

#include <cmath>
#include <utility>

namespace reference {

namespace {

constexpr double sameConditions = 1e-9;  // of temperature and pressure
constexpr double sameComposition = 1e-4; // sum of the differences of mole fractions
constexpr double samePotential = 2e-10;  // difference of ln f

struct MixedPhase {
    bool isVapor;
    double amount;
    CompoundArray x;
    PhaseState state; // filled by isInEquilibrium
};

class Mixture {
public:
    explicit Mixture(const Feed &whole) : feed(whole) {}

    bool add(const FlashResult &state, double part)
    {
        return add(state.vaporPresent, true, part * state.vaporFraction, state.vapor) &&
               add(state.liquidPresent, false, part * state.liquidFraction, state.liquid) &&
               add(state.liquid2Present, false, part * state.liquid2Fraction, state.liquid2);
    }

    bool isInEquilibrium(double temperature, double pressure)
    {
        const Isotherm isotherm(feed.model, temperature);
        CompoundArray first;
        for (int k = 0; k < count; ++k) {
            MixedPhase &phase = phases[k];
            evaluatePhase(feed.model, isotherm, pressure, phase.x.data(), phase.isVapor ? Root::vapor : Root::liquid,
                          phase.state);
            for (int i = 0; i < feed.size(); ++i) {
                const double potential = std::log(phase.x[i]) + phase.state.lnPhi[i];
                if (k == 0)
                    first[i] = potential;
                else if (!(std::fabs(potential - first[i]) < samePotential))
                    return false;
            }
            for (int m = 0; m < k; ++m) // one fluid by two names
                if (sumOfDifferences(feed.size(), phase.x, phases[m].x) < sameComposition &&
                    std::fabs(phase.state.Z - phases[m].state.Z) < sameComposition * phase.state.Z)
                    return false;
        }
        return true;
    }

    bool give(FlashResult &result) const
    {
        const MixedPhase *liquid = nullptr;
        const MixedPhase *liquid2 = nullptr;
        result.clear();
        for (int k = 0; k < count; ++k) {
            const MixedPhase &phase = phases[k];
            if (phase.isVapor ? result.vaporPresent : liquid2 != nullptr)
                return false;
            if (phase.isVapor)
                give(phase, result.vaporPresent, result.vaporFraction, result.vapor);
            else
                (liquid ? liquid2 : liquid) = &phase;
        }
        if (liquid2 && !allowsSecondLiquid(feed.phases))
            return false;
        if (liquid2 && isSecondLiquid(feed.model, liquid->x, liquid->state, liquid2->x, liquid2->state))
            std::swap(liquid, liquid2);
        if (liquid)
            give(*liquid, result.liquidPresent, result.liquidFraction, result.liquid);
        if (liquid2)
            give(*liquid2, result.liquid2Present, result.liquid2Fraction, result.liquid2);
        return true;
    }

private:
    const Feed &feed;
    int count = 0;
    std::array<MixedPhase, maximumPhases> phases;

    static void give(const MixedPhase &phase, bool &present, double &amount, CompoundArray &x)
    {
        present = true;
        amount = phase.amount;
        x = phase.x;
    }

    bool add(bool present, bool isVapor, double amount, const CompoundArray &x)
    {
        if (!present || !(amount > 0.0))
            return true;
        for (int k = 0; k < count; ++k) {
            MixedPhase &phase = phases[k];
            if (phase.isVapor != isVapor || sumOfDifferences(feed.size(), x, phase.x) > sameComposition)
                continue;
            const double both = phase.amount + amount;
            for (int i = 0; i < feed.size(); ++i)
                phase.x[i] = (phase.amount * phase.x[i] + amount * x[i]) / both;
            phase.amount = both;
            return true;
        }
        if (count == maximumPhases)
            return false;
        phases[count++] = {isVapor, amount, x, {}};
        return true;
    }
};

} // namespace

bool mixStates(const Feed &feed, const FlashResult &first, const FlashResult &second, double part, FlashResult &mixed)
{
    const auto near = [](double a, double b) { return std::fabs(a - b) <= sameConditions * b; };
    if (!(part >= 0.0 && part <= 1.0) || !near(first.temperature, second.temperature) ||
        !near(first.pressure, second.pressure))
        return false;
    Mixture mixture(feed);
    if (!mixture.add(first, 1.0 - part) || !mixture.add(second, part))
        return false;
    FlashResult result;
    result.temperature = (1.0 - part) * first.temperature + part * second.temperature;
    result.pressure = (1.0 - part) * first.pressure + part * second.pressure;
    if (!mixture.isInEquilibrium(result.temperature, result.pressure) || !mixture.give(result))
        return false;
    mixed = result;
    return true;
}

} // namespace reference
