#include "reference/engine/phase/ideal_phase.h"

#include <algorithm>
#include <cmath>

namespace reference::ideal {

namespace {

double liquidFugacity(const Isotherm &isotherm, int i, double pressure, double logPressure)
{
    return isotherm.saturation[i].value + isotherm.volume[i].value * pressure - logPressure;
}

bool isVapor(const PhaseState &state) { return state.vaporRoot; }

} // namespace

void evaluatePhase(const MixtureModel &model, const Isotherm &isotherm, double pressure, const double *moleFractions,
                   Root root, PhaseState &state)
{
    const int n = model.size;
    const double logPressure = std::log(pressure);
    double gibbs = 0.0;
    double volume = 0.0;
    for (int i = 0; i < n; ++i) {
        state.lnPhi[i] = liquidFugacity(isotherm, i, pressure, logPressure);
        gibbs += moleFractions[i] * state.lnPhi[i];
        volume += moleFractions[i] * isotherm.volume[i].value;
    }
    const bool liquid = root == Root::liquid || (root == Root::stable && gibbs < 0.0);
    state.pressure = pressure;
    state.severalRoots = true;
    state.vaporRoot = !liquid;
    state.liquidRoot = liquid;
    state.Z = liquid ? volume * pressure : 1.0;
    if (!liquid)
        std::fill_n(state.lnPhi.begin(), n, 0.0);
}

void lnPhiByMoles(const MixtureModel &model, const Isotherm &, const PhaseState &, PairArray &derivatives)
{
    std::fill_n(derivatives.begin(), model.size * model.size, 0.0);
}

void evaluateSlopes(const MixtureModel &model, const Isotherm &isotherm, const double *moleFractions,
                    const PhaseState &state, PhaseSlopes &slopes)
{
    const double P = state.pressure;
    slopes.ZbyT = 0.0;
    slopes.ZbyP = 0.0;
    for (int i = 0; i < model.size; ++i) {
        slopes.lnPhiByT[i] = 0.0;
        slopes.lnPhiByP[i] = 0.0;
        if (isVapor(state))
            continue;
        slopes.lnPhiByT[i] = isotherm.saturation[i].byT + isotherm.volume[i].byT * P;
        slopes.lnPhiByP[i] = isotherm.volume[i].value - 1.0 / P;
        slopes.ZbyT += moleFractions[i] * isotherm.volume[i].byT * P;
        slopes.ZbyP += moleFractions[i] * isotherm.volume[i].value;
    }
}

} // namespace reference::ideal
