#include "reference/engine/equilibrium/equilibrium.h"

#include "reference/engine/eos/gas_constant.h"
#include "reference/engine/equilibrium/flash_tp.h"
#include "reference/engine/equilibrium/phase_transfer.h"
#include "reference/engine/numerics/symmetric_solve.h"
#include "reference/engine/phase/phase_evaluation.h"

#include <cmath>

namespace reference {

namespace {

// What the moles that pass from one phase to the other add to the slopes. With g the difference of the
// logarithms of the fugacities, v the moles of vapor and M = dg/dv, the mixture in equilibrium has
// dv = -M^-1 dg; and the partial molar enthalpies and volumes differ by -R T^2 dg/dT and R T dg/dP.
void addTransfer(const Feed &feed, const Isotherm &isotherm, const PhaseProperties &vapor,
                 const PhaseProperties &liquid, const FlashResult &phases, Totals &totals)
{
    const int n = feed.size();
    const double T = isotherm.temperature;
    PhaseTransfer transfer(feed.model, isotherm, {phases.vaporFraction, phases.liquidFraction}, feed.z, vapor.state,
                           phases.vapor, liquid.state, phases.liquid);
    CompoundArray byT{};
    CompoundArray byP{};
    for (int i = 0; i < n; ++i) {
        byT[i] = transfer.scale[i] * (vapor.slopes.lnPhiByT[i] - liquid.slopes.lnPhiByT[i]);
        byP[i] = transfer.scale[i] * (vapor.slopes.lnPhiByP[i] - liquid.slopes.lnPhiByP[i]);
    }
    factorDescent(n, transfer.matrix);
    CompoundArray movedByT = byT;
    CompoundArray movedByP = byP;
    solveFactored(n, transfer.matrix, movedByT);
    solveFactored(n, transfer.matrix, movedByP);
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
    if (feed.phases != FlashPhases::vaporAndLiquid) {
        phases.temperature = temperature;
        phases.pressure = pressure;
        phases.setOnePhase(feed.phases == FlashPhases::vaporOnly, feed.fractions());
    } else if (flashTP(feed.model, temperature, pressure, feed.fractions(), phases) != FlashStatus::solved) {
        return false;
    }

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
