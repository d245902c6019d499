#include "reference/engine/flash/vapor_liquid_point.h"

#include "reference/engine/equilibrium/flash_tp.h"
#include "reference/engine/phase/phase_evaluation.h"

#include <algorithm>
#include <cmath>

namespace reference {

bool areVaporAndLiquid(const Feed &feed, const TwoPhasePoint &point)
{
    if (!feed.model.isCubic())
        return true; // an ideal gas and a liquid never become one
    const PhaseState &vapor = point.vapor.state;
    const PhaseState &liquid = point.liquid.state;
    const double ratio = vapor.Z / liquid.Z;
    const double one = feed.size() == 1 ? 1e-4 : 1e-5; // difference of phases that can't be told from one
    if (std::fabs(ratio - 1.0) < one && (feed.size() == 1 || point.largestLnK(feed.size()) < one))
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

bool isWithinLimits(const Totals &totals)
{
    constexpr double slack = 1e-9;
    return totals.temperature > lowestFlashTemperature * (1.0 - slack) &&
           totals.temperature < highestFlashTemperature * (1.0 + slack) &&
           totals.pressure > lowestFlashPressure * (1.0 - slack) &&
           totals.pressure < highestFlashPressure * (1.0 + slack);
}

namespace {

// Whether one mole of a phase has less Gibbs energy than the same compounds have in the two phases. However little of
// it there would be: what a trace of a heavy compound gains by a phase of its own hardly shows in the whole.
bool wouldFormFrom(const Feed &feed, const Isotherm &isotherm, const TwoPhasePoint &point, const CompoundArray &x,
                   Root root)
{
    constexpr double metastable = 1e-8; // a Gibbs energy over R T too high by this is no round-off
    PhaseState state;
    evaluatePhase(feed.model, isotherm, point.totals.pressure, x.data(), root, state);
    double gain = 0.0;
    double gibbs = 0.0;
    for (int i = 0; i < feed.size(); ++i) {
        const double potential = std::log(point.x[i]) + point.liquid.state.lnPhi[i];
        gibbs += x[i] * potential;
        if (x[i] > 0.0)
            gain += x[i] * (potential - std::log(x[i]) - state.lnPhi[i]);
    }
    return gain > metastable * (1.0 + 1e-3 * std::fabs(gibbs));
}

} // namespace

bool isStable(const Feed &feed, const TwoPhasePoint &point)
{
    FlashResult pair;
    FlashResult named;
    giveResult(feed, point, pair);
    if (nameStablePair(feed.model, pair, feed.fractions(), feed.phases, named))
        return named.vaporPresent && named.vaporFraction == pair.vaporFraction;
    // That is strict, and a flash takes longer.
    FlashResult found;
    if (flashAt(feed, {FlashVariable::temperature, point.totals.temperature}, point.totals.pressure, found) !=
        FlashStatus::solved)
        return false; // more phases than are allowed, or none that are known
    if (found.phaseCount() > 1 && !found.vaporPresent)
        return false; // two liquids
    const Isotherm isotherm(feed.model, point.totals.temperature);
    const auto wouldForm = [&](bool present, const CompoundArray &x, Root root) {
        return present && wouldFormFrom(feed, isotherm, point, x, root);
    };
    return !wouldForm(found.vaporPresent, found.vapor, Root::vapor) &&
           !wouldForm(found.liquidPresent, found.liquid, Root::liquid) &&
           !wouldForm(found.liquid2Present, found.liquid2, Root::liquid);
}

void giveResult(const Feed &feed, const TwoPhasePoint &point, FlashResult &result)
{
    const int n = feed.size();
    result.temperature = point.totals.temperature;
    result.pressure = point.totals.pressure;
    result.clear();
    result.vaporPresent = true;
    result.liquidPresent = true;
    result.vaporFraction = point.vaporAmount(n);
    result.liquidFraction = point.liquidAmount(n);
    std::copy_n(point.y.begin(), n, result.vapor.begin());
    std::copy_n(point.x.begin(), n, result.liquid.begin());
}

} // namespace reference
