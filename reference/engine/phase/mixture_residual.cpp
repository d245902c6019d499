#include "reference/engine/phase/mixture_residual.h"

#include "reference/engine/eos/cubic.h"
#include "reference/engine/eos/gas_constant.h"
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

RaoultParameters raoultParameters(const MixtureModel &model, const Isotherm &isotherm, const double *x,
                                  const Direction &direction)
{
    RaoultParameters mean;
    const struct {
        Dual RaoultParameters::*sum;
        std::array<TemperatureFunction, maximumCompounds> Isotherm::*functions;
        double TemperatureFunction::*value;
        double TemperatureFunction::*slope;
    } rows[] = {
        {&RaoultParameters::saturation, &Isotherm::saturation, &TemperatureFunction::value, &TemperatureFunction::byT},
        {&RaoultParameters::saturationT, &Isotherm::saturation, &TemperatureFunction::byT, &TemperatureFunction::byTT},
        {&RaoultParameters::saturationTT, &Isotherm::saturation, &TemperatureFunction::byTT,
         &TemperatureFunction::byTTT},
        {&RaoultParameters::volume, &Isotherm::volume, &TemperatureFunction::value, &TemperatureFunction::byT},
        {&RaoultParameters::volumeT, &Isotherm::volume, &TemperatureFunction::byT, &TemperatureFunction::byTT},
        {&RaoultParameters::volumeTT, &Isotherm::volume, &TemperatureFunction::byTT, &TemperatureFunction::byTTT},
    };
    for (const auto &row : rows) {
        const auto &functions = isotherm.*row.functions;
        Dual sum;
        for (int i = 0; i < model.size; ++i) {
            sum.value += x[i] * (functions[i].*row.value);
            sum.slope += x[i] * (functions[i].*row.slope) * direction.ofTemperature();
        }
        if (direction.compound >= 0)
            sum.slope = functions[direction.compound].*row.value - sum.value;
        mean.*row.sum = sum;
    }
    return mean;
}

} // namespace

PairSums::PairSums(const MixtureModel &model, const Isotherm &isotherm, const double *x)
{
    if (model.isIdeal())
        return;
    cubic::pairSums(model, x, isotherm.slope, slope);
    cubic::pairSums(model, x, isotherm.curvature, curvature);
}

Residual residualOf(const MixtureModel &model, const Isotherm &isotherm, const double *x, const PhaseState &state,
                    const PairSums &sums, const Direction &direction)
{
    const Dual T(isotherm.temperature, direction.ofTemperature());
    const Dual P(state.pressure, direction.ofPressure());
    if (!model.isIdeal())
        return cubicResidual(cubicConstants(model.equation), T, P,
                             cubicParameters(model, isotherm, x, state, sums, direction), state.freeZ);
    return state.vaporRoot ? idealGasResidual(T, P)
                           : raoultResidual(T, P, raoultParameters(model, isotherm, x, direction));
}

Residual pureResidualOf(const MixtureModel &model, const Isotherm &isotherm, const PhaseState &state, int i,
                        const Direction &direction)
{
    const CubicConstants &equation = cubicConstants(model.equation);
    const Dual T(isotherm.temperature, direction.ofTemperature());
    const Dual P(state.pressure, direction.ofPressure());
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
