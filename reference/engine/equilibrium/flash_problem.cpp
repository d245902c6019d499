#include "reference/engine/equilibrium/flash_problem.h"

#include "reference/engine/equilibrium/rachford_rice.h"
#include "reference/engine/phase/phase_evaluation.h"

#include <algorithm>
#include <cmath>

namespace reference {

FlashProblem::FlashProblem(const MixtureModel &mixture, double temperature, double pascal, const double *fractions,
                           bool withVapor)
    : model(mixture), isotherm(mixture, temperature), pressure(pascal), z(fractions), vaporAllowed(withVapor)
{
    evaluatePhase(model, isotherm, pressure, z, bestRoot(), feed);
    gibbs = 0.0;
    for (int i = 0; i < model.size; ++i) {
        const double lnZ = std::log(z[i]);
        gibbs += z[i] * (lnZ + feed.lnPhi[i]);
        largestLnK[i] = limitOfLnK + lnZ;
    }
}

bool FlashProblem::looksLiquid(const PhaseState &state) const
{
    if (state.severalRoots)
        return state.liquidRoot;
    const CubicConstants &equation = cubicConstants(model.equation);
    const bool loop = state.B < equation.criticalThermal() * state.A; // B / A = R T b / a
    return loop && state.Z < equation.criticalVolume * state.B;
}

double wilsonFall(const CompoundTerms &compound)
{
    return 5.373 * (1.0 + compound.acentricFactor) * compound.criticalTemperature;
}

double wilsonLogRatio(const CompoundTerms &compound, double temperature, double pressure)
{
    const double ratio = std::log(compound.criticalPressure / pressure) +
                         wilsonFall(compound) * (1.0 / compound.criticalTemperature - 1.0 / temperature);
    return std::clamp(ratio, -300.0, 300.0);
}

} // namespace reference
