#include "reference/engine/peng_robinson.h"

#include "reference/engine/cubic.h"

#include <cmath>
#include <numbers>

namespace reference {

namespace {

constexpr double outer = 1.0 + std::numbers::sqrt2;
constexpr double inner = 1.0 - std::numbers::sqrt2;
constexpr double spread = outer - inner;

double attractionLogarithm(double Z, double B) { return std::log((Z + outer * B) / (Z + inner * B)); }

// The residual Gibbs energy over R T of one root: what the two roots are compared by.
double residualGibbs(double A, double B, double Z)
{
    return Z - 1.0 - std::log(Z - B) - A / (spread * B) * attractionLogarithm(Z, B);
}

// How Z and the attraction logarithm answer to a change of A and B.
struct Response {
    double byA; // dZ/dA at constant B
    double byB; // dZ/dB at constant A
    double quadratic;

    explicit Response(const PhaseState &state)
    {
        const double Z = state.Z;
        const double B = state.B;
        const double byZ = (3.0 * Z - 2.0 * (1.0 - B)) * Z + state.A - (3.0 * B + 2.0) * B;
        byA = (B - Z) / byZ;
        byB = -((Z - 6.0 * B - 2.0) * Z - state.A + (2.0 + 3.0 * B) * B) / byZ;
        quadratic = (Z + 2.0 * B) * Z - B * B;
    }
    double Zchange(double Achange, double Bchange) const { return byA * Achange + byB * Bchange; }
    double logChange(const PhaseState &state, double Zchange, double Bchange) const
    {
        return spread * (state.Z * Bchange - state.B * Zchange) / quadratic;
    }
};

// For each compound the sum over j of (1 - kij) x_j times the value of j.
void pairSums(const MixtureModel &model, const double *moleFractions, const CompoundArray &values, CompoundArray &sums)
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

// da/dT of the mixture, and below d2a/dT2.
double attractionSlope(const MixtureModel &model, const Isotherm &isotherm, const double *moleFractions,
                       const PhaseState &state)
{
    double sum = 0.0;
    for (int i = 0; i < model.size; ++i)
        sum += moleFractions[i] * isotherm.slope[i] * state.pairSum[i];
    return 2.0 * sum;
}

double attractionBending(const MixtureModel &model, const Isotherm &isotherm, const double *moleFractions,
                         const PhaseState &state)
{
    CompoundArray slopeSum;
    pairSums(model, moleFractions, isotherm.slope, slopeSum);
    double sum = 0.0;
    for (int i = 0; i < model.size; ++i)
        sum += moleFractions[i] * (isotherm.bending[i] * state.pairSum[i] + isotherm.slope[i] * slopeSum[i]);
    return 2.0 * sum;
}

} // namespace

Isotherm::Isotherm(const MixtureModel &model, double kelvin) : temperature(kelvin)
{
    const double root = std::sqrt(kelvin);
    for (int i = 0; i < model.size; ++i) {
        const CompoundTerms &compound = model.compounds[i];
        const double reducedRoot = root * compound.inverseRootCriticalT;
        s[i] = compound.attractionRoot * (1.0 + compound.attractionSlope * (1.0 - reducedRoot));
        slope[i] = -0.5 * compound.attractionRoot * compound.attractionSlope * reducedRoot / kelvin;
        bending[i] = -0.5 * slope[i] / kelvin;
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
        b += moleFractions[i] * model.compounds[i].covolume;
    }
    const double thermal = gasConstant * isotherm.temperature;
    const double A = a * pressure / (thermal * thermal);
    const double B = b * pressure / thermal;

    const CompressibilityRoots roots = solveCompressibility(A, B);
    const bool takeLiquid =
        roots.distinct() && (root == Root::liquid || (root == Root::stable && residualGibbs(A, B, roots.liquid) <
                                                                                  residualGibbs(A, B, roots.vapor)));
    const double Z = takeLiquid ? roots.liquid : roots.vapor;

    state.pressure = pressure;
    state.a = a;
    state.b = b;
    state.A = A;
    state.B = B;
    state.Z = Z;
    state.severalRoots = roots.distinct();
    state.vaporRoot = !takeLiquid;
    state.liquidRoot = takeLiquid || !roots.distinct();
    state.attractionLog = attractionLogarithm(Z, B);

    const double repulsion = -std::log(Z - B);
    const double attraction = A / (spread * B) * state.attractionLog;
    for (int i = 0; i < n; ++i) {
        state.alpha[i] = 2.0 * isotherm.s[i] * state.pairSum[i] / a;
        state.beta[i] = model.compounds[i].covolume / b;
        state.lnPhi[i] = state.beta[i] * (Z - 1.0) + repulsion - attraction * (state.alpha[i] - state.beta[i]);
    }
}

void lnPhiByMoles(const MixtureModel &model, const Isotherm &isotherm, const PhaseState &state, PairArray &derivatives)
{
    const int n = model.size;
    const Response response(state);
    const double strength = state.A / (spread * state.B);
    const double freeZ = state.Z - state.B;
    const double pairScale = 2.0 * strength * state.attractionLog / state.a;
    const double excess = state.Z - 1.0;
    const double attraction = strength * state.attractionLog;

    for (int j = 0; j < n; ++j) {
        const double Achange = state.A * (state.alpha[j] - 2.0);
        const double Bchange = state.B * (state.beta[j] - 1.0);
        const double Zchange = response.Zchange(Achange, Bchange);
        const double logChange = response.logChange(state, Zchange, Bchange);
        const double repulsion = -(Zchange - Bchange) / freeZ;
        // d(attraction)/dn_j, with A / B growing by (alpha_j - beta_j - 1) times itself.
        const double attractionChange = attraction * (state.alpha[j] - state.beta[j] - 1.0) + strength * logChange;
        const double fromAlpha = attraction * (state.alpha[j] - 1.0) - attractionChange;
        const double fromBeta = Zchange + attractionChange - (state.beta[j] - 1.0) * (excess + attraction);
        const double pair = pairScale * isotherm.s[j];
        const double *factors = columnOf(model.pairFactor, n, j);
        double *column = columnOf(derivatives, n, j);
        for (int i = 0; i < n; ++i)
            column[i] =
                repulsion + state.alpha[i] * fromAlpha + state.beta[i] * fromBeta - pair * isotherm.s[i] * factors[i];
    }
}

void evaluateSlopes(const MixtureModel &model, const Isotherm &isotherm, const double *moleFractions,
                    const PhaseState &state, PhaseSlopes &slopes)
{
    const int n = model.size;
    const double T = isotherm.temperature;
    const double P = state.pressure;
    const Response response(state);
    const double strength = state.A / (spread * state.B);
    const double freeZ = state.Z - state.B;

    CompoundArray slopeSum;
    pairSums(model, moleFractions, isotherm.slope, slopeSum);
    const double relativeSlope = attractionSlope(model, isotherm, moleFractions, state) / state.a;

    const double AbyT = state.A * (relativeSlope - 2.0 / T);
    const double BbyT = -state.B / T;
    slopes.ZbyT = response.Zchange(AbyT, BbyT);
    const double repulsionByT = -(slopes.ZbyT - BbyT) / freeZ;
    const double attraction = strength * state.attractionLog;
    const double attractionByT =
        attraction * (relativeSlope - 1.0 / T) + strength * response.logChange(state, slopes.ZbyT, BbyT);

    const double AbyP = state.A / P;
    const double BbyP = state.B / P;
    slopes.ZbyP = response.Zchange(AbyP, BbyP);
    const double repulsionByP = -(slopes.ZbyP - BbyP) / freeZ;
    const double attractionByP = strength * response.logChange(state, slopes.ZbyP, BbyP);

    for (int i = 0; i < n; ++i) {
        const double contrast = state.alpha[i] - state.beta[i];
        const double alphaByT = 2.0 * (isotherm.slope[i] * state.pairSum[i] + isotherm.s[i] * slopeSum[i]) / state.a -
                                state.alpha[i] * relativeSlope;
        slopes.lnPhiByT[i] =
            state.beta[i] * slopes.ZbyT + repulsionByT - attractionByT * contrast - attraction * alphaByT;
        slopes.lnPhiByP[i] = state.beta[i] * slopes.ZbyP + repulsionByP - attractionByP * contrast;
    }
}

double residualEnthalpy(const MixtureModel &model, const Isotherm &isotherm, const double *moleFractions,
                        const PhaseState &state)
{
    const double T = isotherm.temperature;
    const double aByT = attractionSlope(model, isotherm, moleFractions, state);
    return gasConstant * T * (state.Z - 1.0) + (T * aByT - state.a) / (spread * state.b) * state.attractionLog;
}

double residualEntropy(const MixtureModel &model, const Isotherm &isotherm, const double *moleFractions,
                       const PhaseState &state)
{
    const double aByT = attractionSlope(model, isotherm, moleFractions, state);
    return gasConstant * std::log(state.Z - state.B) + aByT / (spread * state.b) * state.attractionLog;
}

double residualHeatCapacity(const MixtureModel &model, const Isotherm &isotherm, const double *moleFractions,
                            const PhaseState &state, double ZbyT)
{
    const double T = isotherm.temperature;
    const double aByT = attractionSlope(model, isotherm, moleFractions, state);
    const double aByTT = attractionBending(model, isotherm, moleFractions, state);
    const double logByT = Response(state).logChange(state, ZbyT, -state.B / T);
    return gasConstant * (state.Z - 1.0 + T * ZbyT) +
           (T * aByTT * state.attractionLog + (T * aByT - state.a) * logByT) / (spread * state.b);
}

} // namespace reference
