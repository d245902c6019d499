#include "reference/engine/phase/cubic_phase.h"

#include "reference/engine/eos/cubic.h"
#include "reference/engine/eos/gas_constant.h"

#include <cmath>

namespace reference::cubic {

namespace {

// ln((Z + d1 B) / (Z + d2 B)) / (d1 - d2), with all its digits when B is small: B / Z then.
double attractionLogarithm(const CubicConstants &equation, double Z, double B)
{
    const double ratio = equation.difference() * B / (Z + equation.d2 * B);
    const double logarithm = ratio > 0.5 ? std::log(1.0 + ratio) : std::log1p(ratio); // which takes longer
    return logarithm / equation.difference();
}

// The residual Gibbs energy over R T of one root: what the two roots are compared by.
double residualGibbs(const CubicConstants &equation, double A, double B, double free)
{
    return free + B - 1.0 - std::log(free) - A / B * attractionLogarithm(equation, free + B, B);
}

struct ChosenRoot {
    double free; // Z - B
    bool several;
    bool isLiquid; // of several
};

ChosenRoot chooseRoot(const CubicConstants &equation, double A, double B, Root root)
{
    if (root != Root::stable) {
        const bool liquid = root == Root::liquid;
        const CompressibilityRoot one = solveCompressibility(equation, A, B, liquid);
        return {one.free, one.several, one.several && liquid};
    }
    const CompressibilityRoots roots = solveCompressibility(equation, A, B);
    const bool liquid =
        roots.distinct() && residualGibbs(equation, A, B, roots.liquid) < residualGibbs(equation, A, B, roots.vapor);
    return {liquid ? roots.liquid : roots.vapor, roots.distinct(), liquid};
}

// How Z - B and the attraction logarithm answer to a change of A and B.
struct Response {
    double byA; // d(Z - B)/dA at constant B
    double byB; // d(Z - B)/dB at constant A
    double Z;
    double B;
    double quadratic; // (Z + d1 B) (Z + d2 B)

    Response(const CubicConstants &equation, const PhaseState &state) : Z(state.Z), B(state.B)
    {
        const double u = state.freeZ;
        const CompressibilityCubic cubic(equation, state.A, B);
        // At the critical point Z answers without bound: finite instead.
        double slope = cubic.slope(u);
        if (std::fabs(slope) < 1e-14)
            slope = std::copysign(1e-14, slope);
        const double two = equation.sum() + 2.0;
        const double atCovolume = equation.atCovolume();
        byA = -u / slope;
        byB = -((two * u + 2.0 * atCovolume * B - two) * u - 2.0 * atCovolume * B) / slope;
        quadratic = (Z + equation.sum() * B) * Z + equation.product() * B * B;
    }
    double freeChange(double Achange, double Bchange) const { return byA * Achange + byB * Bchange; }
    double logChange(double Zchange, double Bchange) const { return (Z * Bchange - B * Zchange) / quadratic; }
};

// da/dT of the mixture.
double attractionSlope(const MixtureModel &model, const Isotherm &isotherm, const double *moleFractions,
                       const PhaseState &state)
{
    double sum = 0.0;
    for (int i = 0; i < model.size; ++i)
        sum += moleFractions[i] * isotherm.slope[i] * state.pairSum[i];
    return 2.0 * sum;
}

void sumAllPairs(const MixtureModel &model, const double *moleFractions, const CompoundArray &values,
                 CompoundArray &sums)
{
    const int n = model.size;
    for (int i = 0; i < n; ++i)
        sums[i] = 0.0;
    for (int j = 0; j < n; ++j) {
        const double weighted = moleFractions[j] * values[j];
        const double *factors = columnOf(model.pairFactor, n, j);
        for (int i = 0; i < n; ++i)
            sums[i] += factors[i] * weighted;
    }
}

} // namespace

void pairSums(const MixtureModel &model, const double *moleFractions, const CompoundArray &values, CompoundArray &sums)
{
    const int n = model.size;
    if (!model.interactsLittle)
        return sumAllPairs(model, moleFractions, values, sums);
    CompoundArray weighted;
    double total = 0.0;
    for (int j = 0; j < n; ++j) {
        weighted[j] = moleFractions[j] * values[j];
        total += weighted[j];
    }
    for (int i = 0; i < n; ++i)
        sums[i] = total;
    for (int k = 0; k < model.interactingCount; ++k) {
        const auto &[i, j, parameter] = model.interacting[k];
        sums[i] -= parameter * weighted[j];
        sums[j] -= parameter * weighted[i];
    }
}

void evaluatePhase(const MixtureModel &model, const Isotherm &isotherm, double pressure, const double *moleFractions,
                   Root root, PhaseState &state)
{
    const int n = model.size;
    pairSums(model, moleFractions, isotherm.s, state.pairSum);
    double a = 0.0;
    double b = 0.0;
    for (int i = 0; i < n; ++i) {
        a += moleFractions[i] * isotherm.s[i] * state.pairSum[i];
        b += moleFractions[i] * isotherm.b[i];
    }
    const double thermal = gasConstant * isotherm.temperature;
    const double A = a * pressure / (thermal * thermal);
    const double B = b * pressure / thermal;

    const CubicConstants &equation = cubicConstants(model.equation);
    const auto [free, severalRoots, takeLiquid] = chooseRoot(equation, A, B, root);
    const double Z = free + B;

    state.pressure = pressure;
    state.a = a;
    state.b = b;
    state.A = A;
    state.B = B;
    state.Z = Z;
    state.freeZ = free;
    state.severalRoots = severalRoots;
    state.vaporRoot = !takeLiquid;
    state.liquidRoot = takeLiquid || !severalRoots;
    state.attractionLog = attractionLogarithm(equation, Z, B);

    const double repulsion = -std::log(free);
    const double attractionScale = 2.0 * pressure / (thermal * thermal);
    const double strength = state.attractionLog / B;
    const double fromBeta = Z - 1.0 + A * strength;
    const double inverseCovolume = 1.0 / b;
    for (int i = 0; i < n; ++i) {
        state.attraction[i] = attractionScale * isotherm.s[i] * state.pairSum[i];
        state.beta[i] = isotherm.b[i] * inverseCovolume;
        state.lnPhi[i] = state.beta[i] * fromBeta + repulsion - strength * state.attraction[i];
    }
}

void evaluateSolvent(const MixtureModel &model, const Isotherm &isotherm, double pressure, int solvent,
                     CompoundArray &lnPhi)
{
    const CubicConstants &equation = cubicConstants(model.equation);
    const double thermal = gasConstant * isotherm.temperature;
    const double s = isotherm.s[solvent];
    const double b = isotherm.b[solvent];
    const double A = s * s * pressure / (thermal * thermal);
    const double B = b * pressure / thermal;
    const double free = solveCompressibility(equation, A, B, true).free;
    const double strength = attractionLogarithm(equation, free + B, B) / B;
    const double repulsion = -std::log(free);
    const double fromBeta = (free + B - 1.0 + A * strength) / b;
    const double fromPair = 2.0 * pressure / (thermal * thermal) * strength * s;
    const double *factors = columnOf(model.pairFactor, model.size, solvent);
    for (int i = 0; i < model.size; ++i)
        lnPhi[i] = isotherm.b[i] * fromBeta + repulsion - fromPair * isotherm.s[i] * factors[i];
}

void lnPhiByMoles(const MixtureModel &model, const Isotherm &isotherm, const PhaseState &state, PairArray &derivatives)
{
    const int n = model.size;
    const Response response(cubicConstants(model.equation), state);
    const double A = state.A;
    const double B = state.B;
    const double strength = state.attractionLog / B;
    const double thermal = gasConstant * isotherm.temperature;
    const double pairScale = 2.0 * strength * state.pressure / (thermal * thermal);
    const double fromBeta = state.Z - 1.0 + A * strength;

    // ln phi_i = beta_i (Z - 1 + A strength) - ln(Z - B) - strength attraction_i
    for (int j = 0; j < n; ++j) {
        const double Achange = state.attraction[j] - 2.0 * A; // of one mole's A, with P and T fixed
        const double Bchange = B * (state.beta[j] - 1.0);
        const double freeChange = response.freeChange(Achange, Bchange);
        const double Zchange = freeChange + Bchange;
        const double strengthChange = (response.logChange(Zchange, Bchange) - strength * Bchange) / B;
        const double repulsion = -freeChange / state.freeZ;
        const double betaFactor = Zchange + Achange * strength + A * strengthChange - (state.beta[j] - 1.0) * fromBeta;
        const double attractionFactor = strength - strengthChange;
        // beta_i changes by -beta_i (beta_j - 1), attraction_i by the pair's own term less itself.
        const double pair = pairScale * isotherm.s[j];
        const double *factors = columnOf(model.pairFactor, n, j);
        double *column = columnOf(derivatives, n, j);
        for (int i = 0; i < n; ++i)
            column[i] = repulsion + state.beta[i] * betaFactor + state.attraction[i] * attractionFactor -
                        pair * isotherm.s[i] * factors[i];
    }
}

void evaluateSlopes(const MixtureModel &model, const Isotherm &isotherm, const double *moleFractions,
                    const PhaseState &state, PhaseSlopes &slopes)
{
    const int n = model.size;
    const double T = isotherm.temperature;
    const double P = state.pressure;
    const double thermal = gasConstant * T;
    const Response response(cubicConstants(model.equation), state);
    const double A = state.A;
    const double B = state.B;
    const double strength = state.attractionLog / B;

    CompoundArray slopeSum;
    pairSums(model, moleFractions, isotherm.slope, slopeSum);
    const double attractionScale = P / (thermal * thermal);
    const double AbyT = attractionScale * attractionSlope(model, isotherm, moleFractions, state) - 2.0 * A / T;
    const double BbyT = -B / T;
    const double freeByT = response.freeChange(AbyT, BbyT);
    slopes.ZbyT = freeByT + BbyT;
    const double strengthByT = (response.logChange(slopes.ZbyT, BbyT) - strength * BbyT) / B;
    const double repulsionByT = -freeByT / state.freeZ;
    const double betaByT = slopes.ZbyT + AbyT * strength + A * strengthByT;

    const double AbyP = A / P;
    const double BbyP = B / P;
    const double freeByP = response.freeChange(AbyP, BbyP);
    slopes.ZbyP = freeByP + BbyP;
    const double strengthByP = (response.logChange(slopes.ZbyP, BbyP) - strength * BbyP) / B;
    const double repulsionByP = -freeByP / state.freeZ;
    const double betaByP = slopes.ZbyP + AbyP * strength + A * strengthByP;

    for (int i = 0; i < n; ++i) {
        const double attractionByT =
            2.0 * attractionScale * (isotherm.slope[i] * state.pairSum[i] + isotherm.s[i] * slopeSum[i]) -
            2.0 * state.attraction[i] / T;
        const double attractionByP = state.attraction[i] / P;
        slopes.lnPhiByT[i] =
            state.beta[i] * betaByT + repulsionByT - strengthByT * state.attraction[i] - strength * attractionByT;
        slopes.lnPhiByP[i] =
            state.beta[i] * betaByP + repulsionByP - strengthByP * state.attraction[i] - strength * attractionByP;
    }
}

} // namespace reference::cubic
