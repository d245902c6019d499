#include "reference/engine/eos/gas_constant.h"
#include "reference/engine/phase/phase_evaluation.h"
#include "reference/engine/phase/phase_state.h"
#include "tests/reference/engine/mixtures.h"

#include <gtest/gtest.h>

using namespace reference;

namespace {

struct State {
    MixtureModel model;
    std::vector<double> x;
    double temperature;
    double pressure;
    Root root;
};

// A gas, a dense gas, a liquid and a cold liquid of the same compounds, by every equation; and a gas so hot that the
// alpha function of nitrogen has passed zero.
std::vector<State> states()
{
    const std::vector<double> oil = {0.2, 0.1, 0.2, 0.2, 0.2, 0.02, 0.08};
    std::vector<State> list;
    for (const EquationOfState equation : equations) {
        const MixtureModel model = modelOf(pipelineGas, equation);
        list.push_back({model, pipelineFractions, 300.0, 1e6, Root::vapor});
        list.push_back({model, pipelineFractions, 260.0, 15e6, Root::stable});
        list.push_back({model, oil, 300.0, 12e6, Root::liquid});
        list.push_back({model, oil, 180.0, 2e6, Root::liquid});
        list.push_back({model, pipelineFractions, 1300.0, 30e6, Root::vapor});
    }
    return list;
}

PhaseState evaluate(const State &state, double temperature, double pressure, const std::vector<double> &x)
{
    PhaseState phase;
    evaluatePhase(state.model, Isotherm(state.model, temperature), pressure, x.data(), state.root, phase);
    return phase;
}

PhaseState evaluate(const State &state) { return evaluate(state, state.temperature, state.pressure, state.x); }

// The residual Helmholtz energy over R T of n moles in a volume, straight from the equation of state,
// P = R T / (v - b) - a / (v^2 + 2 b v - b^2) or P = R T / (v - b) - a / (v (v + b)), integrated over the
// volume, with a and b written out as in the papers of 1976 and 1972.
double residualHelmholtz(EquationOfState equation, const std::vector<std::string_view> &ids,
                         const std::vector<double> &moles, double T, double V)
{
    const bool soave = equation == EquationOfState::soaveRedlichKwong;
    const double R = 8.31446261815324;
    double n = 0.0;
    double nb = 0.0;
    double nna = 0.0;
    std::vector<double> a;
    for (std::size_t i = 0; i < ids.size(); ++i) {
        const CompoundData &c = *findCompound(ids[i]);
        const double omega = c.acentricFactor;
        const double kappa =
            soave ? 0.480 + 1.574 * omega - 0.176 * omega * omega : 0.37464 + 1.54226 * omega - 0.26992 * omega * omega;
        const double alpha = std::pow(1.0 + kappa * (1.0 - std::sqrt(T / c.criticalTemperature)), 2);
        a.push_back((soave ? 0.427480233540 : 0.457235528921) * R * R * c.criticalTemperature * c.criticalTemperature /
                    c.criticalPressure * alpha);
        nb += moles[i] * (soave ? 0.0866403499650 : 0.0777960739039) * R * c.criticalTemperature / c.criticalPressure;
        n += moles[i];
    }
    const MixtureModel model = modelOf(ids, equation);
    for (std::size_t i = 0; i < ids.size(); ++i)
        for (std::size_t j = 0; j < ids.size(); ++j)
            nna += moles[i] * moles[j] * std::sqrt(a[i] * a[j]) * model.pairFactor[i + ids.size() * j];
    if (soave)
        return -n * std::log(1.0 - nb / V) - nna / (nb * R * T) * std::log(1.0 + nb / V);
    const double root = std::sqrt(2.0);
    return -n * std::log(1.0 - nb / V) -
           nna / (2.0 * root * nb * R * T) * std::log((V + (1.0 + root) * nb) / (V + (1.0 - root) * nb));
}

double slope(const auto &function, double at, double step)
{
    return (function(at + step) - function(at - step)) / (2.0 * step);
}

} // namespace

// ln phi_i = d(A_res / R T) / dn_i at constant T and V - ln Z.
TEST(EvaluatePhase, GivesTheFugacityCoefficientsThatFollowFromTheHelmholtzEnergy)
{
    for (const State &state : states()) {
        if (state.model.equation == EquationOfState::idealMixture)
            continue;
        const PhaseState phase = evaluate(state);
        const double V = phase.Z * gasConstant * state.temperature / state.pressure;
        for (std::size_t i = 0; i < state.x.size(); ++i) {
            std::vector<double> moles = state.x;
            const auto energy = [&](double amount) {
                moles[i] = amount;
                return residualHelmholtz(state.model.equation, pipelineGas, moles, state.temperature, V);
            };
            EXPECT_NEAR(phase.lnPhi[i], slope(energy, state.x[i], 1e-5) - std::log(phase.Z), 1e-7);
        }
    }
}

TEST(EvaluatePhase, GivesCoefficientsOfOneForAThinGas)
{
    const State dilute{modelOf(pipelineGas), pipelineFractions, 300.0, 1e-2, Root::vapor};
    const PhaseState phase = evaluate(dilute);
    EXPECT_NEAR(phase.Z, 1.0, 1e-8);
    for (std::size_t i = 0; i < dilute.x.size(); ++i)
        EXPECT_NEAR(phase.lnPhi[i], 0.0, 1e-7);
}

// The equation has the second virial coefficient b - a / (R T): ln phi of a pure gas is B P / (R T)
// to first order in the pressure.
TEST(EvaluatePhase, ApproachesTheSecondVirialCoefficient)
{
    const State gas{modelOf({"methane"}), {1.0}, 250.0, 1e3, Root::vapor};
    const double Tc = 190.564;
    const double Pc = 4.5992e6;
    const double kappa = 0.37464 + 1.54226 * 0.01142 - 0.26992 * 0.01142 * 0.01142;
    const double alpha = std::pow(1.0 + kappa * (1.0 - std::sqrt(250.0 / Tc)), 2);
    const double virial =
        0.0777960739 * gasConstant * Tc / Pc - 0.457235529 * gasConstant * Tc * Tc / Pc / 250.0 * alpha;
    const double first = virial * 1e3 / (gasConstant * 250.0);
    EXPECT_NEAR(evaluate(gas).lnPhi[0], first, 3e-4 * std::fabs(first));
}

TEST(EvaluatePhase, TellsWhichRootItTook)
{
    const MixtureModel propane = modelOf({"propane"});
    const std::vector<double> pure = {1.0};
    const PhaseState vapor = evaluate({propane, pure, 300.0, 1e6, Root::vapor});
    const PhaseState liquid = evaluate({propane, pure, 300.0, 1e6, Root::liquid});
    EXPECT_TRUE(vapor.severalRoots && vapor.vaporRoot && !vapor.liquidRoot);
    EXPECT_TRUE(liquid.severalRoots && !liquid.vaporRoot && liquid.liquidRoot);
    // NIST WebBook: propane boils at 300 K and 0.9978 MPa, so at 1.1 MPa it is liquid and at 0.9 MPa gas.
    EXPECT_TRUE(evaluate({propane, pure, 300.0, 1.1e6, Root::stable}).liquidRoot);
    EXPECT_TRUE(evaluate({propane, pure, 300.0, 0.9e6, Root::stable}).vaporRoot);
    const PhaseState hot = evaluate({propane, pure, 450.0, 1e6, Root::liquid});
    EXPECT_TRUE(!hot.severalRoots && hot.vaporRoot && hot.liquidRoot);
}

TEST(EvaluatePhase, TakesAFractionOfZeroAsInfiniteDilution)
{
    std::vector<double> without = {0.9, 0.1, 0.0, 0.0, 0.0, 0.0, 0.0};
    std::vector<double> trace = without;
    trace[4] = 1e-9;
    const State gas{modelOf(pipelineGas), without, 300.0, 5e6, Root::vapor};
    EXPECT_NEAR(evaluate(gas).lnPhi[4], evaluate(gas, 300.0, 5e6, trace).lnPhi[4], 1e-7);
}

// ln phi_i = ln(p_i / P) + v_i (P - p_i) / (R T) in the liquid, and a gas that is ideal.
TEST(EvaluatePhase, FollowsRaoultInAnIdealMixture)
{
    const MixtureModel model = modelOf(pipelineGas, EquationOfState::idealMixture);
    const double T = 250.0;
    const double P = 3e6;
    const PhaseState liquid = evaluate({model, pipelineFractions, T, P, Root::liquid});
    const PhaseState vapor = evaluate({model, pipelineFractions, T, P, Root::vapor});
    double volume = 0.0;
    for (std::size_t i = 0; i < pipelineGas.size(); ++i) {
        const CompoundData &compound = *findCompound(pipelineGas[i]);
        const double logSaturation = SaturationPressure(compound).logarithm(T).value;
        const double molar = LiquidVolume(compound).volume(T).value;
        const double expected =
            logSaturation - std::log(P) + molar * (P - std::exp(logSaturation)) / (8.31446261815324 * T);
        EXPECT_NEAR(liquid.lnPhi[i], expected, 1e-12);
        EXPECT_EQ(vapor.lnPhi[i], 0.0);
        volume += pipelineFractions[i] * molar;
    }
    EXPECT_EQ(vapor.Z, 1.0);
    EXPECT_NEAR(liquid.Z * 8.31446261815324 * T / P, volume, 1e-15);
    EXPECT_TRUE(liquid.liquidRoot && !liquid.vaporRoot && vapor.vaporRoot && !vapor.liquidRoot);
    // A hot dilute mixture is a gas, a cold dense one a liquid.
    EXPECT_TRUE(evaluate({model, pipelineFractions, 400.0, 1e4, Root::stable}).vaporRoot);
    EXPECT_TRUE(evaluate({model, pipelineFractions, 100.0, 5e6, Root::stable}).liquidRoot);
}

TEST(LnPhiByMoles, AgreesWithDifferences)
{
    for (const State &state : states()) {
        const int n = state.model.size;
        PairArray analytic;
        lnPhiByMoles(state.model, Isotherm(state.model, state.temperature), evaluate(state), analytic);
        for (int j = 0; j < n; ++j)
            for (int i = 0; i < n; ++i) {
                const auto logarithm = [&](double added) { // of one mole and `added` moles of j, normalized
                    std::vector<double> x = state.x;
                    x[j] += added;
                    for (double &fraction : x)
                        fraction /= 1.0 + added;
                    return evaluate(state, state.temperature, state.pressure, x).lnPhi[i];
                };
                EXPECT_NEAR(analytic[i + n * j], slope(logarithm, 0.0, 1e-5),
                            1e-6 * (1.0 + std::fabs(analytic[i + n * j])));
            }
    }
}

// Sum over i of x_i d(ln phi_i)/dn_j is zero, and so is the sum over j of x_j times the same.
TEST(LnPhiByMoles, IsSymmetricAndObeysGibbsDuhem)
{
    for (const State &state : states()) {
        const int n = state.model.size;
        PairArray byMoles;
        lnPhiByMoles(state.model, Isotherm(state.model, state.temperature), evaluate(state), byMoles);
        for (int j = 0; j < n; ++j) {
            double sum = 0.0;
            for (int i = 0; i < n; ++i) {
                sum += state.x[i] * byMoles[i + n * j];
                EXPECT_NEAR(byMoles[i + n * j], byMoles[j + n * i], 1e-11 * (1.0 + std::fabs(byMoles[i + n * j])));
            }
            EXPECT_NEAR(sum, 0.0, 1e-11);
        }
    }
}

TEST(EvaluateSlopes, AgreesWithDifferences)
{
    for (const State &state : states()) {
        PhaseSlopes slopes;
        evaluateSlopes(state.model, Isotherm(state.model, state.temperature), state.x.data(), evaluate(state), slopes);
        const double T = state.temperature;
        const double P = state.pressure;
        const auto atT = [&](double t) { return evaluate(state, t, P, state.x); };
        const auto atP = [&](double p) { return evaluate(state, T, p, state.x); };
        EXPECT_NEAR(slopes.ZbyT, slope([&](double t) { return atT(t).Z; }, T, 1e-4 * T),
                    1e-5 * std::fabs(slopes.ZbyT) + 1e-12);
        EXPECT_NEAR(slopes.ZbyP, slope([&](double p) { return atP(p).Z; }, P, 1e-4 * P),
                    1e-5 * std::fabs(slopes.ZbyP) + 1e-12 / P);
        for (int i = 0; i < state.model.size; ++i) {
            const double byT = slope([&](double t) { return atT(t).lnPhi[i]; }, T, 1e-4 * T);
            const double byP = slope([&](double p) { return atP(p).lnPhi[i]; }, P, 1e-4 * P);
            EXPECT_NEAR(slopes.lnPhiByT[i], byT, 1e-6 * (1.0 / T + std::fabs(byT)));
            EXPECT_NEAR(slopes.lnPhiByP[i], byP, 1e-6 * (1.0 / P + std::fabs(byP)));
        }
    }
}

namespace {

// The pressure at which the two roots of a pure compound have equal fugacities.
double saturationPressure(std::string_view id, double temperature, double low, double high)
{
    const MixtureModel model = modelOf({id});
    const Isotherm isotherm(model, temperature);
    const double pure = 1.0;
    for (int i = 0; i < 100; ++i) {
        const double pressure = 0.5 * (low + high);
        PhaseState vapor;
        PhaseState liquid;
        evaluatePhase(model, isotherm, pressure, &pure, Root::vapor, vapor);
        evaluatePhase(model, isotherm, pressure, &pure, Root::liquid, liquid);
        (vapor.lnPhi[0] < liquid.lnPhi[0] ? low : high) = pressure;
    }
    return low;
}

} // namespace

// NIST Chemistry WebBook, saturation properties of the fluids. The equation holds within
// one or two percent for these.
TEST(Saturation, IsThatOfThePureFluids)
{
    const struct {
        std::string_view id;
        double temperature;
        double pressure;
    } points[] = {{"methane", 150.0, 1.0400e6},
                  {"propane", 300.0, 0.9978e6},
                  {"carbon dioxide", 250.0, 1.7850e6},
                  {"nitrogen", 100.0, 0.7783e6}};
    for (const auto &point : points)
        EXPECT_NEAR(saturationPressure(point.id, point.temperature, 0.9 * point.pressure, 1.1 * point.pressure),
                    point.pressure, 0.015 * point.pressure)
            << point.id;
}

// Compounds whose molecules hold together by hydrogen bonds, and helium, are described less well.
TEST(Saturation, IsOneAtmosphereAtTheNormalBoilingPoint)
{
    for (const CompoundData &compound : compoundTable())
        if (!std::isnan(compound.normalBoilingPoint)) {
            const double accuracy = compound.associationFactor > 0.0 || compound.id == "helium" ? 0.055 : 0.025;
            EXPECT_NEAR(saturationPressure(compound.id, compound.normalBoilingPoint, 9e4, 11e4), 101325.0,
                        accuracy * 101325.0)
                << compound.id;
        }
}
