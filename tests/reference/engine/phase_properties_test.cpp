#include "reference/engine/eos/gas_constant.h"
#include "reference/engine/phase/phase_properties.h"
#include "tests/reference/engine/mixtures.h"

#include <gtest/gtest.h>

using namespace reference;

namespace {

PhaseProperties evaluate(const MixtureModel &model, double temperature, double pressure, const std::vector<double> &x,
                         Root root = Root::vapor)
{
    PhaseProperties properties;
    const Isotherm isotherm(model, temperature);
    evaluateProperties(model, isotherm, pressure, x.data(), root, properties);
    addDerivatives(model, isotherm, properties);
    return properties;
}

} // namespace

// At so low a pressure a gas is ideal, and the pressure's share in the entropy is -R ln(P / P0).
TEST(PhaseProperties, AreZeroForEachPureIdealGasAtTheReferenceState)
{
    for (const CompoundData &compound : compoundTable()) {
        const PhaseProperties gas = evaluate(modelOf({compound.id}), 298.15, 1.0, {1.0});
        EXPECT_NEAR(gas.enthalpy, 0.0, 0.1) << compound.id;
        EXPECT_NEAR(gas.entropy - gasConstant * std::log(101325.0), 0.0, 1e-3) << compound.id;
    }
}

// -R (0.5 ln 0.5 + 0.5 ln 0.5) = R ln 2
TEST(PhaseProperties, HaveTheEntropyOfMixing)
{
    const PhaseProperties gas = evaluate(modelOf({"methane", "nitrogen"}), 298.15, 1.0, {0.5, 0.5});
    EXPECT_NEAR(gas.entropy - gasConstant * std::log(101325.0), gasConstant * std::log(2.0), 1e-3);
    const PhaseProperties pure = evaluate(modelOf({"methane", "nitrogen"}), 298.15, 1.0, {1.0, 0.0});
    EXPECT_NEAR(pure.entropy - gasConstant * std::log(101325.0), 0.0, 1e-3);
}

// Cp of an ideal gas is nearly linear over a few kelvins: H(T) - H(298.15) = Cp(298.15) (T - 298.15),
// with 37.13 J/mol/K for carbon dioxide and 29.12 for nitrogen.
TEST(PhaseProperties, RiseWithTheIdealHeatCapacity)
{
    const MixtureModel model = modelOf({"carbon dioxide", "nitrogen"});
    const PhaseProperties gas = evaluate(model, 308.15, 1.0, {0.25, 0.75});
    EXPECT_NEAR(gas.enthalpy, 10.0 * (0.25 * 37.13 + 0.75 * 29.12), 2.5);
    EXPECT_NEAR(gas.heatCapacity, 0.25 * 37.13 + 0.75 * 29.12, 0.2);
}

// NIST Chemistry WebBook: propane at 300 K evaporates with 14.7 kJ/mol (0.9978 MPa).
TEST(PhaseProperties, GiveTheHeatOfEvaporationOfPropane)
{
    const MixtureModel model = modelOf({"propane"});
    const double liquid = evaluate(model, 300.0, 0.9978e6, {1.0}, Root::liquid).enthalpy;
    const double vapor = evaluate(model, 300.0, 0.9978e6, {1.0}, Root::vapor).enthalpy;
    EXPECT_NEAR(vapor - liquid, 14.7e3, 0.5e3);
}

TEST(PhaseProperties, HaveDerivativesThatAgreeWithDifferences)
{
    const MixtureModel model = modelOf(pipelineGas);
    const double T = 250.0;
    const double P = 5e6;
    for (const Root root : {Root::vapor, Root::liquid}) {
        const PhaseProperties at = evaluate(model, T, P, pipelineFractions, root);
        const PhaseProperties warmer = evaluate(model, T + 0.01, P, pipelineFractions, root);
        const PhaseProperties colder = evaluate(model, T - 0.01, P, pipelineFractions, root);
        const PhaseProperties higher = evaluate(model, T, P + 100.0, pipelineFractions, root);
        const PhaseProperties lower = evaluate(model, T, P - 100.0, pipelineFractions, root);
        const double relative = 1e-6;
        const auto expectSlope = [&](double analytic, double difference) {
            EXPECT_NEAR(analytic, difference, relative * std::fabs(difference));
        };
        expectSlope(at.volumeByT, (warmer.volume - colder.volume) / 0.02);
        expectSlope(at.volumeByP, (higher.volume - lower.volume) / 200.0);
        expectSlope(at.heatCapacity, (warmer.enthalpy - colder.enthalpy) / 0.02);
        expectSlope(at.heatCapacity / T, (warmer.entropy - colder.entropy) / 0.02);
        expectSlope(at.volume - T * at.volumeByT, (higher.enthalpy - lower.enthalpy) / 200.0);
        expectSlope(-at.volumeByT, (higher.entropy - lower.entropy) / 200.0);
    }
}

// 0.8 16.04246 + 0.2 44.0095
TEST(PhaseProperties, HaveTheMeanMolecularWeight)
{
    const PhaseProperties gas = evaluate(modelOf({"methane", "carbon dioxide"}), 300.0, 1e6, {0.8, 0.2});
    EXPECT_NEAR(gas.molecularWeight, 21.635868, 1e-9);
}
