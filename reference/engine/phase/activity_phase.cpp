#include "reference/engine/phase/activity_phase.h"

#include <algorithm>
#include <cmath>

namespace reference::activity {

namespace {

bool isVapor(const PhaseState &state) { return state.vaporRoot; }

void liquidLnPhi(const MixtureModel &model, const Isotherm &isotherm, double pressure, const double *moleFractions,
                 CompoundArray &lnPhi)
{
    const int n = model.size;
    const double logPressure = std::log(pressure);
    if (model.isIdeal())
        std::fill_n(lnPhi.begin(), n, 0.0);
    else
        isotherm.local.logActivityCoefficients(moleFractions, lnPhi);
    for (int i = 0; i < n; ++i)
        lnPhi[i] += isotherm.saturation[i].value + isotherm.volume[i].value * pressure - logPressure;
}

} // namespace

void temperatureTerms(const MixtureModel &model, const Isotherm &isotherm, const double *moleFractions,
                      std::array<TemperatureFunction, maximumCompounds> &terms)
{
    std::copy_n(isotherm.saturation.begin(), model.size, terms.begin());
    if (model.isIdeal())
        return;
    std::array<TemperatureFunction, maximumNrtlCompounds> logActivities;
    isotherm.local.logActivityCoefficients(moleFractions, logActivities);
    for (int i = 0; i < model.size; ++i)
        terms[i] += logActivities[i];
}

void evaluatePhase(const MixtureModel &model, const Isotherm &isotherm, double pressure, const double *moleFractions,
                   Root root, PhaseState &state)
{
    const int n = model.size;
    bool liquid = root == Root::liquid;
    if (root != Root::vapor) {
        liquidLnPhi(model, isotherm, pressure, moleFractions, state.lnPhi);
        double gibbs = 0.0;
        for (int i = 0; i < n; ++i)
            gibbs += moleFractions[i] * state.lnPhi[i];
        liquid = liquid || gibbs < 0.0;
    }
    state.pressure = pressure;
    state.severalRoots = true;
    state.vaporRoot = !liquid;
    state.liquidRoot = liquid;
    std::copy_n(moleFractions, n, state.fractions.begin());
    state.Z = 1.0;
    if (liquid) {
        state.Z = 0.0;
        for (int i = 0; i < n; ++i)
            state.Z += moleFractions[i] * isotherm.volume[i].value * pressure;
    } else {
        std::fill_n(state.lnPhi.begin(), n, 0.0);
    }
}

void lnPhiByMoles(const MixtureModel &model, const Isotherm &isotherm, const PhaseState &state, PairArray &derivatives)
{
    if (model.isIdeal() || isVapor(state))
        std::fill_n(derivatives.begin(), model.size * model.size, 0.0);
    else
        isotherm.local.byMoles(state.fractions.data(), derivatives);
}

void evaluateSlopes(const MixtureModel &model, const Isotherm &isotherm, const double *moleFractions,
                    const PhaseState &state, PhaseSlopes &slopes)
{
    const double P = state.pressure;
    slopes.ZbyT = 0.0;
    slopes.ZbyP = 0.0;
    std::fill_n(slopes.lnPhiByT.begin(), model.size, 0.0);
    std::fill_n(slopes.lnPhiByP.begin(), model.size, 0.0);
    if (isVapor(state))
        return;
    std::array<TemperatureFunction, maximumCompounds> terms;
    temperatureTerms(model, isotherm, moleFractions, terms);
    for (int i = 0; i < model.size; ++i) {
        slopes.lnPhiByT[i] = terms[i].byT + isotherm.volume[i].byT * P;
        slopes.lnPhiByP[i] = isotherm.volume[i].value - 1.0 / P;
        slopes.ZbyT += moleFractions[i] * isotherm.volume[i].byT * P;
        slopes.ZbyP += moleFractions[i] * isotherm.volume[i].value;
    }
}

} // namespace reference::activity
