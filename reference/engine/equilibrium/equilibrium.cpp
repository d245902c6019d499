#include "reference/engine/equilibrium/equilibrium.h"

#include "reference/engine/eos/gas_constant.h"
#include "reference/engine/equilibrium/flash_tp.h"
#include "reference/engine/numerics/symmetric_solve.h"
#include "reference/engine/phase/phase_evaluation.h"

#include <algorithm>
#include <cmath>

namespace reference {

namespace {

void giveWholeFeed(const Feed &feed, double temperature, double pressure, FlashResult &result)
{
    result.temperature = temperature;
    result.pressure = pressure;
    result.vaporPresent = feed.phases == FlashPhases::vaporOnly;
    result.liquidPresent = !result.vaporPresent;
    result.vaporFraction = result.vaporPresent ? 1.0 : 0.0;
    result.liquidFraction = result.liquidPresent ? 1.0 : 0.0;
    std::copy_n(feed.z, feed.size(), (result.vaporPresent ? result.vapor : result.liquid).begin());
}

// What the moles that pass from one phase to the other add to the slopes. With g the difference of the
// logarithms of the fugacities, v the moles of vapour and M = dg/dv, the mixture in equilibrium has
// dv = -M^-1 dg; and the partial molar enthalpies and volumes differ by -R T^2 dg/dT and R T dg/dP.
void addTransfer(const Feed &feed, const Isotherm &isotherm, const PhaseProperties &vapor,
                 const PhaseProperties &liquid, const FlashResult &phases, Totals &totals)
{
    const int n = feed.size();
    const double T = isotherm.temperature;
    PairArray matrix;
    PairArray liquidMatrix;
    lnPhiByMoles(feed.model, isotherm, vapor.state, matrix);
    lnPhiByMoles(feed.model, isotherm, liquid.state, liquidMatrix);
    CompoundArray scale;
    CompoundArray byT{};
    CompoundArray byP{};
    for (int i = 0; i < n; ++i) {
        scale[i] = std::sqrt(phases.liquid[i]) * std::sqrt(phases.vapor[i] / feed.z[i]);
        byT[i] = scale[i] * (vapor.slopes.lnPhiByT[i] - liquid.slopes.lnPhiByT[i]);
        byP[i] = scale[i] * (vapor.slopes.lnPhiByP[i] - liquid.slopes.lnPhiByP[i]);
    }
    for (int j = 0; j < n; ++j) {
        double *column = columnOf(matrix, n, j);
        const double *liquidColumn = columnOf(liquidMatrix, n, j);
        for (int i = j; i < n; ++i)
            column[i] = scale[i] * scale[j] *
                        (phases.liquidFraction * column[i] + phases.vaporFraction * liquidColumn[i] - 1.0);
        column[j] += 1.0;
    }
    factorDescent(n, matrix);
    CompoundArray movedByT = byT;
    CompoundArray movedByP = byP;
    solveFactored(n, matrix, movedByT);
    solveFactored(n, matrix, movedByP);
    double TT = 0.0;
    double TP = 0.0;
    double PP = 0.0;
    for (int i = 0; i < n; ++i) {
        TT += byT[i] * movedByT[i];
        TP += byT[i] * movedByP[i];
        PP += byP[i] * movedByP[i];
    }
    const double factor = phases.vaporFraction * phases.liquidFraction * gasConstant * T;
    totals.heatCapacity += factor * T * TT;
    totals.volumeByT -= factor * TP;
    totals.volumeByP -= factor * PP;
}

} // namespace

bool Equilibrium::find(const Feed &feed, double temperature, double pressure)
{
    if (feed.phases != FlashPhases::vaporAndLiquid)
        giveWholeFeed(feed, temperature, pressure, phases);
    else if (flashTP(feed.model, temperature, pressure, feed.fractions(), phases) != FlashStatus::solved)
        return false;

    const Isotherm isotherm(feed.model, temperature);
    PhaseProperties vapor;
    PhaseProperties liquid;
    totals = Totals{};
    totals.temperature = temperature;
    totals.pressure = pressure;
    if (phases.vaporPresent) {
        evaluateProperties(feed.model, isotherm, pressure, phases.vapor.data(), Root::vapor, vapor);
        addDerivatives(feed.model, isotherm, vapor);
        totals.add(phases.vaporFraction, Totals::of(vapor));
    }
    if (phases.liquidPresent) {
        evaluateProperties(feed.model, isotherm, pressure, phases.liquid.data(), Root::liquid, liquid);
        addDerivatives(feed.model, isotherm, liquid);
        totals.add(phases.liquidFraction, Totals::of(liquid));
    }
    if (twoPhases())
        addTransfer(feed, isotherm, vapor, liquid, phases, totals);
    gibbs = totals.value(FlashVariable::gibbsEnergy) / (gasConstant * temperature);
    return true;
}

} // namespace reference
