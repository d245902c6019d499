#include "reference/engine/phase/mixture_residual.h"

#include "reference/engine/eos/cubic.h"
#include "reference/engine/eos/gas_constant.h"
#include "reference/engine/phase/activity_phase.h"
#include "reference/engine/phase/cubic_phase.h"

namespace reference {

namespace {

CubicParameters cubicParameters(const MixtureModel &model, const Isotherm &isotherm, const double *x,
                                const PhaseState &state, const PairSums &sums, const Direction &direction)
{
    const double T = isotherm.temperature;
    CubicParameters sum{state.a, 0.0, 0.0, state.b};
    double aTTT = 0.0;
    for (int i = 0; i < model.size; ++i) {
        const double thirdSlope = -1.5 * isotherm.curvature[i] / T; // of s, which is linear in sqrt(T)
        sum.aT.value += 2.0 * x[i] * isotherm.slope[i] * state.pairSum[i];
        sum.aTT.value += 2.0 * x[i] * (isotherm.curvature[i] * state.pairSum[i] + isotherm.slope[i] * sums.slope[i]);
        aTTT += 2.0 * x[i] * (thirdSlope * state.pairSum[i] + 3.0 * isotherm.curvature[i] * sums.slope[i]);
    }
    if (direction.differential == Differential::byTemperature) {
        sum.a.slope = sum.aT.value;
        sum.aT.slope = sum.aTT.value;
        sum.aTT.slope = aTTT;
    }
    if (const int j = direction.compound; j >= 0) {
        const double s = isotherm.s[j];
        const double sT = isotherm.slope[j];
        const double sTT = isotherm.curvature[j];
        sum.a.slope = 2.0 * (s * state.pairSum[j] - sum.a.value);
        sum.aT.slope = 2.0 * (sT * state.pairSum[j] + s * sums.slope[j] - sum.aT.value);
        sum.aTT.slope =
            2.0 * (sTT * state.pairSum[j] + 2.0 * sT * sums.slope[j] + s * sums.curvature[j] - sum.aTT.value);
        sum.b.slope = model.compounds[j].covolume - sum.b.value;
    }
    return sum;
}

using TemperatureFunctions = std::array<TemperatureFunction, maximumCompounds>;

// The mean of a function of temperature of the compounds, its derivatives by temperature given one place further on.
Dual meanOf(int n, const double *x, const TemperatureFunctions &functions, double TemperatureFunction::*value,
            double TemperatureFunction::*byT, const Direction &direction)
{
    Dual sum;
    for (int i = 0; i < n; ++i) {
        sum.value += x[i] * (functions[i].*value);
        sum.slope += x[i] * (functions[i].*byT) * direction.ofTemperature();
    }
    // What the compounds' own values do when moles are added has a mean of zero: Gibbs and Duhem.
    if (direction.compound >= 0)
        sum.slope = functions[direction.compound].*value - sum.value;
    return sum;
}

ActivityParameters activityParameters(int n, const double *x, const TemperatureFunctions &terms,
                                      const TemperatureFunctions &volumes, const Direction &direction)
{
    const auto mean = [&](const TemperatureFunctions &functions, double TemperatureFunction::*value,
                          double TemperatureFunction::*byT) { return meanOf(n, x, functions, value, byT, direction); };
    return {.saturation = mean(terms, &TemperatureFunction::value, &TemperatureFunction::byT),
            .saturationT = mean(terms, &TemperatureFunction::byT, &TemperatureFunction::byTT),
            .saturationTT = mean(terms, &TemperatureFunction::byTT, &TemperatureFunction::byTTT),
            .volume = mean(volumes, &TemperatureFunction::value, &TemperatureFunction::byT),
            .volumeT = mean(volumes, &TemperatureFunction::byT, &TemperatureFunction::byTT),
            .volumeTT = mean(volumes, &TemperatureFunction::byTT, &TemperatureFunction::byTTT)};
}

// Of a pure compound as a liquid that has activity coefficients.
Residual pureActivityResidual(const Isotherm &isotherm, int i, Dual T, Dual P)
{
    constexpr double whole = 1.0;
    const Direction direction{T.slope != 0.0 ? Differential::byTemperature : Differential::none};
    const TemperatureFunctions terms{isotherm.saturation[i]};
    const TemperatureFunctions volumes{isotherm.volume[i]};
    return activityResidual(T, P, activityParameters(1, &whole, terms, volumes, direction));
}

} // namespace

PairSums::PairSums(const MixtureModel &model, const Isotherm &isotherm, const double *x)
{
    if (!model.isCubic())
        return;
    cubic::pairSums(model, x, isotherm.slope, slope);
    cubic::pairSums(model, x, isotherm.curvature, curvature);
}

Residual residualOf(const MixtureModel &model, const Isotherm &isotherm, const double *x, const PhaseState &state,
                    const PairSums &sums, const Direction &direction)
{
    const Dual T(isotherm.temperature, direction.ofTemperature());
    const Dual P(state.pressure, direction.ofPressure());
    if (model.isCubic())
        return cubicResidual(cubicConstants(model.equation), T, P,
                             cubicParameters(model, isotherm, x, state, sums, direction), state.freeZ);
    if (state.vaporRoot)
        return idealGasResidual(T, P);
    TemperatureFunctions terms;
    activity::temperatureTerms(model, isotherm, x, terms);
    return activityResidual(T, P, activityParameters(model.size, x, terms, isotherm.volume, direction));
}

Residual pureResidualOf(const MixtureModel &model, const Isotherm &isotherm, const PhaseState &state, int i,
                        const Direction &direction)
{
    const Dual T(isotherm.temperature, direction.ofTemperature());
    const Dual P(state.pressure, direction.ofPressure());
    if (!model.isCubic())
        return state.vaporRoot ? idealGasResidual(T, P) : pureActivityResidual(isotherm, i, T, P);
    const CubicConstants &equation = cubicConstants(model.equation);
    const double s = isotherm.s[i];
    const double sT = isotherm.slope[i];
    const double sTT = isotherm.curvature[i];
    const double sTTT = -1.5 * sTT / T.value;
    const CubicParameters parameters{{s * s, 2.0 * s * sT * T.slope},
                                     {2.0 * s * sT, 2.0 * (sT * sT + s * sTT) * T.slope},
                                     {2.0 * (sT * sT + s * sTT), 2.0 * (3.0 * sT * sTT + s * sTTT) * T.slope},
                                     model.compounds[i].covolume};
    const double thermal = gasConstant * T.value;
    const CompressibilityRoots roots =
        solveCompressibility(equation, s * s * P.value / (thermal * thermal), parameters.b.value * P.value / thermal);
    return cubicResidual(equation, T, P, parameters, state.vaporRoot ? roots.vapor : roots.liquid);
}

} // namespace reference
